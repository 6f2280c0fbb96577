#include "hosts/ipc2581/listings/NaturalOrder.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace ipc2581::tests {
namespace {

TEST(Natural, OrdersNumbersByTheirValue)
{
    const std::vector<std::string> ordered = {"",
                                              "1",
                                              "2",
                                              "10",
                                              "C1",
                                              "R",
                                              "R1",
                                              "R1.2",
                                              "R1.10",
                                              "R2",
                                              "R10",
                                              "R10",
                                              "R99999999999999999999",
                                              "R100000000000000000000",
                                              "r1"};
    std::vector<std::string> sorted(ordered.rbegin(), ordered.rend());
    std::sort(sorted.begin(), sorted.end(), host::NaturalLess);
    EXPECT_EQ(sorted, ordered);
}

TEST(Natural, ZerosInFrontDecideLast)
{
    EXPECT_TRUE(host::NaturalLess("R01", "R2"));
    EXPECT_TRUE(host::NaturalLess("R01A", "R1B"));
    EXPECT_TRUE(host::NaturalLess("R01", "R1"));
    EXPECT_FALSE(host::NaturalLess("R1", "R01"));
    EXPECT_FALSE(host::NaturalLess("R1", "R1"));
}

}  // namespace
}  // namespace ipc2581::tests
