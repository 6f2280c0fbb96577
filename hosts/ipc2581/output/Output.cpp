#include "hosts/ipc2581/output/Output.h"

#include <cerrno>
#include <filesystem>
#include <streambuf>
#include <system_error>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

#include "hosts/ipc2581/files/Error.h"

namespace ipc2581::host {

// Unlike the buffers of the standard library it tells why a write has failed.
class Output::Buffer : public std::streambuf {
public:
    Buffer(std::string name, int descriptor) : m_name(std::move(name)), m_descriptor(descriptor), m_block(1U << 16)
    {
        setp(m_block.data(), m_block.data() + m_block.size());
    }
    Buffer(const Buffer &) = delete;
    Buffer & operator=(const Buffer &) = delete;
    ~Buffer() override
    {
        if (m_descriptor > STDERR_FILENO) {
            close(m_descriptor);
        }
    }

    void Close()
    {
        sync();
        if (close(std::exchange(m_descriptor, -1)) != 0) {
            Fail();
        }
    }

protected:
    int sync() override
    {
        const char * from = pbase();
        while (from != pptr()) {
            const ssize_t done = write(m_descriptor, from, static_cast<std::size_t>(pptr() - from));
            if (done >= 0) {
                from += done;
            }
            else if (errno != EINTR) {
                setp(m_block.data(), m_block.data() + m_block.size());
                Fail();
            }
        }
        setp(m_block.data(), m_block.data() + m_block.size());
        return 0;
    }

    int_type overflow(int_type ch) override
    {
        sync();
        if (!traits_type::eq_int_type(ch, traits_type::eof())) {
            *pptr() = traits_type::to_char_type(ch);
            pbump(1);
        }
        return traits_type::not_eof(ch);
    }

private:
    [[noreturn]] void Fail() const { throw Error(m_name, "cannot be written: " + SystemCause(errno)); }

    std::string m_name;
    int m_descriptor;
    std::vector<char> m_block;
};

void RefuseInput(const std::string & output, std::initializer_list<std::string> inputs)
{
    for (const std::string & input : inputs) {
        std::error_code ignored;
        if (std::filesystem::equivalent(output, input, ignored)) {
            throw Error(output, "is the board itself, which is never overwritten");
        }
    }
}

Output::Output(const std::string & path, std::initializer_list<std::string> inputs) : m_stream(nullptr)
{
    if (path.empty()) {
        m_buffer = std::make_unique<Buffer>("standard output", STDOUT_FILENO);
    }
    else {
        RefuseInput(path, inputs);
        m_file.emplace(path);
        const int descriptor = open(m_file->WritePath().c_str(), O_WRONLY | O_CLOEXEC);
        if (descriptor == -1) {
            throw Error(path, SystemCause(errno));
        }
        m_buffer = std::make_unique<Buffer>(path, descriptor);
    }
    m_stream.rdbuf(m_buffer.get());
    // So that what the buffer throws passes through the stream.
    m_stream.exceptions(std::ios::badbit);
}

Output::~Output() = default;

void Output::Finish()
{
    m_buffer->Close();
    if (m_file) {
        m_file->Commit();
    }
}

}  // namespace ipc2581::host
