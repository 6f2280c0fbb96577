#include <iostream>

#include <ipc2581/ipc2581.h>

// The bill of materials: what must be bought, and where it is placed.
int main(int argc, char ** argv)
{
    if (argc != 2) {
        return 2;
    }
    CString path(argv[1]);
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader().OpenPath(path, root);
    for (const auto * const item : ipc2581::Each(root.m_Bom.m_arrBomItem)) {
        // The quantity is text, as everything in a bill of materials.
        std::cout << item->quantity << " x " << item->internalPartNumber << " " << item->description << ":";
        for (const auto * const place : ipc2581::Each(item->m_arrRefDes)) {
            std::cout << " " << place->name << (place->populate ? "" : " (not fitted)");
        }
        std::cout << "\n";
    }
}
