#ifndef IPC2581_CAD_PACKAGEPIN_H
#define IPC2581_CAD_PACKAGEPIN_H

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/PointD.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/cad/PackageOutline.h"
#include "ipc2581/draw/Xform.h"

// A Pin element of a package. Transform and outline are read and never written.
class IPC2581_API CIPC2581_Ecad_CadData_Step_Package_Pin : public CIPC2581_XmlDataAdd_Function {
public:
    CString number;
    CString name;
    CString type;
    CString electricalType;
    CString SpareText;                 // nothing reads or writes it
    CIPC2581_Xform * Xform = nullptr;  // owned; its mirror is 0 whatever word a file has
    CPointD Location;
    CString StandardPrimitiveRef;
    CIPC2581_Ecad_CadData_Step_Package_Outline Outline;

    CIPC2581_Ecad_CadData_Step_Package_Pin();
    // For a reader: with its parts in the same blocks.
    explicit CIPC2581_Ecad_CadData_Step_Package_Pin(ipc2581::detail::ObjectBlocks & blocks);
    // A copy has an outline of its own and shares the transform with its source, and each of the two deletes it: hosts
    // that copy a pin set the pointer of one to null. A pin assigned to itself loses its outline.
    CIPC2581_Ecad_CadData_Step_Package_Pin(const CIPC2581_Ecad_CadData_Step_Package_Pin & other);
    CIPC2581_Ecad_CadData_Step_Package_Pin & operator=(const CIPC2581_Ecad_CadData_Step_Package_Pin & other);
    ~CIPC2581_Ecad_CadData_Step_Package_Pin() override;
    // Writes pin, location and primitive reference, whatever they hold, and gives 1.
    virtual int Export(CStdioFile & file, int level);

    // Back to the defaults, with a new transform and without touching the outline. The old transform lives on: hosts
    // hold pointers to it.
    void Init();
    // Reads the lines behind the opening line up to the one with "/Pin".
    void PinAdd(CStdioFile & file);
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Step_Package_Pin> {
    using Object = CIPC2581_Ecad_CadData_Step_Package_Pin;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Step_Package_Pin";
    static constexpr auto Pin =
        Element<Object>("Pin", Text("number=", &Object::number), Text("name=", &Object::name),
                        Text("type=", &Object::type), Text("electricalType=", &Object::electricalType));
    static constexpr auto Location = PointElement("Location", &Object::Location);
    static constexpr auto StandardPrimitiveRef =
        Element<Object>("StandardPrimitiveRef", Text("id=", &Object::StandardPrimitiveRef));
    static constexpr auto Elements = Pack{Pin, Location, StandardPrimitiveRef};
    static constexpr auto Members = Pack{Member{"number", &Object::number},
                                         Member{"name", &Object::name},
                                         Member{"type", &Object::type},
                                         Member{"electricalType", &Object::electricalType},
                                         Member{"SpareText", &Object::SpareText},
                                         Member{"Xform", &Object::Xform, "Xform"},
                                         Member{"Location", &Object::Location},
                                         Member{"StandardPrimitiveRef", &Object::StandardPrimitiveRef},
                                         Member{"Outline", &Object::Outline, "Outline"}};
};

// The pins of a package, in file order; owned.
class IPC2581_API CIPC2581_Ecad_CadData_Step_Package_PinArray
    : public CExPtrArray<CIPC2581_Ecad_CadData_Step_Package_Pin *, CIPC2581_Ecad_CadData_Step_Package_Pin *> {
public:
    CIPC2581_Ecad_CadData_Step_Package_PinArray();
    ~CIPC2581_Ecad_CadData_Step_Package_PinArray() override;

    virtual int Export(CStdioFile & file, int level);

    // The place of the first pin with this number, counted from 1; -1 if there is none. The first argument is not used.
    int nGetIndexWithPinNumber(CString & first, CString & number) const;
};

#endif
