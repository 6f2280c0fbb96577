#ifndef IPC2581_HOSTS_IPC2581_CHECK_ELEMENTCOUNTS_H
#define IPC2581_HOSTS_IPC2581_CHECK_ELEMENTCOUNTS_H

#include <cstddef>
#include <map>
#include <string>

#include <ipc2581/ipc2581.h>

namespace ipc2581::host {

// Numbers by the names of elements.
using ElementCounts = std::map<std::string, std::size_t, std::less<>>;

struct XmlCounts {
    ElementCounts elements;
    // Why the file is no well-formed XML, and the line up to which it was counted; empty and 0 if it is.
    std::string error;
    std::size_t errorLine = 0;
};

// The elements of a file, by a real XML parser.
XmlCounts CountXml(const std::string & path);

// The objects of the model under the names of the elements that make them. What is there once in every model is left
// out, and so are the parts of an object.
ElementCounts CountModel(const CIPC2581_Parser & root);

}  // namespace ipc2581::host

#endif
