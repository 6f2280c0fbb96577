#ifndef IPC2581_TESTS_SMALL_HOSTS_EXPECT_H
#define IPC2581_TESTS_SMALL_HOSTS_EXPECT_H

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include <ipc2581/ipc2581.h>

// What a program ends with that cannot be run here.
inline constexpr int Skipped = 77;

// Ends the program if something is not so.
inline void Expect(bool isSo, const char * what)
{
    if (!isSo) {
        std::fprintf(stderr, "not so: %s\n", what);
        std::exit(1);
    }
}

// True if the call throws the exception.
template <typename Exception, typename Call>
bool Throws(Call call)
{
    try {
        call();
    }
    catch (const Exception &) {
        return true;
    }
    return false;
}

// A file of the program's own, gone with the object.
class TempFile {
public:
    explicit TempFile(std::string_view bytes = {})
        : m_folder(std::filesystem::temp_directory_path() / "ipc2581-host-XXXXXX")
    {
        Expect(mkdtemp(m_folder.data()) != nullptr, "there is a folder for the file");
        std::ofstream(Path(), std::ios::binary) << bytes;
    }
    TempFile(const TempFile &) = delete;
    TempFile & operator=(const TempFile &) = delete;
    ~TempFile()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }

    [[nodiscard]] std::string Path() const { return m_folder + "/board.cvg"; }
    [[nodiscard]] CString Name() const { return CString(Path().c_str()); }
    [[nodiscard]] std::string Bytes() const
    {
        std::ifstream in(Path(), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }

private:
    std::string m_folder;
};

// The example board, which holds every element that a reader makes an object for.
inline std::string ExampleBoard()
{
    std::ifstream in(IPC2581_SOURCE_FOLDER "/examples/board.cvg", std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    Expect(!bytes.empty(), "the example board is there");
    return bytes;
}

inline void Read(const TempFile & board, CIPC2581_Parser & root)
{
    CString path = board.Name();
    Expect(CIPC2581_XmlLiteReader().OpenPath(path, root) == 1, "the board is read");
}

inline std::string Written(CIPC2581_Parser & root)
{
    const TempFile file;
    CString path = file.Name();
    Expect(CIPC2581_XmlLiteReader().WriteFilePath(path, root) == 1, "the board is written");
    return file.Bytes();
}

#endif
