#include "tests/import/facts/FileFacts.h"

#include "tests/import/facts/BoardFile.h"
#include "tests/import/facts/FileFactParts.h"

namespace ipc2581::facts {

Facts FactsOfFile(const std::string & path)
{
    const BoardFile file(path);
    Facts facts;
    AddDocumentFacts(file, facts);
    AddPackageFacts(file, facts);
    AddNetFacts(file, facts);
    AddFeatureFacts(file, facts);
    return facts;
}

}  // namespace ipc2581::facts
