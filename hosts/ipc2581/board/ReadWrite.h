#ifndef IPC2581_HOSTS_IPC2581_BOARD_READWRITE_H
#define IPC2581_HOSTS_IPC2581_BOARD_READWRITE_H

#include <cstdint>
#include <string>

#include <import/Import.h>
#include <ipc2581/ipc2581.h>

#include "hosts/ipc2581/board/BoardFile.h"

namespace ipc2581::host {

// What is told of a document that nothing is read from.
inline constexpr const char * NoSection = "contains no section of an IPC-2581 document";

// Imports the file as the options say; where they have no memory limit, within the bound of memory for a board. The
// progress may be null, and is not used after the call. Throws Error for a file that cannot be read or is not whole,
// and for one without a section.
Imported ImportModel(const BoardFile & file, ImportOptions options, CProgressCtrl * progress);

// Reads the file into the root by the reader of the core, within the same bound. False if a line has
// stopped the read: the reader's file stays open behind that line. The progress may be null, and is not used after the
// call. Throws Error for a file that cannot be read.
bool ReadModel(const BoardFile & file, CIPC2581_XmlLiteReader & reader, CIPC2581_Parser & root,
               CProgressCtrl * progress, std::uint64_t memoryLimit = 0);

// Writes the root to the path. The progress may be null. Throws Error, which gives the told name and not the path.
void WriteModel(const std::string & path, const std::string & told, CIPC2581_Parser & root, CProgressCtrl * progress);

// Makes the report of the library, whose name is that of the design with ".txt" in place of ".cvg" and all behind it.
// Throws Error, which gives the told name and not the path.
void WriteReport(const std::string & design, const std::string & told, CIPC2581_Parser & root);

}  // namespace ipc2581::host

#endif
