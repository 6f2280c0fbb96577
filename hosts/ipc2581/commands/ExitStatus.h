#ifndef IPC2581_HOSTS_IPC2581_COMMANDS_EXITSTATUS_H
#define IPC2581_HOSTS_IPC2581_COMMANDS_EXITSTATUS_H

namespace ipc2581::host {

// With it a strict command tells of a loss.
constexpr int LostStatus = 3;

// Thrown to end the program with this status. Everything has been said already.
struct ExitStatus {
    int number;
};

}  // namespace ipc2581::host

#endif
