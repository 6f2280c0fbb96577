#include "tests/support/Files.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"

namespace ipc2581::tests {
namespace {

namespace fs = std::filesystem;

std::string MakeFolder()
{
    std::random_device random;
    const fs::path folder = fs::temp_directory_path() / ("ipc2581-test-" + std::to_string(random()));
    std::error_code error;
    if (!fs::create_directory(folder, error)) {
        ADD_FAILURE() << "no folder " << folder;
    }
    return folder.string();
}

// From UTF-8, which the tests and the library have their paths in on every system.
fs::path SystemPath(std::string_view path)
{
    return {std::u8string(path.begin(), path.end())};
}

std::vector<std::string> g_messages;

int CatchMessage(const char * text, unsigned /*type*/, unsigned /*help*/)
{
    g_messages.emplace_back(text);
    return 1;
}

}  // namespace

TempFolder::TempFolder() : m_path(MakeFolder()) {}

TempFolder::~TempFolder()
{
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
}

std::string TempFolder::Path(std::string_view name) const
{
    const std::u8string path = (SystemPath(m_path) / SystemPath(name)).u8string();
    return {path.begin(), path.end()};
}

std::string TempFolder::Save(std::string_view name, std::string_view bytes) const
{
    std::string path = Path(name);
    std::ofstream out(SystemPath(path), std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    EXPECT_TRUE(out.good()) << path;
    return path;
}

std::string Bytes(const std::string & path)
{
    std::ifstream in(SystemPath(path), std::ios::binary);
    EXPECT_TRUE(in.good()) << path;
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

bool HasFullDevice()
{
    std::ofstream device(FullDevice, std::ios::in);
    return device.is_open() && !(device << std::flush << "text" << std::flush);
}

bool MayBeWritten(const std::string & path)
{
    return std::fstream(SystemPath(path), std::ios::in | std::ios::out).is_open();
}

std::string RunningProgram()
{
#if defined(_WIN32)
    return fs::path(_wpgmptr).string();
#else
    return "/proc/self/exe";
#endif
}

std::string WrittenText(const std::string & path)
{
    std::string text = Bytes(path);
#if defined(_WIN32)
    for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos; ++at) {
        text.erase(at, 1);
    }
#endif
    return text;
}

Lines::Lines(std::initializer_list<std::string_view> lines)
{
    std::string bytes;
    for (const std::string_view line : lines) {
        bytes.append(line).append("\n");
    }
    Open(bytes);
}

Lines::Lines(std::string_view bytes)
{
    Open(bytes);
}

void Lines::Open(std::string_view bytes)
{
    const std::string path = m_folder.Save("lines.xml", bytes);
    EXPECT_NE(m_file.Open(path.c_str(), CStdioFile::modeReadWrite, nullptr), 0);
}

std::vector<std::string> Lines::Rest()
{
    std::vector<std::string> rest;
    CString line;
    while (m_file.ReadString(line) != 0) {
        rest.push_back(Str(line));
    }
    return rest;
}

Tokens::Tokens(std::string_view line)
{
    CString text(line);
    if (line.find(' ') != std::string_view::npos) {
        CIPC2581_XmlDataAdd_Function().Tokenize(text, &m_list);
    }
    else {
        m_list.Add(text);
    }
}

CStdioFile & detail::OpenForWriting(CStdioFile & file, const std::string & path)
{
    EXPECT_NE(file.Open(path.c_str(), CStdioFile::modeCreate | CStdioFile::modeWrite, nullptr), 0);
    return file;
}

MessageBoxes::MessageBoxes() : m_before(AfxSetMessageBoxHandler(&CatchMessage))
{
    g_messages.clear();
}

MessageBoxes::~MessageBoxes()
{
    AfxSetMessageBoxHandler(m_before);
}

const std::vector<std::string> & MessageBoxes::Texts()
{
    return g_messages;
}

std::string Str(const CString & text)
{
    return std::string(static_cast<std::string_view>(text));
}

}  // namespace ipc2581::tests
