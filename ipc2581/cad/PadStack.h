#ifndef IPC2581_CAD_PADSTACK_H
#define IPC2581_CAD_PADSTACK_H

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/WithoutParts.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/cad/Hole.h"
#include "ipc2581/cad/Pad.h"

// A PadStack element: the pads of a pin or via on each layer and the hole through them. Read and never written.
class IPC2581_API CIPC2581_Ecad_CadData_Step_PadStack : public CIPC2581_XmlDataAdd_Function {
public:
    CString NetName;
    CIPC2581_Ecad_CadData_Step_PadArray * LayerPadArray = nullptr;  // owned
    CIPC2581_Ecad_CadData_Step_Hole * LayerHole = nullptr;          // owned

    CIPC2581_Ecad_CadData_Step_PadStack();
    // For a reader: with its parts in the same blocks.
    explicit CIPC2581_Ecad_CadData_Step_PadStack(ipc2581::detail::ObjectBlocks & blocks);
    // A copy shares pads and hole with its source, and each of the two deletes them: hosts that copy a pad stack set
    // the pointers of one to null.
    CIPC2581_Ecad_CadData_Step_PadStack(const CIPC2581_Ecad_CadData_Step_PadStack & other);
    CIPC2581_Ecad_CadData_Step_PadStack & operator=(const CIPC2581_Ecad_CadData_Step_PadStack & other);
    ~CIPC2581_Ecad_CadData_Step_PadStack() override;

    // Reads the lines behind the opening line up to the one with "/PadStack". A second LayerHole writes over the first.
    void PadStackAdd(CStdioFile & file);
    CString GetNetName() const { return NetName; }
    void SetNetName(CString name) { NetName = name; }
    CIPC2581_Ecad_CadData_Step_PadArray * GetLayerPadArray() const { return LayerPadArray; }
    // Takes the list over. The one before is not deleted.
    void SetLayerPadArray(CIPC2581_Ecad_CadData_Step_PadArray * pads) { LayerPadArray = pads; }

private:
    explicit CIPC2581_Ecad_CadData_Step_PadStack(ipc2581::detail::WithoutParts /*tag*/) {}
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Step_PadStack> {
    using Object = CIPC2581_Ecad_CadData_Step_PadStack;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Step_PadStack";
    static constexpr auto PadStack = Element<Object>("PadStack", Text("net=", &Object::NetName));
    static constexpr auto Elements = Pack{PadStack};
    static constexpr auto Members =
        Pack{Member{"NetName", &Object::NetName}, Member{"LayerPadArray", &Object::LayerPadArray, "LayerPad"},
             Member{"LayerHole", &Object::LayerHole, "LayerHole"}};
};

// The pad stacks of the board, in file order; owned. They are never written.
class IPC2581_API CIPC2581_Ecad_CadData_Step_PadStackArray
    : public CExPtrArray<CIPC2581_Ecad_CadData_Step_PadStack *, CIPC2581_Ecad_CadData_Step_PadStack *> {
public:
    CIPC2581_Ecad_CadData_Step_PadStackArray();
    ~CIPC2581_Ecad_CadData_Step_PadStackArray() override;
};

#endif
