#include "hosts/ipc2581/html/IntegerColumn.h"

namespace ipc2581::host {

void IntegerColumn::Add(std::int64_t number)
{
    const std::int64_t told = m_isDelta ? number - m_last : number;
    m_last = number;
    ++m_count;
    // The sign stands in the lowest bit, so that small numbers of either sign are short.
    std::uint64_t rest = (static_cast<std::uint64_t>(told) << 1U) ^ (told < 0 ? ~std::uint64_t(0) : 0U);
    constexpr std::uint64_t continued = 0x80;
    while (rest >= continued) {
        m_bytes += static_cast<char>(rest % continued + continued);
        rest /= continued;
    }
    m_bytes += static_cast<char>(rest);
}

}  // namespace ipc2581::host
