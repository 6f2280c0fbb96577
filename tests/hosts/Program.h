#ifndef IPC2581_TESTS_HOSTS_PROGRAM_H
#define IPC2581_TESTS_HOSTS_PROGRAM_H

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <grp.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/support/Files.h"

namespace ipc2581::tests {

// What a program left: its exit status and all that it wrote.
struct Result {
    int status = 0;
    std::string out;
    std::string err;
    bool operator==(const Result &) const = default;
};

inline std::ostream & operator<<(std::ostream & stream, const Result & result)
{
    return stream << "status " << result.status << "\n--- standard output\n"
                  << result.out << "--- standard error\n"
                  << result.err << "---";
}

// How a program is run.
struct Setting {
    std::string program = IPC2581_HOST_PROGRAM;
    std::string folder = {};           // to run in; empty is that of the tests
    std::string temporaryFolder = {};  // empty is the system's
    std::string input = {};            // opened as the standard input; empty is that of the tests
    std::string output = {};           // opened as the standard output; empty keeps what is written
    rlim_t fileLimit = RLIM_INFINITY;  // no file may grow beyond
    rlim_t memoryLimit = RLIM_INFINITY;
    bool isUnprivileged = false;  // as a user to whom permissions apply
    bool isOnTerminal = false;    // the error stream is one
    std::string terminalType = "xterm";
    std::string noColor = {};
};

namespace detail {

inline void Become(const Setting & setting)
{
    if (!setting.temporaryFolder.empty()) {
        setenv("TMPDIR", setting.temporaryFolder.c_str(), 1);
    }
    setenv("TERM", setting.terminalType.c_str(), 1);
    setenv("NO_COLOR", setting.noColor.c_str(), 1);
    if (!setting.folder.empty() && chdir(setting.folder.c_str()) != 0) {
        _exit(126);
    }
    constexpr unsigned nobody = 65534;
    if (setting.isUnprivileged && geteuid() == 0 &&
        (setgroups(0, nullptr) != 0 || setgid(nobody) != 0 || setuid(nobody) != 0)) {
        _exit(126);
    }
    if (setting.fileLimit != RLIM_INFINITY) {
        const rlimit limit = {setting.fileLimit, setting.fileLimit};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    if (setting.memoryLimit != RLIM_INFINITY) {
        const rlimit limit = {setting.memoryLimit, setting.memoryLimit};
        setrlimit(RLIMIT_AS, &limit);
    }
}

inline std::string ReadAll(int descriptor)
{
    std::string text;
    std::array<char, 4096> block;
    ssize_t count = 0;
    while ((count = read(descriptor, block.data(), block.size())) > 0) {
        text.append(block.data(), static_cast<std::size_t>(count));
    }
    return text;
}

}  // namespace detail

// Why no program can be run on a terminal here, as in a container without /dev/ptmx; empty where it can.
inline std::string WhyNoTerminal()
{
    const auto why = [](const std::string & device) { return device + ": " + std::strerror(errno); };
    const int far = posix_openpt(O_RDWR | O_NOCTTY);
    if (far == -1) {
        return why("no terminal");
    }
    std::string missing;
    if (grantpt(far) != 0 || unlockpt(far) != 0) {
        missing = why("no terminal for this user");
    }
    else {
        const char * const name = ptsname(far);
        const int near = name == nullptr ? -1 : open(name, O_RDWR | O_NOCTTY);
        if (near == -1) {
            missing = why(name == nullptr ? "terminal without a name" : name);
        }
        else {
            close(near);
        }
    }
    close(far);
    return missing;
}

// Runs a program to its end. The status of one that a signal has ended is 128 and the signal's number.
inline Result RunProgram(const std::vector<std::string> & arguments, const Setting & setting = {})
{
    const TempFolder folder;
    const std::string out = setting.output.empty() ? folder.Save("out", "") : setting.output;
    const std::string err = folder.Save("err", "");
    const int terminal = setting.isOnTerminal ? posix_openpt(O_RDWR | O_NOCTTY) : -1;
    std::string terminalName;
    if (terminal != -1) {
        EXPECT_EQ(grantpt(terminal), 0);
        EXPECT_EQ(unlockpt(terminal), 0);
        terminalName = ptsname(terminal);
    }
    // Held open, so that what was written can be read behind the end of the program.
    const int ownEnd = terminal == -1 ? -1 : open(terminalName.c_str(), O_RDWR | O_NOCTTY);
    std::vector<char *> argv = {const_cast<char *>(setting.program.c_str())};
    for (const std::string & argument : arguments) {
        argv.push_back(const_cast<char *>(argument.c_str()));
    }
    argv.push_back(nullptr);

    const pid_t child = fork();
    if (child == 0) {
        if (!setting.input.empty()) {
            dup2(open(setting.input.c_str(), O_RDONLY), STDIN_FILENO);
        }
        dup2(open(out.c_str(), O_WRONLY), STDOUT_FILENO);
        dup2(terminal == -1 ? open(err.c_str(), O_WRONLY) : ownEnd, STDERR_FILENO);
        detail::Become(setting);
        execv(argv[0], argv.data());
        _exit(127);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    Result result;
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    result.out = setting.output.empty() ? Bytes(out) : "";
    if (terminal == -1) {
        result.err = Bytes(err);
    }
    else {
        fcntl(terminal, F_SETFL, O_NONBLOCK);
        result.err = detail::ReadAll(terminal);
        close(ownEnd);
        close(terminal);
    }
    return result;
}

// Runs commands of the shell that call the program by its name.
inline Result RunShell(const std::string & commands, const std::string & folder = "")
{
    const std::string programs = std::filesystem::path(IPC2581_HOST_PROGRAM).parent_path().string();
    return RunProgram({"-c", "export LC_ALL=C PATH=\"$1:$PATH\"\n" + commands, "bash", programs},
                      {.program = "/bin/bash", .folder = folder});
}

// What a command gives that could not do its work: nothing but one line on the error stream.
inline Result Failure(const std::string & line)
{
    return {1, "", "ipc2581: " + line + "\n"};
}

inline Result WrongUsage(const std::string & line)
{
    return {2, "", "ipc2581: " + line + " (see ipc2581 --help)\n"};
}

// The line on the error stream that tells what a listing of the board is known to lack.
inline std::string Warning(const std::string & board, const std::string & causes)
{
    return "ipc2581: " + board + ": warning: " + causes + "; see ipc2581 check " + board + "\n";
}

inline std::string ExampleBoard()
{
    return IPC2581_SOURCE_FOLDER "/examples/board.cvg";
}

// The text of a file in golden/, which is made of what the program gave if the environment asks for it.
inline std::string Golden(const std::string & name, const std::string & given)
{
    const std::string path = IPC2581_SOURCE_FOLDER "/tests/hosts/golden/" + name;
    if (std::getenv("IPC2581_UPDATE_GOLDEN") != nullptr) {
        std::ofstream(path, std::ios::binary) << given;
    }
    return Bytes(path);
}

// What a command gives of the example board in its own folder, where its name is the same on every machine.
inline Result OfExampleBoard(const std::string & command, std::vector<std::string> options = {})
{
    options.insert(options.begin(), {command, "board.cvg"});
    return RunProgram(options, {.folder = IPC2581_SOURCE_FOLDER "/examples"});
}

// A listing of the example board in each format, the first of which needs not be told.
inline void ExpectGoldenListings(const std::string & command, const std::vector<std::string> & options = {},
                                 const std::string & name = "")
{
    const auto listed = [&](const std::string & format) {
        std::vector<std::string> arguments = options;
        arguments.insert(arguments.end(), {"--format", format});
        return OfExampleBoard(command, arguments);
    };
    EXPECT_EQ(OfExampleBoard(command, options), listed("table"));
    for (const std::string format : {"table", "csv", "json", "jsonl"}) {
        const Result listing = listed(format);
        const std::string golden = (name.empty() ? command : name) + "." + (format == "table" ? "txt" : format);
        EXPECT_EQ(listing, (Result{0, Golden(golden, listing.out), ""})) << golden;
    }
}

// The names of all that lies in a folder.
inline std::set<std::string> Names(const std::string & folder)
{
    std::set<std::string> names;
    for (const auto & entry : std::filesystem::directory_iterator(folder)) {
        names.insert(entry.path().filename().string());
    }
    return names;
}

// A small board of three sections, with more lines inside its step.
inline std::string SmallBoard(std::string_view stepLines = "")
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<IPC-2581>\n"
           "<Content>\n"
           "<FunctionMode mode=\"ASSEMBLY\" level=\"1\"/>\n"
           "</Content>\n"
           "<Ecad name=\"small\">\n"
           "<CadData>\n"
           "<Step name=\"one\">\n" +
           std::string(stepLines) +
           "</Step>\n"
           "</CadData>\n"
           "</Ecad>\n"
           "</IPC-2581>\n";
}

}  // namespace ipc2581::tests

#endif
