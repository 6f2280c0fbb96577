#include "ipc2581/cad/PadStack.h"

#include <utility>

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/platform/ObjectBlocks.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

CIPC2581_Ecad_CadData_Step_PadStack::CIPC2581_Ecad_CadData_Step_PadStack()
    : CIPC2581_Ecad_CadData_Step_PadStack(WithoutParts())
{
    LayerPadArray = new CIPC2581_Ecad_CadData_Step_PadArray();
    LayerHole = new CIPC2581_Ecad_CadData_Step_Hole();
}

CIPC2581_Ecad_CadData_Step_PadStack::CIPC2581_Ecad_CadData_Step_PadStack(ObjectBlocks & blocks)
    : CIPC2581_Ecad_CadData_Step_PadStack(WithoutParts())
{
    LayerPadArray = MakeFrom<CIPC2581_Ecad_CadData_Step_PadArray>(blocks);
    LayerHole = MakeFrom<CIPC2581_Ecad_CadData_Step_Hole>(blocks);
}

// Pads and hole are shared, not copied: hosts rely on it.
CIPC2581_Ecad_CadData_Step_PadStack::CIPC2581_Ecad_CadData_Step_PadStack(
    const CIPC2581_Ecad_CadData_Step_PadStack & other) = default;
CIPC2581_Ecad_CadData_Step_PadStack &
CIPC2581_Ecad_CadData_Step_PadStack::operator=(const CIPC2581_Ecad_CadData_Step_PadStack & other) = default;

CIPC2581_Ecad_CadData_Step_PadStack::~CIPC2581_Ecad_CadData_Step_PadStack()
{
    delete LayerHole;
    delete LayerPadArray;
}

void CIPC2581_Ecad_CadData_Step_PadStack::PadStackAdd(CStdioFile & file)
{
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("LayerHole")) {
            ReadHole(line.Tokens(), *LayerHole);
            LayerHole->LayerHoleAdd(file);
        }
        else if (line.Opens("LayerPad")) {
            auto pad = NewFrom<Fields<CIPC2581_Ecad_CadData_Step_Pad>::LayerPad>(line, file);
            pad->PadAdd(file);
            Append(*LayerPadArray, std::move(pad));
        }
        else if (line.Holds("/PadStack")) {
            return;
        }
    }
}

CIPC2581_Ecad_CadData_Step_PadStackArray::CIPC2581_Ecad_CadData_Step_PadStackArray() = default;

CIPC2581_Ecad_CadData_Step_PadStackArray::~CIPC2581_Ecad_CadData_Step_PadStackArray()
{
    DeleteAll();
}
