#include <iostream>

#include <ipc2581/ipc2581.h>

// The round shapes of the standard dictionary, by the names that pads and pins refer to.
int main(int argc, char ** argv)
{
    if (argc != 2) {
        return 2;
    }
    CString path(argv[1]);
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader().OpenPath(path, root);
    const CIPC2581_Content_DictionaryStandard & dictionary = *root.m_Content.DictionaryStandard;
    for (const auto * const entry : ipc2581::Each(dictionary.EntryArray)) {
        for (const auto * const shape : ipc2581::Each(entry->DrawArray)) {
            if (const auto * const circle = dynamic_cast<const CIPC2581_DicDraw_Circle *>(shape)) {
                std::cout << entry->EntryStandardId << ": circle of " << circle->Diameter << " " << dictionary.Unit
                          << "\n";
            }
            else if (shape->DrawType == ipc2581::DrawTypes::Oval) {
                std::cout << entry->EntryStandardId << ": oval\n";
            }
        }
    }
}
