#include "tests/import/support/Boards.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <system_error>

#include "tests/support/Files.h"

namespace ipc2581::tests {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> FilesIn(const fs::path & folder)
{
    std::vector<fs::path> files;
    std::error_code isMissing;
    for (const fs::directory_entry & entry : fs::directory_iterator(folder, isMissing)) {
        const std::string name = entry.path().filename().string();
        if (name.ends_with(".xml") || name.ends_with(".xml.zst")) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace

std::vector<fs::path> ExampleFiles()
{
    return FilesIn(IPC2581_IMPORT_EXAMPLES);
}

std::vector<fs::path> BoardFiles()
{
    return FilesIn(IPC2581_BOARDS);
}

std::string UnpackedBytes(const fs::path & path)
{
    if (path.extension() == ".xml") {
        return Bytes(path.string());
    }
    const TempFolder folder;
    const std::string unpacked = folder.Path("board.xml");
    const bool isUnpacked = std::system(("zstd -dqo '" + unpacked + "' '" + path.string() + "'").c_str()) == 0;
    return isUnpacked ? Bytes(unpacked) : std::string();
}

std::string FileTestName(const testing::TestParamInfo<fs::path> & test)
{
    std::string name = test.param.filename().string();
    name.resize(name.find('.'));
    std::replace_if(
        name.begin(), name.end(), [](unsigned char own) { return std::isalnum(own) == 0; }, '_');
    return name;
}

}  // namespace ipc2581::tests
