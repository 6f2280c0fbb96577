#ifndef IPC2581_HOSTS_IPC2581_CHECK_IMPORTNOTES_H
#define IPC2581_HOSTS_IPC2581_CHECK_IMPORTNOTES_H

#include <cstddef>
#include <string>

#include <import/ImportReport.h>

#include "hosts/ipc2581/table/Table.h"

namespace ipc2581::host {

// What an import has done otherwise than to take what stands in the file, cause by cause, for one line; empty if
// nothing is. A step that was asked for leaves out the others as it should.
std::string NotesOfImport(const ImportReport & report, bool isStepChosen);

// All of it, and all facts that the model has no member for, by the elements that they stand in. Each row tells so many
// lines.
void ListImport(const ImportReport & report, std::size_t limit, Table & notes, Table & facts);

}  // namespace ipc2581::host

#endif
