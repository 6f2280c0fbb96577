#include "hosts/ipc2581/output/Output.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <streambuf>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

#include "hosts/ipc2581/files/Error.h"
#include "hosts/ipc2581/files/Pack.h"

namespace ipc2581::host {

// Unlike the buffers of the standard library it tells why a write has failed.
class Output::Buffer : public std::streambuf {
public:
    Buffer(std::string name, int descriptor) : m_name(std::move(name)), m_descriptor(descriptor), m_block(1U << 16)
    {
        setp(m_block.data(), m_block.data() + m_block.size());
        if (IsPackedName(m_name)) {
            m_packer = std::make_unique<Packer>(m_name, [this](const char * bytes, std::size_t count) {
                WriteAll({bytes, count});
            });
        }
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
        if (m_packer != nullptr) {
            m_packer->Finish();
        }
        if (close(std::exchange(m_descriptor, -1)) != 0) {
            Fail();
        }
    }

protected:
    int sync() override
    {
        const std::string_view bytes(pbase(), static_cast<std::size_t>(pptr() - pbase()));
        setp(m_block.data(), m_block.data() + m_block.size());
        if (m_packer != nullptr) {
            m_packer->Write(bytes);
        }
        else {
            WriteAll(bytes);
        }
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
    void WriteAll(std::string_view bytes) const
    {
        while (!bytes.empty()) {
            const ssize_t done = write(m_descriptor, bytes.data(), bytes.size());
            if (done >= 0) {
                bytes.remove_prefix(static_cast<std::size_t>(done));
            }
            else if (errno != EINTR) {
                Fail();
            }
        }
    }
    [[noreturn]] void Fail() const { throw Error(m_name, "cannot be written: " + SystemCause(errno)); }

    std::string m_name;
    int m_descriptor;
    std::vector<char> m_block;
    std::unique_ptr<Packer> m_packer;
};

bool IsStandardInput(const std::string & path)
{
    constexpr std::array<std::string_view, 4> names = {"-", "/dev/stdin", "/dev/fd/0", "/proc/self/fd/0"};
    return std::find(names.begin(), names.end(), path) != names.end();
}

bool IsStandardOutput(const std::string & path)
{
    constexpr std::array<std::string_view, 4> names = {"-", "/dev/stdout", "/dev/fd/1", "/proc/self/fd/1"};
    return std::find(names.begin(), names.end(), path) != names.end();
}

void RefuseInput(const std::string & output, std::initializer_list<std::string> inputs)
{
    for (const std::string & input : inputs) {
        std::error_code ignored;
        const std::string file = IsStandardInput(input) ? "/dev/stdin" : input;
        if (!IsStandardOutput(output) && std::filesystem::is_regular_file(file, ignored) &&
            std::filesystem::equivalent(output, file, ignored)) {
            throw Error(output, "is the board itself, which is never overwritten");
        }
    }
}

Output::Output(const std::string & path, std::initializer_list<std::string> inputs, Existing existing)
    : m_stream(nullptr)
{
    if (path.empty() || IsStandardOutput(path)) {
        m_buffer = std::make_unique<Buffer>("standard output", STDOUT_FILENO);
    }
    else {
        RefuseInput(path, inputs);
        m_file.emplace(path, existing);
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
