#ifndef IPC2581_PYTHON_BOARD_LIBRARYLOCK_H
#define IPC2581_PYTHON_BOARD_LIBRARYLOCK_H

#include <mutex>

namespace ipc2581::python {

// For what the library tells the whole process: the messages of its reader, its writer and its report. Whoever waits
// for it must not have the global lock of the interpreter, since whoever has it may wait for that.
std::mutex & LibraryMutex();

}  // namespace ipc2581::python

#endif
