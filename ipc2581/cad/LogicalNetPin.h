#ifndef IPC2581_CAD_LOGICALNETPIN_H
#define IPC2581_CAD_LOGICALNETPIN_H

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/base/platform/CString.h"

// A LogicalNetPin element: one pin of one component on a net.
class IPC2581_API CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin {
public:
    CString ComponentRef;
    CString Pin;
    CString Title;  // a host's own, neither read nor written

    CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin();
    CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin(
        const CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin & other);
    CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin &
    operator=(const CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin & other);
    virtual ~CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin();
    // Writes the one line of the pin and gives 1.
    virtual int Export(CStdioFile & file, int level);

    void Init();
    CString GetComponentRef() const { return ComponentRef; }
    void SetComponentRef(CString ref) { ComponentRef = ref; }
    CString GetPin() const { return Pin; }
    void SetPin(CString pin) { Pin = pin; }
    CString GetTitle() const { return Title; }
    void SetTitle(CString title) { Title = title; }
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin> {
    using Object = CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin";
    static constexpr auto LogicalNetPin =
        Element<Object>("LogicalNetPin", Text("pin=", &Object::Pin), Text("componentRef=", &Object::ComponentRef));
    static constexpr auto Elements = Pack{LogicalNetPin};
    static constexpr auto Members = Pack{Member{"ComponentRef", &Object::ComponentRef}, Member{"Pin", &Object::Pin},
                                         Member{"Title", &Object::Title}};
};

// The pins of a net, in file order; owned.
class IPC2581_API CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPinArray
    : public CExPtrArray<CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin *,
                         CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin *> {
public:
    CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPinArray();
    ~CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPinArray() override;

    virtual int Export(CStdioFile & file, int level);
};

#endif
