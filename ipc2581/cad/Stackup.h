#ifndef IPC2581_CAD_STACKUP_H
#define IPC2581_CAD_STACKUP_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/cad/StackupGroup.h"

// The Stackup element: the build-up of the board. Read and never written. A second one overwrites the texts and adds
// its groups.
class IPC2581_API CIPC2581_Ecad_CadData_Stackup : public CIPC2581_XmlDataAdd_Function {
public:
    // Text here, where the groups have numbers.
    CString overallThickness;
    CString tolPlus;
    CString tolMinus;
    CString whereMeasured;
    CIPC2581_StackupGroupArray StackupGroupArray;

    CIPC2581_Ecad_CadData_Stackup();
    ~CIPC2581_Ecad_CadData_Stackup() override;
    // Writes nothing and gives 1: a written document has no stackup.
    virtual int Export(CStdioFile & file, int level);

    // Takes the attributes from the token list of the Stackup line and reads on up to a line with "/Stackup". A group
    // is in the array before its layers are read.
    void ReadStackUp(CArray<CString, CString> & tokens, CStdioFile & file);
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Stackup> {
    using Object = CIPC2581_Ecad_CadData_Stackup;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Stackup";
    static constexpr auto Stackup = Element<Object>(
        "Stackup", Text("overallThickness=", &Object::overallThickness), Text("tolPlus=", &Object::tolPlus),
        Text("tolMinus=", &Object::tolMinus), Text("whereMeasured=", &Object::whereMeasured));
    static constexpr auto Elements = Pack{Stackup};
    static constexpr auto Members =
        Pack{Member{"overallThickness", &Object::overallThickness}, Member{"tolPlus", &Object::tolPlus},
             Member{"tolMinus", &Object::tolMinus}, Member{"whereMeasured", &Object::whereMeasured},
             Member{"StackupGroupArray", &Object::StackupGroupArray, "StackupGroup"}};
};

#endif
