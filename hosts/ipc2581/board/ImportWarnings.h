#ifndef IPC2581_HOSTS_IPC2581_BOARD_IMPORTWARNINGS_H
#define IPC2581_HOSTS_IPC2581_BOARD_IMPORTWARNINGS_H

#include <string>
#include <vector>

#include <import/ImportReport.h>

#include "hosts/ipc2581/table/Table.h"

namespace ipc2581::host {

// What an import has not taken as it stands, for readers.
std::string TextOf(const Note & note);

// All of it, one by one. Steps that were not imported are none where one was asked for.
std::vector<Warning> WarningsOfImport(const ImportReport & report, bool isStepChosen);

}  // namespace ipc2581::host

#endif
