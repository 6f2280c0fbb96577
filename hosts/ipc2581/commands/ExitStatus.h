#ifndef IPC2581_HOSTS_IPC2581_COMMANDS_EXITSTATUS_H
#define IPC2581_HOSTS_IPC2581_COMMANDS_EXITSTATUS_H

namespace ipc2581::host {

// Thrown to end the program with this status. All that is to be said was said.
struct ExitStatus {
    int number;
};

}  // namespace ipc2581::host

#endif
