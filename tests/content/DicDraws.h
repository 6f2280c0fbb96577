#ifndef IPC2581_TESTS_CONTENT_DICDRAWS_H
#define IPC2581_TESTS_CONTENT_DICDRAWS_H

#include <string>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/content/DicDraw.h"
#include "tests/support/Files.h"
#include "tests/support/Text.h"

namespace ipc2581::tests {

// Sets through the accessor what the field then holds, and gets what the field holds.
template <typename T, typename Owner, typename Type, typename Get, typename Set>
void ExpectAccessors(Type Owner::*field, Get get, Set set)
{
    T shape;
    (shape.*set)(3);
    EXPECT_EQ(shape.*field, 3);
    shape.*field = 4;
    EXPECT_EQ((shape.*get)(), 4);
}

// The corner pieces that the shape writes for each set of flags.
template <typename T>
void ExpectCorners(const std::string & front)
{
    for (int flags = 0; flags < 16; ++flags) {
        T shape;
        shape.UpperRight = (flags & 1) != 0 ? 1 : 0;
        shape.UpperLeft = (flags & 2) != 0 ? 1 : 0;
        shape.LowerLeft = (flags & 4) != 0 ? -1 : 0;
        shape.LowerRight = (flags & 8) != 0 ? 2 : 0;
        const std::string line = front + ((flags & 1) != 0 ? R"(upperRight="TRUE")" : "") +
                                 ((flags & 2) != 0 ? R"(upperLeft="TRUE")" : "") +
                                 ((flags & 4) != 0 ? R"(lowerLeft="TRUE")" : "") +
                                 ((flags & 8) != 0 ? R"(lowerRight="TRUE")" : "") + " />\n";
        EXPECT_EQ(Exported(shape, 1), (Export{1, "      " + line})) << flags;
    }
}

template <typename T>
void ExpectCornersAreNotReadBack(const std::string & tag)
{
    T shape;
    shape.Import(Tokens("<" + tag + R"( upperRight="TURE" upperLeft="TURE"/>)"));
    EXPECT_EQ(shape.UpperRight, 1);
    EXPECT_EQ(shape.UpperLeft, 1);
    const std::string written = Written(shape);
    EXPECT_NE(written.find(Joined({R"( upperRight="TRUE"upperLeft="TRUE" />)"})), std::string::npos);
    T back;
    back.Import(Tokens(written));
    EXPECT_EQ(back.UpperRight, 0);
    EXPECT_EQ(back.UpperLeft, 0);
}

}  // namespace ipc2581::tests

#endif
