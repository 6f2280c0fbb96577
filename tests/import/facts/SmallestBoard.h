#ifndef IPC2581_TESTS_IMPORT_FACTS_SMALLESTBOARD_H
#define IPC2581_TESTS_IMPORT_FACTS_SMALLESTBOARD_H

#include "ipc2581/ipc2581.h"

namespace ipc2581::facts {

// Fills the model with what examples/import/smallest-board.xml states, one thing of each kind, without reading it.
void FillWithSmallestBoard(CIPC2581_Parser & board);

}  // namespace ipc2581::facts

#endif
