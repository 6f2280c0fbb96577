#ifndef IPC2581_CAD_LOGICALNET_H
#define IPC2581_CAD_LOGICALNET_H

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/cad/LogicalNetPin.h"

// A LogicalNet element: a net and the pins on it.
class IPC2581_API CIPC2581_Ecad_CadData_Step_LogicalNet : public CIPC2581_XmlDataAdd_Function {
public:
    CString Name;
    int NetClass = 0;  // a host's own, neither read nor written
    CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPinArray * LogicalNetPinArray;  // owned

    CIPC2581_Ecad_CadData_Step_LogicalNet();
    // For a reader: with its list in the same blocks.
    explicit CIPC2581_Ecad_CadData_Step_LogicalNet(ipc2581::detail::ObjectBlocks & blocks);
    // A copy shares the pins with its source, and each of the two deletes them: hosts that copy a net set the pointer
    // of one to null.
    CIPC2581_Ecad_CadData_Step_LogicalNet(const CIPC2581_Ecad_CadData_Step_LogicalNet & other);
    CIPC2581_Ecad_CadData_Step_LogicalNet & operator=(const CIPC2581_Ecad_CadData_Step_LogicalNet & other);
    ~CIPC2581_Ecad_CadData_Step_LogicalNet() override;
    virtual int Export(CStdioFile & file, int level);

    // Takes a new empty list of pins and leaves the rest. The old list lives on: hosts hold pointers to it.
    void Init();
    // Reads the pins up to a line with "/LogicalNet", which "/LogicalNetPin" is too.
    void LogicalNetAdd(CStdioFile & file);

    CString GetName() const { return Name; }
    void SetName(CString name) { Name = name; }
    int GetNetClass() const { return NetClass; }
    void SetNetClass(int netClass) { NetClass = netClass; }
    CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPinArray * GetLogicalNetPinArray() const
    {
        return LogicalNetPinArray;
    }
    // Takes the list over. The one before is not deleted.
    void SetLogicalNetPinArray(CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPinArray * pins)
    {
        LogicalNetPinArray = pins;
    }
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Step_LogicalNet> {
    using Object = CIPC2581_Ecad_CadData_Step_LogicalNet;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Step_LogicalNet";
    static constexpr auto LogicalNet = Element<Object>("LogicalNet", Text("name=", &Object::Name));
    static constexpr auto Elements = Pack{LogicalNet};
    static constexpr auto Members = Pack{Member{"Name", &Object::Name}, Member{"NetClass", &Object::NetClass},
                                         Member{"LogicalNetPinArray", &Object::LogicalNetPinArray, "LogicalNetPin"}};
};

// The logical nets of the board, in file order; owned.
class IPC2581_API CIPC2581_Ecad_CadData_Step_LogicalNetArray
    : public CExPtrArray<CIPC2581_Ecad_CadData_Step_LogicalNet *, CIPC2581_Ecad_CadData_Step_LogicalNet *> {
public:
    CIPC2581_Ecad_CadData_Step_LogicalNetArray();
    ~CIPC2581_Ecad_CadData_Step_LogicalNetArray() override;

    virtual int Export(CStdioFile & file, int level);
};

#endif
