// Files that are no plain files: what cannot be read is refused, what fails is told, a signal is no failure.
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <thread>

#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include "tests/small_hosts/Expect.h"

namespace {

void NoteSignal(int /*number*/) {}

// A container may have no device for terminals, or none that opens.
bool HasTerminals()
{
    const int far = posix_openpt(O_RDWR | O_NOCTTY);
    const char * const name = far == -1 || grantpt(far) != 0 || unlockpt(far) != 0 ? nullptr : ptsname(far);
    const int near = name == nullptr ? -1 : open(name, O_RDWR | O_NOCTTY);
    close(near);
    close(far);
    return near != -1;
}

// A terminal with somebody at its other end.
class Terminal {
public:
    Terminal() : m_far(posix_openpt(O_RDWR | O_NOCTTY))
    {
        Expect(m_far != -1 && grantpt(m_far) == 0 && unlockpt(m_far) == 0, "there is a terminal");
        const int near = open(ptsname(m_far), O_RDWR | O_NOCTTY);
        termios mode = {};
        tcgetattr(near, &mode);
        mode.c_lflag = ICANON;
        mode.c_oflag = 0;
        tcsetattr(near, TCSANOW, &mode);
        m_near = near;
    }
    Terminal(const Terminal &) = delete;
    Terminal & operator=(const Terminal &) = delete;
    ~Terminal()
    {
        close(m_near);
        close(m_far);
    }
    const char * Name() const { return ptsname(m_far); }
    void Type(const char * text) const
    {
        Expect(write(m_far, text, std::string_view(text).size()) > 0, "somebody types");
    }

private:
    int m_far;
    int m_near = -1;
};

void ExpectPipeIsRefused()
{
    const TempFile file;
    const std::string path = file.Path() + ".pipe";
    Expect(mkfifo(path.c_str(), 0600) == 0, "there is a pipe");
    CStdioFile pipe;
    Expect(pipe.Open(path.c_str(), CStdioFile::modeReadWrite, nullptr) == 0, "a pipe is not opened to be read");
    Expect(pipe.Open(path.c_str(), CStdioFile::modeRead, nullptr) == 0, "nor with nobody to write to it");
    // Writing to one stays possible while somebody reads from it.
    const int reader = open(path.c_str(), O_RDONLY | O_NONBLOCK);
    Expect(pipe.Open(path.c_str(), CStdioFile::modeCreate | CStdioFile::modeWrite, nullptr) != 0,
           "a pipe is written to");
    pipe.WriteString("line\n");
    pipe.Close();
    char bytes[8] = {};
    Expect(read(reader, bytes, sizeof(bytes)) == 5 && bytes[0] == 'l', "and what was written comes out of it");
    close(reader);
}

void ExpectDeviceIsWritten()
{
    int ends[2] = {};
    Expect(pipe(ends) == 0, "there is a pipe");
    const int before = dup(STDOUT_FILENO);
    dup2(ends[1], STDOUT_FILENO);
    CIPC2581_Parser root;
    CString path("/dev/stdout");
    const int result = CIPC2581_XmlLiteReader().WriteFilePath(path, root);
    dup2(before, STDOUT_FILENO);
    close(before);
    close(ends[1]);
    char bytes[4096] = {};
    const ssize_t count = read(ends[0], bytes, sizeof(bytes));
    close(ends[0]);
    Expect(result == 1 && std::string_view(bytes, static_cast<std::size_t>(count)).ends_with("</IPC-2581>\n"),
           "a document is written to a device");
}

void ExpectFailedSeekIsTold()
{
    const Terminal terminal;
    CStdioFile file;
    Expect(file.Open(terminal.Name(), CStdioFile::modeReadWrite, nullptr) != 0, "a terminal is opened");
    terminal.Type("one\ntwo\n\x04");
    CString line;
    Expect(file.ReadString(line) == 1 && line == "one", "and read");
    Expect(Throws<CFileException>([&] {
               file.WriteString("answer\n");
               file.Flush();
           }),
           "what was read ahead cannot be given back, and is not lost in silence");
    file.Close();
    Expect(file.Open(terminal.Name(), CStdioFile::modeReadWrite, nullptr) != 0, "a terminal is opened again");
    file.WriteString("answer\n");
    Expect(Throws<CFileException>([&] { file.ReadString(line); }), "nor from writing to reading");
}

void ExpectSignalIsNoFailure()
{
    struct sigaction action = {};
    action.sa_handler = &NoteSignal;
    sigaction(SIGUSR1, &action, nullptr);
    const Terminal terminal;
    CStdioFile file;
    file.Open(terminal.Name(), CStdioFile::modeReadWrite, nullptr);
    const pthread_t reader = pthread_self();
    std::atomic<bool> isDone = false;
    std::thread interrupter([&] {
        for (int i = 0; i < 50 && !isDone; ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
            pthread_kill(reader, SIGUSR1);
        }
        terminal.Type("late line\n\x04");
    });
    CString line;
    const int result = file.ReadString(line);
    isDone = true;
    interrupter.join();
    Expect(result == 1 && line == "late line", "a signal does not end a file");
}

void ExpectTurnsInAPlainFile()
{
    const TempFile board("one\ntwo\nthree\n");
    CStdioFile file;
    file.Open(board.Path().c_str(), CStdioFile::modeReadWrite, nullptr);
    CString line;
    file.ReadString(line);
    file.WriteString("TWO\n");
    file.ReadString(line);
    Expect(line == "three", "a plain file is read and written in turn");
    file.Close();
    Expect(board.Bytes() == "one\nTWO\nthree\n", "with its lines in place");
}

}  // namespace

int main()
{
    ExpectPipeIsRefused();
    ExpectDeviceIsWritten();
    ExpectTurnsInAPlainFile();
    if (!HasTerminals()) {
        std::puts("no terminal here");
        return Skipped;
    }
    ExpectFailedSeekIsTold();
    ExpectSignalIsNoFailure();
}
