#include "hosts/ipc2581/output/SignalRemoval.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>
#include <vector>

#include <unistd.h>

namespace ipc2581::host {
namespace {

constexpr std::array<int, 3> EndingSignals = {SIGHUP, SIGINT, SIGTERM};

// Changed only while the signals are blocked, so that their handler finds it whole.
std::vector<std::string> g_listed;

extern "C" void RemoveAndEnd(int signal)
{
    // A folder comes before the files in it.
    for (auto listed = g_listed.rbegin(); listed != g_listed.rend(); ++listed) {
        if (unlink(listed->c_str()) != 0) {
            static_cast<void>(rmdir(listed->c_str()));
        }
    }
    // The handler is gone by now, so that the program ends as the signal ends any other.
    static_cast<void>(raise(signal));
}

}  // namespace

void RemoveListedOnSignals()
{
    struct sigaction ending = {};
    ending.sa_handler = &RemoveAndEnd;
    ending.sa_flags = static_cast<int>(SA_RESETHAND);
    for (const int signal : EndingSignals) {
        sigaddset(&ending.sa_mask, signal);
    }
    for (const int signal : EndingSignals) {
        struct sigaction before = {};
        sigaction(signal, nullptr, &before);
        // What the caller ignores, as nohup does, stays ignored.
        if (before.sa_handler != SIG_IGN) {
            sigaction(signal, &ending, nullptr);
        }
    }
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
}

SignalsBlocked::SignalsBlocked()
{
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : EndingSignals) {
        sigaddset(&signals, signal);
    }
    sigprocmask(SIG_BLOCK, &signals, &m_before);
}

SignalsBlocked::~SignalsBlocked()
{
    sigprocmask(SIG_SETMASK, &m_before, nullptr);
}

void ListForRemoval(const std::string & path)
{
    g_listed.push_back(path);
}

void KeepFromRemoval(const std::string & path)
{
    const auto listed = std::find(g_listed.begin(), g_listed.end(), path);
    if (listed != g_listed.end()) {
        g_listed.erase(listed);
    }
}

void RemoveListed(const std::string & path)
{
    const SignalsBlocked blocked;
    KeepFromRemoval(path);
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
}

}  // namespace ipc2581::host
