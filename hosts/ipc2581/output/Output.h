#ifndef IPC2581_HOSTS_IPC2581_OUTPUT_OUTPUT_H
#define IPC2581_HOSTS_IPC2581_OUTPUT_OUTPUT_H

#include <initializer_list>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

#include "hosts/ipc2581/output/FileReplacement.h"

namespace ipc2581::host {

// Whether the path is one of the standard input or output, such as "-".
bool IsStandardInput(const std::string & path);
bool IsStandardOutput(const std::string & path);

// Throws Error if the output is one of the inputs, under whatever name.
void RefuseInput(const std::string & output, std::initializer_list<std::string> inputs);

// Where a command writes: the standard output, or a file that takes its place only once all of it is written. The
// ending of its name says whether it is packed. Every failed write throws Error, also through the stream.
class Output {
public:
    // An empty path is the standard output.
    explicit Output(const std::string & path = "", std::initializer_list<std::string> inputs = {},
                    Existing existing = Existing::Replace);
    Output(const Output &) = delete;
    Output & operator=(const Output &) = delete;
    ~Output();

    std::ostream & Stream() { return m_stream; }
    // Without it a file is not written at all.
    void Finish();

private:
    class Buffer;

    std::optional<FileReplacement> m_file;
    std::unique_ptr<Buffer> m_buffer;
    std::ostream m_stream;
};

}  // namespace ipc2581::host

#endif
