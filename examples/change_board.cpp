#include <iostream>

#include <ipc2581/ipc2581.h>

// Reads a board, turns one component by a quarter, adds a layer, and writes the result.
int main(int argc, char ** argv)
{
    if (argc != 4) {
        return 2;
    }
    CString in(argv[1]);
    CString out(argv[2]);
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader().OpenPath(in, root);

    CIPC2581_Ecad_CadData & board = root.m_Ecad.m_CadData;
    auto * const component = board.m_Step.ComponentArray.pGetIPCComponentWithName(argv[3]);
    if (component == nullptr) {
        std::cerr << "no component " << argv[3] << "\n";
        return 1;
    }
    component->Xform->Rotation += 90.0;

    auto * const layer = new CIPC2581_Ecad_CadData_Layer();
    layer->name = "NOTES";
    layer->layerFunction = "DOCUMENT";
    layer->side = "NONE";
    // The list owns it from here on.
    board.m_arrLayer.Add(layer);

    // 0 for a file that cannot be written whole.
    return CIPC2581_XmlLiteReader().WriteFilePath(out, root) == 1 ? 0 : 1;
}
