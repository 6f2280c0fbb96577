#include <iostream>

#include <ipc2581/ipc2581.h>

int main(int argc, char ** argv)
{
    if (argc != 2) {
        std::cerr << "usage: list_components BOARD\n";
        return 2;
    }
    CString path(argv[1]);
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader().OpenPath(path, root);

    const CIPC2581_Ecad_CadData_Step_ComponentArray & components = root.m_Ecad.m_CadData.m_Step.ComponentArray;
    for (std::int64_t i = 0; i < components.GetSize(); ++i) {
        const CIPC2581_Ecad_CadData_Step_Component & component = *components.GetAt(i);
        std::cout << component.RefDes << " " << component.PackageRef << " on " << component.LayerRef << " at "
                  << component.Location.X << ", " << component.Location.Y << "\n";
    }
}
