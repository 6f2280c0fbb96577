#include <iostream>

#include <import/Import.h>

// Imports a file of any tool and tells what of it the model has no member for.
int main(int argc, char ** argv)
{
    if (argc != 2) {
        return 2;
    }
    ipc2581::ImportOptions options;
    options.memoryLimit = std::uint64_t(1) << 30;
    try {
        const ipc2581::Imported imported = ipc2581::Import(argv[1], options);
        const CIPC2581_Ecad_CadData_Step & step = imported.board->m_Ecad.m_CadData.m_Step;
        std::cout << ipc2581::Count(step.ComponentArray) << " components\n";
        for (const auto & [path, count] : imported.report.LostPaths()) {
            std::cout << "not in the model: " << count << " " << path << "\n";
        }
        for (const ipc2581::Note & note : imported.report.Notes()) {
            std::cout << "line " << note.line << ": " << note.text << "\n";
        }
    }
    catch (const ipc2581::ImportError & error) {
        std::cerr << error.what() << "\n";
        return 1;
    }
}
