#ifndef IPC2581_HOSTS_IPC2581_FILES_PACK_H
#define IPC2581_HOSTS_IPC2581_FILES_PACK_H

#include <cstddef>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

struct archive;

namespace ipc2581::host {

// Whether the ending of a file's name asks for packing: .gz, .zst, .xz or .bz2. Throws Error for the ending of an
// archive, which is not written.
bool IsPackedName(const std::string & name);

// Packs what it is given, as the ending of a name asks, and hands it on.
class Packer {
public:
    using Sink = std::function<void(const char * bytes, std::size_t count)>;

    // What the sink throws comes out of Write and Finish.
    Packer(std::string name, Sink sink);
    Packer(const Packer &) = delete;
    Packer & operator=(const Packer &) = delete;
    ~Packer();

    // Throws Error, which gives the name.
    void Write(std::string_view bytes);
    // Hands on what is left. Without it the packed data are not whole.
    void Finish();

private:
    static std::ptrdiff_t HandOn(archive * writer, void * packer, const void * bytes, std::size_t count);
    void Check(int status);

    std::string m_name;
    Sink m_sink;
    std::exception_ptr m_thrown;
    archive * m_writer;
};

}  // namespace ipc2581::host

#endif
