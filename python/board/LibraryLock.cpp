#include "python/board/LibraryLock.h"

namespace ipc2581::python {

std::mutex & LibraryMutex()
{
    static std::mutex mutex;
    return mutex;
}

}  // namespace ipc2581::python
