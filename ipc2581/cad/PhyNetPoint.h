#ifndef IPC2581_CAD_PHYNETPOINT_H
#define IPC2581_CAD_PHYNETPOINT_H

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/PointD.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"

// A PhyNetPoint element: where a net comes to the surface of the board.
class IPC2581_API CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint : public CIPC2581_XmlDataAdd_Function {
public:
    CPointD Location;
    CString LayerRef;
    CString Exposure;
    CString NetNode;
    int Via = 0;   // written only where it is not 0
    int Test = 0;  // read and never written
    CString StandardPrimitiveRefId;

    CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint();
    CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint(
        const CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint & other);
    CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint &
    operator=(const CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint & other);
    ~CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint() override;
    virtual int Export(CStdioFile & file, int level);

    // Reads the lines behind the opening line up to the one with "/PhyNetPoint".
    void PhyNetPointAdd(CStdioFile & file);
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint> {
    using Object = CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint";
    static constexpr auto PhyNetPoint = Element<Object>(
        "PhyNetPoint", Number("x=", &Object::Location, &CPointD::X), Number("y=", &Object::Location, &CPointD::Y),
        Text("layerRef=", &Object::LayerRef), Text("netNode=", &Object::NetNode), Text("exposure=", &Object::Exposure),
        Flag("via=", &Object::Via), Flag("test=", &Object::Test));
    static constexpr auto StandardPrimitiveRef =
        Element<Object>("StandardPrimitiveRef", Text("id=", &Object::StandardPrimitiveRefId));
    static constexpr auto Elements = Pack{PhyNetPoint, StandardPrimitiveRef};
    static constexpr auto Members = Pack{Member{"Location", &Object::Location},
                                         Member{"LayerRef", &Object::LayerRef},
                                         Member{"Exposure", &Object::Exposure},
                                         Member{"NetNode", &Object::NetNode},
                                         Member{"Via", &Object::Via},
                                         Member{"Test", &Object::Test},
                                         Member{"StandardPrimitiveRefId", &Object::StandardPrimitiveRefId}};
};

// The points of a net, in file order; owned.
class IPC2581_API CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPointArray
    : public CExPtrArray<CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint *,
                         CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint *> {
public:
    CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPointArray();
    ~CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPointArray() override;

    virtual int Export(CStdioFile & file, int level);
};

#endif
