#ifndef IPC2581_PYTHON_BOARD_READ_H
#define IPC2581_PYTHON_BOARD_READ_H

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include <pybind11/pybind11.h>

#include "python/board/BoardStore.h"

namespace ipc2581::python {

struct ReadOptions {
    bool isExact = false;
    std::optional<std::string> step;
    pybind11::object progress;
    std::optional<std::uint64_t> memoryLimit;
};

// Reads a file, named by a path, or given as bytes. The global lock is released meanwhile.
std::shared_ptr<BoardStore> Read(const pybind11::object & source, const ReadOptions & options);

}  // namespace ipc2581::python

#endif
