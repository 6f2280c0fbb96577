#ifndef IPC2581_CAD_LAYERFEATURE_H
#define IPC2581_CAD_LAYERFEATURE_H

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/cad/LayerFeatureSet.h"

// A LayerFeature element: what lies on one layer of the board. It is written with one more set than it holds, in front
// of all others, that carries its colour; a reader keeps that set, so each cycle through a file adds one.
class IPC2581_API CIPC2581_Ecad_CadData_Step_LayerFeature : public CIPC2581_XmlDataAdd_Function {
public:
    CString LayerRef;
    CString ColorRefId;  // of the last set that has a colour
    CIPC2581_Ecad_CadData_Step_LayerFeature_SetArray SetArray;

    CIPC2581_Ecad_CadData_Step_LayerFeature();
    ~CIPC2581_Ecad_CadData_Step_LayerFeature() override;
    virtual int Export(CStdioFile & file, int level);

    // Reads the sets up to the line with "/LayerFeature".
    void LayerFeatureAdd(CStdioFile & file);
    CString GetLayerRef() const { return LayerRef; }
    void SetLayerRef(CString ref) { LayerRef = ref; }
    CString GetColorRefId() const { return ColorRefId; }
    void SetColorRefId(CString id) { ColorRefId = id; }
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Step_LayerFeature> {
    using Object = CIPC2581_Ecad_CadData_Step_LayerFeature;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Step_LayerFeature";
    static constexpr auto LayerFeature = Element<Object>("LayerFeature", Text("layerRef=", &Object::LayerRef));
    static constexpr auto Elements = Pack{LayerFeature};
    static constexpr auto Members =
        Pack{Member{"LayerRef", &Object::LayerRef}, Member{"ColorRefId", &Object::ColorRefId},
             Member{"SetArray", &Object::SetArray, "Set"}};
};

// The layer features of the board, in file order; owned.
class IPC2581_API CIPC2581_Ecad_CadData_Step_LayerFeatureArray
    : public CExPtrArray<CIPC2581_Ecad_CadData_Step_LayerFeature *, CIPC2581_Ecad_CadData_Step_LayerFeature *> {
public:
    CIPC2581_Ecad_CadData_Step_LayerFeatureArray();
    ~CIPC2581_Ecad_CadData_Step_LayerFeatureArray() override;

    virtual int Export(CStdioFile & file, int level);

    // The first layer feature of this layer; null if there is none. Two names for one look-up.
    CIPC2581_Ecad_CadData_Step_LayerFeature * pGetLayerFeatureWithName(CString name) const;
    CIPC2581_Ecad_CadData_Step_LayerFeature * FindLayerFeature(CString name) const;
};

#endif
