#ifndef IPC2581_BENCH_GENERATOR_GENERATEBOARD_H
#define IPC2581_BENCH_GENERATOR_GENERATEBOARD_H

#include <cstdint>
#include <ostream>
#include <string>

namespace ipc2581::bench {

// Writes a board of about the given size in the line style of the library's own files, together with the sections
// that the library reads and does not write. The same size and seed give the same bytes on every machine. The least
// board takes some 50,000 bytes; a smaller size gives that board.
void GenerateBoard(std::uint64_t bytes, std::uint64_t seed, std::ostream & out);
std::string GenerateBoard(std::uint64_t bytes, std::uint64_t seed);

}  // namespace ipc2581::bench

#endif
