#ifndef IPC2581_CAD_PHYNETGROUP_H
#define IPC2581_CAD_PHYNETGROUP_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/cad/PhyNet.h"

// The PhyNetGroup element. The step has one: a second element gives it its name and adds its nets.
class IPC2581_API CIPC2581_Ecad_CadData_Step_PhyNetGroup : public CIPC2581_XmlDataAdd_Function {
public:
    CString Name;
    CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNetArray PhyNetArray;

    CIPC2581_Ecad_CadData_Step_PhyNetGroup();
    ~CIPC2581_Ecad_CadData_Step_PhyNetGroup() override;
    virtual int Export(CStdioFile & file, int level);

    // Reads the nets up to the line with "/PhyNetGroup".
    void PhyNetGroupAdd(CStdioFile & file);
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Step_PhyNetGroup> {
    using Object = CIPC2581_Ecad_CadData_Step_PhyNetGroup;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Step_PhyNetGroup";
    static constexpr auto PhyNetGroup = Element<Object>("PhyNetGroup", Text("name=", &Object::Name));
    static constexpr auto Elements = Pack{PhyNetGroup};
    static constexpr auto Members =
        Pack{Member{"Name", &Object::Name}, Member{"PhyNetArray", &Object::PhyNetArray, "PhyNet"}};
};

#endif
