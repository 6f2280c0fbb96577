#include "ipc2581/base/Scan.h"

#if defined(__SSE2__)

namespace ipc2581::detail {

Token FindFarToken(const char * at, const char * end)
{
    const char * const start = SkipBlanks(at, end);
    return {start, FindBlank(start, end)};
}

}  // namespace ipc2581::detail

#endif
