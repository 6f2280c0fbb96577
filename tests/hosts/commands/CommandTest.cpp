#include "hosts/ipc2581/commands/Command.h"

#include <iostream>
#include <new>
#include <sstream>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

using namespace ipc2581::host;

namespace ipc2581::tests {
namespace {

std::string Told(const std::exception & failure)
{
    const std::ostringstream told;
    std::streambuf * const before = std::cerr.rdbuf(told.rdbuf());
    TellFailure(failure);
    std::cerr.rdbuf(before);
    return told.str();
}

TEST(Command, TellsOfAFailureInOneLine)
{
    EXPECT_EQ(Told(std::runtime_error("board.cvg: is damaged")), "ipc2581: board.cvg: is damaged\n");
    EXPECT_EQ(Told(std::bad_alloc()), "ipc2581: out of memory\n");
}

}  // namespace
}  // namespace ipc2581::tests
