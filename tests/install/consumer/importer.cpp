#include <iostream>

#include <import/Import.h>

// Tells the name of the step of a board, and what ends an import.
int main(int argc, char ** argv)
{
    if (argc != 2) {
        return 2;
    }
    try {
        const ipc2581::Imported imported = ipc2581::Import(argv[1]);
        std::cout << imported.board->m_Ecad.m_CadData.m_Step.Name << "\n";
        return 0;
    }
    catch (const ipc2581::ImportError & error) {
        std::cout << "line " << error.Line() << "\n";
        return 1;
    }
}
