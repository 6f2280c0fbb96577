// For work at the desk: what the import makes of files, against what the files state.
// check_facts FILE... prints a table for each file, and ends with 1 if anything is missing or not stated.

#include <algorithm>
#include <exception>
#include <filesystem>
#include <iostream>

#include "import/Import.h"
#include "tests/import/facts/Fact.h"
#include "tests/import/facts/FileFacts.h"
#include "tests/import/facts/ModelFacts.h"

namespace {

namespace facts = ipc2581::facts;

bool IsFileRight(const char * path)
{
    const auto imported = ipc2581::Import(std::filesystem::path(path));
    const auto comparisons = facts::Compare(facts::FactsOfFile(path), facts::FactsOfModel(*imported.board));
    std::cout << path << "\n" << facts::Table(comparisons, 3) << "\n";
    return std::all_of(comparisons.begin(), comparisons.end(),
                       [](const facts::KindComparison & comparison) { return comparison.IsRight(); });
}

}  // namespace

int main(int argc, char ** argv)
{
    if (argc < 2) {
        std::cerr << "usage: check_facts FILE...\n";
        return 2;
    }
    bool isRight = true;
    for (int i = 1; i < argc; ++i) {
        try {
            isRight = IsFileRight(argv[i]) && isRight;
        }
        catch (const std::exception & failure) {
            std::cerr << argv[i] << ": " << failure.what() << "\n";
            isRight = false;
        }
    }
    return isRight ? 0 : 1;
}
