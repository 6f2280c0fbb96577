#ifndef IPC2581_TESTS_IMPORT_FACTS_FILEFACTPARTS_H
#define IPC2581_TESTS_IMPORT_FACTS_FILEFACTPARTS_H

#include "tests/import/facts/BoardFile.h"
#include "tests/import/facts/Fact.h"

namespace ipc2581::facts {

// Content, logistics, bill of materials, layers and stackup.
void AddDocumentFacts(const BoardFile & file, Facts & facts);
// The packages and components of the step.
void AddPackageFacts(const BoardFile & file, Facts & facts);
// Its logical and its physical nets.
void AddNetFacts(const BoardFile & file, Facts & facts);
// Its profile, its pad stacks and what lies on its layers.
void AddFeatureFacts(const BoardFile & file, Facts & facts);

}  // namespace ipc2581::facts

#endif
