#include <iostream>

#include <ipc2581/ipc2581.h>

int main(int argc, char ** argv)
{
    if (argc != 2) {
        return 2;
    }
    CString path(argv[1]);
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader().OpenPath(path, root);
    for (const auto * const component : ipc2581::Each(root.m_Ecad.m_CadData.m_Step.ComponentArray)) {
        std::cout << component->RefDes << " " << component->PackageRef << " on " << component->LayerRef << " at "
                  << component->Location.X << ", " << component->Location.Y << "\n";
    }
}
