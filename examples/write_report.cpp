#include <iostream>

#include <ipc2581/ipc2581.h>

// Writes the text report of a board beside its file.
int main(int argc, char ** argv)
{
    if (argc != 2) {
        return 2;
    }
    CString path(argv[1]);
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader().OpenPath(path, root);
    CIPC2581_DataPrint().DataPrint(path, root);
    std::cout << path << "\n";
}
