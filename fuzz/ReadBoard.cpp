// Takes any bytes for a board: reads them, writes what came of them, reads and writes that, and writes the report. It
// may end in one of the documented exceptions and in nothing else.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

#include <ipc2581/ipc2581.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

int BeSilent(const char *, unsigned, unsigned)
{
    return 0;
}

// A folder of this process, which goes with it.
class Folder {
public:
    Folder() : m_path(fs::temp_directory_path() / ("ipc2581-fuzz-" + std::to_string(getpid())))
    {
        fs::create_directories(m_path);
        AfxSetMessageBoxHandler(BeSilent);
    }
    Folder(const Folder &) = delete;
    Folder & operator=(const Folder &) = delete;
    ~Folder()
    {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }
    CString File(const char * name) const { return CString((m_path / name).c_str()); }

private:
    fs::path m_path;
};

// False if the file ends the reader with an exception; what was read before stays in the root, and is written.
bool Read(CString path, CIPC2581_Parser & root)
{
    CIPC2581_XmlLiteReader reader;
    try {
        reader.OpenPath(path, root);
        return true;
    }
    catch (const CInvalidArgException &) {
        return false;
    }
}

void Write(CString path, CIPC2581_Parser & root)
{
    CIPC2581_XmlLiteReader reader;
    reader.WriteFilePath(path, root);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size)
{
    static const Folder folder;
    const CString board = folder.File("board.cvg");
    const CString written = folder.File("written.cvg");
    std::ofstream(board.GetString(), std::ios::binary)
        .write(reinterpret_cast<const char *>(data), static_cast<std::streamsize>(size));
    CIPC2581_Parser root;
    Read(board, root);
    Write(written, root);
    CIPC2581_Parser again;
    // What the library writes has no line of blanks, but values may have brought in quotes and line ends.
    Read(written, again);
    Write(written, again);
    CString report = written;
    CIPC2581_DataPrint().DataPrint(report, root);
    return 0;
}
