#ifndef IPC2581_CAD_LAYERFEATURESET_H
#define IPC2581_CAD_LAYERFEATURESET_H

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/cad/Features.h"
#include "ipc2581/cad/Hole.h"
#include "ipc2581/cad/Pad.h"

// A Set element: the geometry of one net on a layer, either features, or a pad, or a hole. All three are kept; Kind
// tells which of them was read last, and only that one is written.
class IPC2581_API CIPC2581_Ecad_CadData_Step_LayerFeature_Set : public CIPC2581_XmlDataAdd_Function {
public:
    int Kind = ipc2581::SetKinds::Features;
    CString Net;
    CString ColorRef;        // handed up to the layer feature, which writes it
    bool TestPoint = false;  // these three are written with a pad alone
    bool Plate = false;
    CString PadUsage;
    CIPC2581_Ecad_CadData_Step_LayerFeature_Set_Features Features;
    CIPC2581_Ecad_CadData_Step_Pad Pad;
    CIPC2581_Ecad_CadData_Step_Hole Hole;

    CIPC2581_Ecad_CadData_Step_LayerFeature_Set();
    // Copies every field as its class copies: without the position of the hole, and with a copied list of shapes.
    CIPC2581_Ecad_CadData_Step_LayerFeature_Set(const CIPC2581_Ecad_CadData_Step_LayerFeature_Set & other);
    CIPC2581_Ecad_CadData_Step_LayerFeature_Set & operator=(const CIPC2581_Ecad_CadData_Step_LayerFeature_Set & other);
    ~CIPC2581_Ecad_CadData_Step_LayerFeature_Set() override;
    // Of a Kind that is none of the three only the closing line is written.
    virtual int Export(CStdioFile & file, int level);

    // Reads the lines behind the opening line up to the one with "/Set".
    void SetAdd(CStdioFile & file);

private:
    int ExportContents(CStdioFile & file, int level);
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Step_LayerFeature_Set> {
    using Object = CIPC2581_Ecad_CadData_Step_LayerFeature_Set;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Step_LayerFeature_Set";
    static constexpr auto Set =
        Element<Object>("Set", Text("net=", &Object::Net), Flag("testPoint=", &Object::TestPoint),
                        Flag("plate=", &Object::Plate), Text("padUsage=", &Object::PadUsage));
    static constexpr auto ColorRef = Element<Object>("ColorRef", Text("id=", &Object::ColorRef));
    static constexpr auto Elements = Pack{Set, ColorRef};
    static constexpr auto Members = Pack{Member{"Kind", &Object::Kind},
                                         Member{"Net", &Object::Net},
                                         Member{"ColorRef", &Object::ColorRef},
                                         Member{"TestPoint", &Object::TestPoint},
                                         Member{"Plate", &Object::Plate},
                                         Member{"PadUsage", &Object::PadUsage},
                                         Member{"Features", &Object::Features, "Features"},
                                         Member{"Pad", &Object::Pad, "Pad"},
                                         Member{"Hole", &Object::Hole, "Hole"}};
};

// The sets of a layer, in file order; owned.
class IPC2581_API CIPC2581_Ecad_CadData_Step_LayerFeature_SetArray
    : public CExPtrArray<CIPC2581_Ecad_CadData_Step_LayerFeature_Set *, CIPC2581_Ecad_CadData_Step_LayerFeature_Set *> {
public:
    CIPC2581_Ecad_CadData_Step_LayerFeature_SetArray();
    ~CIPC2581_Ecad_CadData_Step_LayerFeature_SetArray() override;

    virtual int Export(CStdioFile & file, int level);
};

#endif
