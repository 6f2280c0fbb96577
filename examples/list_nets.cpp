#include <iostream>

#include <ipc2581/ipc2581.h>

// The nets of a board with their pins, and the part that each pin belongs to.
int main(int argc, char ** argv)
{
    if (argc != 2) {
        return 2;
    }
    CString path(argv[1]);
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader().OpenPath(path, root);
    const CIPC2581_Ecad_CadData_Step & step = root.m_Ecad.m_CadData.m_Step;
    for (const auto * const net : ipc2581::Each(step.LogicalNetArray)) {
        std::cout << net->Name << "\n";
        for (const auto * const pin : ipc2581::Each(net->LogicalNetPinArray)) {
            const auto * const component = step.ComponentArray.pGetIPCComponentWithName(pin->ComponentRef);
            std::cout << "  " << pin->ComponentRef << "." << pin->Pin;
            if (component != nullptr) {
                std::cout << " of a " << component->PackageRef;
            }
            std::cout << "\n";
        }
    }
}
