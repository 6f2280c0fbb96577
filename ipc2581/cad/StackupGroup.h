#ifndef IPC2581_CAD_STACKUPGROUP_H
#define IPC2581_CAD_STACKUPGROUP_H

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/cad/StackupLayer.h"

// A StackupGroup element. Read and never written.
class IPC2581_API CIPC2581_Ecad_CadData_Stackup_StackupGroup : public CIPC2581_XmlDataAdd_Function {
public:
    CString name;
    double thickness = 0.0;
    double tolPlus = 0.0;
    double tolMinus = 0.0;
    CIPC2581_StackupLayerArray StackupLayerArray;

    CIPC2581_Ecad_CadData_Stackup_StackupGroup();
    ~CIPC2581_Ecad_CadData_Stackup_StackupGroup() override;
    // Writes nothing and gives 1: a written document has no stackup.
    virtual int Export(CStdioFile & file, int level);

    // Reads the layers up to the line with "/StackupGroup".
    void StackUpGroupAdd(CStdioFile & file);
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Stackup_StackupGroup> {
    using Object = CIPC2581_Ecad_CadData_Stackup_StackupGroup;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Stackup_StackupGroup";
    static constexpr auto StackupGroup =
        Element<Object>("StackupGroup", Text("name=", &Object::name), Number("thickness=", &Object::thickness),
                        Number("tolPlus=", &Object::tolPlus), Number("tolMinus=", &Object::tolMinus));
    static constexpr auto Elements = Pack{StackupGroup};
    static constexpr auto Members = Pack{Member{"name", &Object::name}, Member{"thickness", &Object::thickness},
                                         Member{"tolPlus", &Object::tolPlus}, Member{"tolMinus", &Object::tolMinus},
                                         Member{"StackupLayerArray", &Object::StackupLayerArray, "StackupLayer"}};
};

// The groups of the stackup, in file order; owned.
class IPC2581_API CIPC2581_StackupGroupArray
    : public CExPtrArray<CIPC2581_Ecad_CadData_Stackup_StackupGroup *, CIPC2581_Ecad_CadData_Stackup_StackupGroup *> {
public:
    CIPC2581_StackupGroupArray();
    ~CIPC2581_StackupGroupArray() override;

    virtual int Export(CStdioFile & file, int level);
};

#endif
