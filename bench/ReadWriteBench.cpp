#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include <benchmark/benchmark.h>

#include <ipc2581/ipc2581.h>
#include <unistd.h>

#include "bench/Measure.h"
#include "bench/generator/GenerateBoard.h"

namespace {

namespace fs = std::filesystem;

class TempFolder {
public:
    TempFolder() : m_path(fs::temp_directory_path() / ("ipc2581_bench_" + std::to_string(getpid())))
    {
        fs::create_directory(m_path);
    }
    ~TempFolder()
    {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }
    TempFolder(const TempFolder &) = delete;
    TempFolder & operator=(const TempFolder &) = delete;

    std::string File(const std::string & name) const { return (m_path / name).string(); }

private:
    fs::path m_path;
};

const TempFolder & Folder()
{
    static const TempFolder folder;
    return folder;
}

// Stands for the file that the environment names, among the sizes of generated boards.
constexpr std::int64_t GivenBoard = 0;

const char * Given()
{
    return std::getenv("IPC2581_BENCH_BOARD");
}

void AddBoards(benchmark::internal::Benchmark * bench)
{
    bench->ArgName("MB")->Unit(benchmark::kMillisecond)->Arg(1)->Arg(10)->Arg(50);
    if (Given() != nullptr) {
        bench->Arg(GivenBoard);
    }
}

std::string Board(std::int64_t megabytes)
{
    if (megabytes == GivenBoard) {
        return Given();
    }
    std::string board = Folder().File(std::to_string(megabytes) + "MB.xml");
    if (!fs::exists(board)) {
        std::ofstream file(board, std::ios::binary);
        ipc2581::bench::GenerateBoard(static_cast<std::uint64_t>(megabytes) * 1000000, 1, file);
    }
    return board;
}

// The library opens what it reads for writing too.
bool CanOpen(benchmark::State & state, const std::string & board)
{
    if (std::fstream(board, std::ios::in | std::ios::out)) {
        return true;
    }
    state.SkipWithError("the board cannot be opened for reading and writing");
    return false;
}

void Count(benchmark::State & state, const std::string & file)
{
    const double megabytes = static_cast<double>(fs::file_size(file)) / 1e6;
    state.counters["MB/s"] =
        benchmark::Counter(megabytes * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
    state.counters["peak_MB"] = ipc2581::bench::PeakMegabytes();
}

void Read(benchmark::State & state)
{
    const std::string board = Board(state.range(0));
    if (!CanOpen(state, board)) {
        return;
    }
    CString path(board.c_str());
    ipc2581::bench::ResetPeak();
    while (state.KeepRunning()) {
        auto root = std::make_unique<CIPC2581_Parser>();
        auto reader = std::make_unique<CIPC2581_XmlLiteReader>();
        reader->OpenPath(path, *root);
        state.PauseTiming();
        reader.reset();
        root.reset();
        state.ResumeTiming();
    }
    Count(state, board);
}
BENCHMARK(Read)->Apply(AddBoards);

// The peak is that of the whole model and what writing adds to it.
void Write(benchmark::State & state)
{
    const std::string board = Board(state.range(0));
    if (!CanOpen(state, board)) {
        return;
    }
    CIPC2581_Parser root;
    CString path(board.c_str());
    CIPC2581_XmlLiteReader().OpenPath(path, root);
    const std::string written = Folder().File("written.xml");
    CString target(written.c_str());
    ipc2581::bench::ResetPeak();
    while (state.KeepRunning()) {
        CIPC2581_XmlLiteReader writer;
        if (writer.WriteFilePath(target, root) != 1) {
            state.SkipWithError("the board cannot be written");
            return;
        }
    }
    Count(state, written);
}
BENCHMARK(Write)->Apply(AddBoards);

}  // namespace

BENCHMARK_MAIN();
