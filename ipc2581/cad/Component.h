#ifndef IPC2581_CAD_COMPONENT_H
#define IPC2581_CAD_COMPONENT_H

#include <cstdint>

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/PointD.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/draw/Xform.h"

// A Component element: one placed part. Rotation, mirror and location are kept as they came; nothing is computed from
// them, and no reference is looked up.
class IPC2581_API CIPC2581_Ecad_CadData_Step_Component : public CIPC2581_XmlDataAdd_Function {
public:
    CString RefDes;
    CString PackageRef;
    CString Part;
    CString LayerRef;
    CString MountType = "OTHER";
    std::int64_t Spare = 0;
    double Height = 0.0;               // read, and written as 0.0 whatever it is
    CString Standoff;                  // kept as text
    CIPC2581_Xform * Xform = nullptr;  // owned; its mirror is read and never written
    CPointD Location;

    CIPC2581_Ecad_CadData_Step_Component();
    // For a reader: with its transform in the same blocks.
    explicit CIPC2581_Ecad_CadData_Step_Component(ipc2581::detail::ObjectBlocks & blocks);
    // A copy shares the transform with its source, and each of the two deletes it: hosts that copy a component set the
    // pointer of one to null.
    CIPC2581_Ecad_CadData_Step_Component(const CIPC2581_Ecad_CadData_Step_Component & other);
    CIPC2581_Ecad_CadData_Step_Component & operator=(const CIPC2581_Ecad_CadData_Step_Component & other);
    ~CIPC2581_Ecad_CadData_Step_Component() override;
    virtual int Export(CStdioFile & file, int level);

    // Back to the defaults, with a new transform. The old one lives on: hosts hold pointers to it.
    void Init();
    // Reads the lines behind the opening line up to the one with "/Component".
    void ComponetAdd(CStdioFile & file);
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Step_Component> {
    using Object = CIPC2581_Ecad_CadData_Step_Component;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Step_Component";
    static constexpr auto Component = Element<Object>(
        "Component", Text("refDes=", &Object::RefDes), Text("packageRef=", &Object::PackageRef),
        Text("layerRef=", &Object::LayerRef), Text("part=", &Object::Part), Text("mountType=", &Object::MountType),
        Text("standoff=", &Object::Standoff), Number("height=", &Object::Height));
    static constexpr auto Location = PointElement("Location", &Object::Location);
    static constexpr auto Elements = Pack{Component, Location};
    static constexpr auto Members = Pack{Member{"RefDes", &Object::RefDes},
                                         Member{"PackageRef", &Object::PackageRef},
                                         Member{"Part", &Object::Part},
                                         Member{"LayerRef", &Object::LayerRef},
                                         Member{"MountType", &Object::MountType},
                                         Member{"Spare", &Object::Spare},
                                         Member{"Height", &Object::Height},
                                         Member{"Standoff", &Object::Standoff},
                                         Member{"Xform", &Object::Xform, "Xform"},
                                         Member{"Location", &Object::Location}};
};

// The placed parts of the board, in file order; owned.
class IPC2581_API CIPC2581_Ecad_CadData_Step_ComponentArray
    : public CExPtrArray<CIPC2581_Ecad_CadData_Step_Component *, CIPC2581_Ecad_CadData_Step_Component *> {
public:
    CIPC2581_Ecad_CadData_Step_ComponentArray();
    ~CIPC2581_Ecad_CadData_Step_ComponentArray() override;

    virtual int Export(CStdioFile & file, int level);

    // The first component with this reference designator; null if there is none.
    CIPC2581_Ecad_CadData_Step_Component * pGetIPCComponentWithName(CString name) const;
};

#endif
