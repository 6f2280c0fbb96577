#ifndef IPC2581_IMPORT_XML_WATCHEDPARSE_H
#define IPC2581_IMPORT_XML_WATCHEDPARSE_H

#include <cstddef>
#include <functional>

#include "import/xml/ByteSource.h"
#include "import/xml/Words.h"
#include "import/xml/XmlParser.h"

namespace ipc2581::detail {

// Is told now and then how many bytes of the source have been read; what it throws ends the parse.
using Watch = std::function<void(std::size_t bytes)>;

enum class Threads {
    One,
    Two  // one of its own for the source and the parser; listener and watch stay in the caller's
};

// As ParseXml. With two threads the parser is a few batches ahead of the listener, and what the listener is told, what
// comes out and in which order is the same. Where no thread can be had it takes one.
void ParseWatched(ByteSource & source, WordTable & words, XmlListener & listener, const Watch & watch, Threads threads);

}  // namespace ipc2581::detail

#endif
