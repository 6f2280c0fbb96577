#ifndef IPC2581_CAD_PAD_H
#define IPC2581_CAD_PAD_H

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/PointD.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"

// One pad: a LayerPad of a pad stack, or a Pad of a set or a land pattern.
class IPC2581_API CIPC2581_Ecad_CadData_Step_Pad : public CIPC2581_XmlDataAdd_Function {
public:
    int UsePinPrefix = 0;  // a host's own: not 0 writes the pin behind PinPrefix and a point
    CString LayerRef;      // read and never written
    CString Pin;
    CString PinPrefix;  // a host's own, see UsePinPrefix
    double Rotation = 0.0;
    CPointD Location;
    CString StandardPrimitiveRefId;

    CIPC2581_Ecad_CadData_Step_Pad();
    CIPC2581_Ecad_CadData_Step_Pad(const CIPC2581_Ecad_CadData_Step_Pad & other);
    CIPC2581_Ecad_CadData_Step_Pad & operator=(const CIPC2581_Ecad_CadData_Step_Pad & other);
    ~CIPC2581_Ecad_CadData_Step_Pad() override;
    // Writes a Pad element, with an Xform line only where the rotation is not 0, and gives 1.
    virtual int Export(CStdioFile & file, int level);

    void Init();
    // Reads the lines behind the opening line up to one with "/Pad" or "/LayerPad".
    void PadAdd(CStdioFile & file);
    CString GetStandardPrimitiveRefId() const { return StandardPrimitiveRefId; }
    void SetStandardPrimitiveRefId(CString id) { StandardPrimitiveRefId = id; }
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Step_Pad> {
    using Object = CIPC2581_Ecad_CadData_Step_Pad;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Step_Pad";
    static constexpr auto LayerPad =
        Element<Object>("LayerPad", Text("layerRef=", &Object::LayerRef), Text("pin=", &Object::Pin));
    static constexpr auto Pad = Element<Object>("Pad", Text("pin=", &Object::Pin));
    static constexpr auto Xform = Element<Object>("Xform", Number("rotation=", &Object::Rotation));
    static constexpr auto Location = PointElement("Location", &Object::Location);
    static constexpr auto StandardPrimitiveRef =
        Element<Object>("StandardPrimitiveRef", Text("id=", &Object::StandardPrimitiveRefId));
    static constexpr auto Elements = Pack{LayerPad, Pad, Xform, Location, StandardPrimitiveRef};
    static constexpr auto Members = Pack{Member{"UsePinPrefix", &Object::UsePinPrefix},
                                         Member{"LayerRef", &Object::LayerRef},
                                         Member{"Pin", &Object::Pin},
                                         Member{"PinPrefix", &Object::PinPrefix},
                                         Member{"Rotation", &Object::Rotation},
                                         Member{"Location", &Object::Location},
                                         Member{"StandardPrimitiveRefId", &Object::StandardPrimitiveRefId}};
};

// A list of pads, in file order; owned.
class IPC2581_API CIPC2581_Ecad_CadData_Step_PadArray
    : public CExPtrArray<CIPC2581_Ecad_CadData_Step_Pad *, CIPC2581_Ecad_CadData_Step_Pad *> {
public:
    CIPC2581_Ecad_CadData_Step_PadArray();
    ~CIPC2581_Ecad_CadData_Step_PadArray() override;

    virtual int Export(CStdioFile & file, int level);
};

#endif
