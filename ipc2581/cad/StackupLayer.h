#ifndef IPC2581_CAD_STACKUPLAYER_H
#define IPC2581_CAD_STACKUPLAYER_H

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/platform/CString.h"

// A StackupLayer element.
class IPC2581_API CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer {
public:
    CString layerOrGroupRef;
    CString materialType;
    double thickness = 0.0;

    CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer();
    CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer(
        const CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer & other);
    CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer &
    operator=(const CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer & other);
    virtual ~CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer();
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer> {
    using Object = CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer";
    static constexpr auto StackupLayer =
        Element<Object>("StackupLayer", Text("layerOrGroupRef=", &Object::layerOrGroupRef),
                        Text("materialType=", &Object::materialType), Number("thickness=", &Object::thickness));
    static constexpr auto Elements = Pack{StackupLayer};
    static constexpr auto Members =
        Pack{Member{"layerOrGroupRef", &Object::layerOrGroupRef}, Member{"materialType", &Object::materialType},
             Member{"thickness", &Object::thickness}};
};

// The layers of a stackup group, in file order; owned.
class IPC2581_API CIPC2581_StackupLayerArray
    : public CExPtrArray<CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer *,
                         CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer *> {
public:
    CIPC2581_StackupLayerArray();
    ~CIPC2581_StackupLayerArray() override;
};

#endif
