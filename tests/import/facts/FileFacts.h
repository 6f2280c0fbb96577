#ifndef IPC2581_TESTS_IMPORT_FACTS_FILEFACTS_H
#define IPC2581_TESTS_IMPORT_FACTS_FILEFACTS_H

#include <string>

#include "tests/import/facts/Fact.h"

namespace ipc2581::facts {

// What the file states by the standard, of any revision, found with an XML parser of its own. Throws
// std::runtime_error for a file that is not there or not well-formed.
Facts FactsOfFile(const std::string & path);

}  // namespace ipc2581::facts

#endif
