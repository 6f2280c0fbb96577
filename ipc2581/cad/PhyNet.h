#ifndef IPC2581_CAD_PHYNET_H
#define IPC2581_CAD_PHYNET_H

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/cad/PhyNetPoint.h"

// A PhyNet element: a net as points on layers.
class IPC2581_API CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet : public CIPC2581_XmlDataAdd_Function {
public:
    CString Name;
    CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPointArray PhyNetPointArray;

    CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet();
    ~CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet() override;
    virtual int Export(CStdioFile & file, int level);

    // Reads the points up to a line with "/PhyNet", which "/PhyNetGroup" is too.
    void PhyNetAdd(CStdioFile & file);
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet> {
    using Object = CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet";
    static constexpr auto PhyNet = Element<Object>("PhyNet", Text("name=", &Object::Name));
    static constexpr auto Elements = Pack{PhyNet};
    static constexpr auto Members =
        Pack{Member{"Name", &Object::Name}, Member{"PhyNetPointArray", &Object::PhyNetPointArray, "PhyNetPoint"}};
};

// The physical nets of the group, in file order; owned.
class IPC2581_API CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNetArray
    : public CExPtrArray<CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet *,
                         CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet *> {
public:
    CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNetArray();
    ~CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNetArray() override;

    virtual int Export(CStdioFile & file, int level);
};

#endif
