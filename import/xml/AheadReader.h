#ifndef IPC2581_IMPORT_XML_AHEADREADER_H
#define IPC2581_IMPORT_XML_AHEADREADER_H

#include <array>
#include <cstddef>
#include <exception>
#include <memory>
#include <span>
#include <thread>

#include "import/xml/ByteSource.h"
#include "import/xml/Exchange.h"

namespace ipc2581::detail {

// Reads another one in a thread of its own, a block ahead. What that throws comes out behind the bytes in front of it.
class AheadReader final : public ByteReader {
public:
    // Throws std::system_error if no thread can be had.
    explicit AheadReader(ByteReader & source);
    // Waits until the thread has read what it has in hand.
    ~AheadReader() override;

    std::size_t Read(std::span<char> room) override;

private:
    // To hand one over costs as much as to read a few dozen kilobytes.
    struct Block {
        std::array<char, std::size_t(1) << 18> bytes;
        std::size_t size = 0;
        std::size_t place = 0;
    };
    using BlockPtr = std::unique_ptr<Block>;

    void Run(BlockPtr block);
    // False at the end.
    bool Fill(Block & block);

    ByteReader & m_source;
    Exchange<Block> m_exchange;
    std::exception_ptr m_thrown;
    BlockPtr m_block;
    std::thread m_thread;
};

}  // namespace ipc2581::detail

#endif
