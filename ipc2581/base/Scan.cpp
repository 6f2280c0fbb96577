#include "ipc2581/base/Scan.h"

#if defined(__SSE2__)

namespace ipc2581::detail {

Token FindFarToken(const char * at, const char * end)
{
    const char * const start = SkipBlanks(at, end);
    return {start, FindBlank(start, end)};
}

bool SpecialWalk::Refill()
{
    while (m_bits == 0 && m_end - m_step > StepSize) {
        m_step += StepSize;
        m_bits = SpecialBits(m_step);
    }
    return m_bits != 0;
}

}  // namespace ipc2581::detail

#endif
