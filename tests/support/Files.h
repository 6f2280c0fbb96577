#ifndef IPC2581_TESTS_SUPPORT_FILES_H
#define IPC2581_TESTS_SUPPORT_FILES_H

#include <initializer_list>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/base/platform/CArray.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/base/platform/CString.h"

namespace ipc2581::tests {

// A folder of its own for one test, removed with all that it holds.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder &) = delete;
    TempFolder & operator=(const TempFolder &) = delete;

    [[nodiscard]] std::string Path(std::string_view name) const;
    // Writes the bytes to the file of that name and returns its path.
    std::string Save(std::string_view name, std::string_view bytes) const;

private:
    std::string m_path;
};

// The bytes of a file; a test failure and an empty text if it cannot be read.
std::string Bytes(const std::string & path);

// A device that is always full, where there is one.
inline constexpr const char * FullDevice = "/dev/full";
inline constexpr const char * NoFullDevice = "no device that is always full";
bool HasFullDevice();

// Whether this user may write to the file.
bool MayBeWritten(const std::string & path);

// The path of this program, which nobody can write while it runs, but for programs that an emulator runs.
std::string RunningProgram();

// The text of a file that the library has written: its bytes, with line feeds for the line ends of the system.
std::string WrittenText(const std::string & path);

// A file open for reading that holds these lines, each with a line feed behind it. What a reader left is
// got with Rest.
class Lines {
public:
    Lines(std::initializer_list<std::string_view> lines);
    explicit Lines(std::string_view bytes);

    CStdioFile & File() { return m_file; }
    operator CStdioFile &() { return m_file; }
    // The lines that nobody has read yet.
    std::vector<std::string> Rest();

private:
    void Open(std::string_view bytes);

    TempFolder m_folder;
    CStdioFile m_file;
};

// The token list of a line, as the readers of the model get it: cut on blanks where there is one, else whole.
class Tokens {
public:
    explicit Tokens(std::string_view line);
    operator CArray<CString, CString> &() { return m_list; }
    CArray<CString, CString> * operator->() { return &m_list; }
    CArray<CString, CString> & List() { return m_list; }

private:
    CArray<CString, CString> m_list;
};

// What Export gave, and the text that it wrote.
struct Export {
    int result;
    std::string text;
    bool operator==(const Export &) const = default;
    // For the messages of failed comparisons.
    friend void PrintTo(const Export & exported, std::ostream * out)
    {
        *out << exported.result << " with\n" << exported.text;
    }
};

namespace detail {
CStdioFile & OpenForWriting(CStdioFile & file, const std::string & path);
}  // namespace detail

// Exports an object of the model and gives the result with the written text.
template <typename Model>
Export Exported(Model & model, int level = 0)
{
    const TempFolder folder;
    const std::string path = folder.Path("written.xml");
    CStdioFile file;
    const int result = model.Export(detail::OpenForWriting(file, path), level);
    file.Close();
    return {result, WrittenText(path)};
}

// The text that Export wrote.
template <typename Model>
std::string Written(Model & model, int level = 0)
{
    return Exported(model, level).text;
}

// Catches the message boxes that are shown while it lives.
class MessageBoxes {
public:
    MessageBoxes();
    ~MessageBoxes();
    MessageBoxes(const MessageBoxes &) = delete;
    MessageBoxes & operator=(const MessageBoxes &) = delete;

    // The texts in the order in which they were shown.
    [[nodiscard]] static const std::vector<std::string> & Texts();

private:
    AfxMessageBoxHandler m_before;
};

// The text as a std::string, for comparisons and messages.
std::string Str(const CString & text);

}  // namespace ipc2581::tests

#endif
