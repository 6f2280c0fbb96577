#include "ipc2581/base/lines/Scan.h"

#if defined(__SSE2__)

namespace ipc2581::detail {

Token FindFarToken(const char * at, const char * end)
{
    const char * const start = SkipBlanks(at, end);
    return {start, FindBlank(start, end)};
}

std::pair<const char *, const char *> SpecialWalk::FirstAndFarThird(const char * at)
{
    const auto find = [this](const char * from) { return FindBit(from, m_end, &SpecialBits); };
    const char * const first = find(at);
    const char * const second = find(std::min(first + 1, m_end));
    const char * const third = find(std::min(second + 1, m_end));
    return third == m_end ? std::pair(at, at) : std::pair(first, third);
}

}  // namespace ipc2581::detail

#endif
