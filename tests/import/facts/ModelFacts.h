#ifndef IPC2581_TESTS_IMPORT_FACTS_MODELFACTS_H
#define IPC2581_TESTS_IMPORT_FACTS_MODELFACTS_H

#include "ipc2581/ipc2581.h"
#include "tests/import/facts/Fact.h"

namespace ipc2581::facts {

// What the model holds, as a host finds it in the public members.
Facts FactsOfModel(const CIPC2581_Parser & board);

}  // namespace ipc2581::facts

#endif
