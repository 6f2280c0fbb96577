#include "import/xml/AheadReader.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace ipc2581::detail {

AheadReader::AheadReader(ByteReader & source) : m_source(source)
{
    m_exchange.Add(BlockPtr(new Block));
    m_thread = std::thread([this, first = BlockPtr(new Block)]() mutable { Run(std::move(first)); });
}

AheadReader::~AheadReader()
{
    m_exchange.Leave();
    m_thread.join();
}

std::size_t AheadReader::Read(std::span<char> room)
{
    if (m_block == nullptr || m_block->place == m_block->size) {
        m_block = m_exchange.Take(std::move(m_block));
    }
    if (m_block == nullptr) {
        if (m_thrown != nullptr) {
            std::rethrow_exception(m_thrown);
        }
        return 0;
    }
    const std::size_t count = std::min(room.size(), m_block->size - m_block->place);
    std::memcpy(room.data(), m_block->bytes.data() + m_block->place, count);
    m_block->place += count;
    return count;
}

void AheadReader::Run(BlockPtr block)
{
    try {
        while (block != nullptr && Fill(*block)) {
            block = m_exchange.Give(std::move(block));
        }
    }
    catch (...) {
        m_thrown = std::current_exception();
    }
    m_exchange.GiveLast(nullptr);
}

bool AheadReader::Fill(Block & block)
{
    block.size = m_source.Read(block.bytes);
    block.place = 0;
    return block.size != 0;
}

}  // namespace ipc2581::detail
