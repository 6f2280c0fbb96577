#ifndef IPC2581_TESTS_IMPORT_SUPPORT_BOARDS_H
#define IPC2581_TESTS_IMPORT_SUPPORT_BOARDS_H

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace ipc2581::tests {

// The files of the examples of the import, and of the real boards if they are there.
std::vector<std::filesystem::path> ExampleFiles();
std::vector<std::filesystem::path> BoardFiles();

// The bytes of a board that may be packed; empty if it cannot be unpacked.
std::string UnpackedBytes(const std::filesystem::path & path);

// The name of a file as that of a test.
std::string FileTestName(const testing::TestParamInfo<std::filesystem::path> & test);

}  // namespace ipc2581::tests

#endif
