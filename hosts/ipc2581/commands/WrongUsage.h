#ifndef IPC2581_HOSTS_IPC2581_COMMANDS_WRONGUSAGE_H
#define IPC2581_HOSTS_IPC2581_COMMANDS_WRONGUSAGE_H

#include <string>
#include <vector>

#include <CLI/CLI.hpp>

namespace ipc2581::host {

// What is wrong with the arguments, in one line, with what may have been meant.
std::string WrongUsageOf(const CLI::App & program, const CLI::ParseError & error,
                         const std::vector<std::string> & arguments);

// The one of the words that this is most like; empty if it is like none of them.
std::string NearestOf(const std::string & misspelt, const std::vector<std::string> & words);

}  // namespace ipc2581::host

#endif
