// Takes any bytes for a file of another tool: imports them and writes the board. What is written is always a whole
// file, so that it can be imported again. An import may end in its own error, and in nothing else.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <span>
#include <string>

#include <import/ForWriting.h>
#include <import/Import.h>
#include <ipc2581/ipc2581.h>
#include <unistd.h>

namespace {

// A text of an attribute may have grown by its entities, and a file by its curves.
constexpr std::uint64_t MemoryLimit = std::uint64_t(1) << 28;

std::string WrittenPath()
{
    return (std::filesystem::temp_directory_path() / ("ipc2581-fuzz-import-" + std::to_string(getpid()))).string();
}

// Each fact of the report can be asked for.
void ReadReport(const ipc2581::ImportReport & report)
{
    std::size_t length = 0;
    for (std::size_t i = 0; i < report.LostCount(); ++i) {
        const ipc2581::LostFact fact = report.Lost(i);
        for (const auto & [name, value] : fact.attributes) {
            length += name.size() + value.size();
        }
    }
    if (length == SIZE_MAX) {
        std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t * data, std::size_t size)
{
    static const std::string written = WrittenPath();
    ipc2581::ImportOptions options;
    options.memoryLimit = MemoryLimit;
    try {
        const ipc2581::Imported imported = ipc2581::Import(std::as_bytes(std::span(data, size)), options);
        ReadReport(imported.report);
        ipc2581::PrepareForWriting(*imported.board);
        CString path(written.c_str());
        CIPC2581_XmlLiteReader().WriteFilePath(path, *imported.board);
    }
    catch (const ipc2581::ImportError &) {
        return 0;
    }
    try {
        ipc2581::Import(std::filesystem::path(written));
    }
    catch (const ipc2581::ImportError & error) {
        std::cerr << error.what() << "\n";
        std::abort();
    }
    std::filesystem::remove(written);
    return 0;
}
