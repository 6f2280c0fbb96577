#include "hosts/ipc2581/diff/Differences.h"

#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace ipc2581::tests {
namespace {

using host::Record;

std::string Compared(const std::vector<Record> & before, const std::vector<Record> & after)
{
    host::Differences differences;
    differences.Compare("thing", before, after);
    std::ostringstream text;
    differences.Rows().Print(text, host::Format::Csv, {.file = "b"});
    const std::string heading = "kind,name,change,property,before,after\n";
    EXPECT_TRUE(text.str().starts_with(heading));
    return text.str().substr(heading.size());
}

Record Full(double value, const std::string & hidden, std::vector<std::string> members)
{
    Record record("a");
    record.Add("value", value);
    record.AddHidden("hidden", hidden);
    record.AddMembers("members", members);
    record.AddHiddenMembers("hidden members", std::move(members));
    return record;
}

TEST(Differences, NothingDiffersFromItself)
{
    EXPECT_EQ(Compared({}, {}), "");
    EXPECT_EQ(Compared({Full(1, "x", {"2", "1"})}, {Full(1, "x", {"1", "2"})}), "");
}

TEST(Differences, EachKindOfPropertyIsTold)
{
    EXPECT_EQ(Compared({Full(1, "x", {"1", "2", "2"})}, {Full(1.5, "y", {"4", "2", "3"})}),
              "thing,a,changed,value,1,1.5\n"
              "thing,a,changed,hidden,,\n"
              "thing,a,changed,members,1 2,3 4\n"
              "thing,a,changed,hidden members,2,2\n");
}

TEST(Differences, RemovedStandBeforeAdded)
{
    EXPECT_EQ(Compared({Record("b"), Record("a")}, {Record("c"), Record("a"), Record("d")}), "thing,b,removed,,,\n"
                                                                                             "thing,c,added,,,\n"
                                                                                             "thing,d,added,,,\n");
}

TEST(Differences, OneNameManyTimesIsTakenInOrder)
{
    EXPECT_EQ(Compared({Full(1, "", {}), Full(2, "", {})}, {Full(1, "", {}), Full(3, "", {}), Full(4, "", {})}),
              "thing,a,changed,value,2,3\n"
              "thing,a,added,,,\n");
}

}  // namespace
}  // namespace ipc2581::tests
