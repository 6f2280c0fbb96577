#ifndef IPC2581_HOSTS_IPC2581_BOARD_MEMORYBOUND_H
#define IPC2581_HOSTS_IPC2581_BOARD_MEMORYBOUND_H

#include <cstdint>
#include <future>

namespace ipc2581::host {

// What the model of one board may take, in bytes: a third of what this process may have, since two boards may be
// compared. A file that was made to take all of it then ends with a message.
std::uint64_t MemoryForABoard();

// How to begin what reads a board while another one is read: at the same time, or one after the other where no thread
// is to be had, or the process has little memory, of which each thread sets some aside.
std::launch ReadingAtOnce();

// The same for what takes little memory.
std::launch WorkingAtOnce();

}  // namespace ipc2581::host

#endif
