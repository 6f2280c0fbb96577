// What the views of the debugger are tried on: tests/gdb/check_views.sh stops in Stop and looks around in main.
#include <string>

#include <ipc2581/ipc2581.h>

namespace {

volatile int g_stops = 0;

void Stop()
{
    g_stops = g_stops + 1;
}

}  // namespace

int main()
{
    const CString empty;
    const CString inside("R1");
    const CString longest("sixsix");
    const CString onHeap("a text that is too long for the object");
    const CString withZero(std::string_view("a\0b", 3));

    CStringArray texts;
    const CStringArray noTexts;
    texts.Add("one");
    texts.Add("a second text, which lies on the heap");

    CArrayPointD points;
    CPointD point(1.0, 2.5);
    points.Add(point);

    CIPC2581_Ecad_CadData_Step_Component component;
    component.RefDes = "U1";
    component.Xform->Rotation = 90.0;
    component.Location = point;

    CIPC2581_Ecad_CadData_LayerArray layers;
    layers.Add(new CIPC2581_Ecad_CadData_Layer());
    layers.GetAt(0)->name = "TOP";
    layers.Add(nullptr);

    CIPC2581_DrawObjArray shapes;
    auto * const circle = new CIPC2581_DicDraw_Circle();
    circle->Diameter = 0.8;
    shapes.Add(circle);

    CString path(IPC2581_SOURCE_FOLDER "/examples/board.cvg");
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader().OpenPath(path, root);
    // Texts and objects in the blocks of a reader.
    const CIPC2581_Ecad_CadData_Step_LogicalNetArray & nets = root.m_Ecad.m_CadData.m_Step.LogicalNetArray;
    const CIPC2581_BomItemArray & items = root.m_Bom.m_arrBomItem;

    Stop();
    return nets.IsEmpty() || items.IsEmpty() ? 1 : 0;
}
