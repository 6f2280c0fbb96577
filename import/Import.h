#ifndef IPC2581_IMPORT_IMPORT_H
#define IPC2581_IMPORT_IMPORT_H

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <string>

#include "import/ImportError.h"
#include "import/ImportReport.h"
#include "ipc2581/ipc2581.h"

// Reads any well-formed IPC-2581 file, of the revisions A, B and C and of any layout, into the model as its writer
// meant it. The reader of the core, CIPC2581_XmlLiteReader, takes one element a line and its own words; this one is for
// the files of others.
namespace ipc2581 {

// What a host may ask for. As it is made, it asks for nothing.
struct ImportOptions {
    // The step to import; if it is empty, the first one that has components, or else the first one.
    std::string step;
    // Is told now and then how much of the file is behind, from 0 to 1 where its size is known, and may end the import
    // with false.
    std::function<bool(double part)> progress;
    // A large file is read and parsed in threads of their own, ahead of the caller's, where the model is made and
    // progress is called. True keeps all in the caller's; what comes of it is the same.
    bool inOneThread = false;
    // In bytes, of objects, texts and lists; 0 for none.
    std::uint64_t memoryLimit = 0;
};

// What an import gives: never null, and never half a board.
struct Imported {
    std::unique_ptr<CIPC2581_Parser> board;  // the model
    ImportReport report;                     // what the model has no member for
};

// Throws ImportError, and ImportStopped where progress wants it.
IPC2581_API Imported Import(const std::filesystem::path & path, const ImportOptions & options = {});

// The same for a file in memory, which is not kept.
IPC2581_API Imported Import(std::span<const std::byte> bytes, const ImportOptions & options = {});

}  // namespace ipc2581

#endif
