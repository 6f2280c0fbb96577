#ifndef IPC2581_IMPORT_XML_BYTESOURCE_H
#define IPC2581_IMPORT_XML_BYTESOURCE_H

#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <span>
#include <vector>

namespace ipc2581::detail {

// Gives the bytes of a document, once.
class ByteReader {
public:
    ByteReader() = default;
    ByteReader(const ByteReader &) = delete;
    ByteReader & operator=(const ByteReader &) = delete;
    virtual ~ByteReader() = default;

    // Gives at most as many bytes as there is room for, and 0 at the end. Throws std::system_error.
    virtual std::size_t Read(std::span<char> room) = 0;
};

// Where the bytes of a document come from.
class ByteSource : public ByteReader {
public:
    // Begins anew. Throws std::system_error.
    virtual void Rewind() = 0;
    // 0 if it is not known.
    [[nodiscard]] virtual std::size_t Size() const = 0;
    // Whether another thread may spend the time that reading takes: it neither waits for somebody else's bytes nor
    // stands in memory.
    [[nodiscard]] virtual bool IsWorthReadingAhead() const = 0;
};

class FileSource final : public ByteSource {
public:
    // Throws std::system_error if the file cannot be opened.
    explicit FileSource(const std::filesystem::path & path);

    std::size_t Read(std::span<char> room) override;
    void Rewind() override;
    [[nodiscard]] std::size_t Size() const override { return m_size; }
    [[nodiscard]] bool IsWorthReadingAhead() const override { return !m_isPipe; }

private:
    struct Close {
        void operator()(std::FILE * file) const { std::fclose(file); }
    };

    std::unique_ptr<char[]> m_buffer;  // that of the file, which is closed first
    std::unique_ptr<std::FILE, Close> m_file;
    std::size_t m_size = 0;
    // A pipe gives its bytes once, so what it has given is kept, and comes from here up to the place when read again.
    bool m_isPipe = false;
    std::vector<char> m_kept;
    std::size_t m_place = 0;
};

// Bytes in memory, which stay the caller's.
class MemorySource final : public ByteSource {
public:
    explicit MemorySource(std::span<const std::byte> bytes) : m_bytes(bytes), m_left(bytes) {}

    std::size_t Read(std::span<char> room) override;
    void Rewind() override { m_left = m_bytes; }
    [[nodiscard]] std::size_t Size() const override { return m_bytes.size(); }
    [[nodiscard]] bool IsWorthReadingAhead() const override { return false; }

private:
    std::span<const std::byte> m_bytes;
    std::span<const std::byte> m_left;
};

}  // namespace ipc2581::detail

#endif
