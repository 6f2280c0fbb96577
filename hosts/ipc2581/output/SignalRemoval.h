#ifndef IPC2581_HOSTS_IPC2581_OUTPUT_SIGNALREMOVAL_H
#define IPC2581_HOSTS_IPC2581_OUTPUT_SIGNALREMOVAL_H

#include <csignal>
#include <string>

// Files and folders that have a name for a while, and must not outlive the program.
namespace ipc2581::host {

// Makes SIGINT, SIGTERM and SIGHUP remove what is listed before they end the program, and a file that outgrows its
// limit a failed write. Call it once, before anything else.
void RemoveListedOnSignals();

// Blocks these signals while it lives, so that nothing is there but not listed, or listed but gone.
class SignalsBlocked {
public:
    SignalsBlocked();
    SignalsBlocked(const SignalsBlocked &) = delete;
    SignalsBlocked & operator=(const SignalsBlocked &) = delete;
    ~SignalsBlocked();

private:
    sigset_t m_before{};
};

// Lists a file, or a folder before the files in it. The signals must be blocked.
void ListForRemoval(const std::string & path);
// Takes it off the list, if it is there. The signals must be blocked.
void KeepFromRemoval(const std::string & path);
// Removes it and takes it off the list.
void RemoveListed(const std::string & path);

}  // namespace ipc2581::host

#endif
