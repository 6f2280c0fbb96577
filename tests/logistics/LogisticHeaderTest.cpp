#include "ipc2581/logistics/LogisticHeader.h"

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/document/Parser.h"
#include "ipc2581/document/XmlLiteReader.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

using Names = std::pair<std::string, std::string>;

class Document {
public:
    int Open(const std::string & bytes)
    {
        CString path(folder.Save("board.xml", bytes));
        return reader.OpenPath(path, root);
    }

    TempFolder folder;
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader reader;
};

// The role and the person that the lines of a header give.
Names Read(const std::string & lines)
{
    Document document;
    EXPECT_EQ(document.Open("<LogisticHeader>\n" + lines + "</LogisticHeader>\n"), 1);
    return {Str(document.root.m_LogisticHeader.m_strRoleName), Str(document.root.m_LogisticHeader.m_strPersonName)};
}

TEST(LogisticHeader, IsEmptyAtFirst)
{
    const CIPC2581_LogisticHeader header;
    EXPECT_EQ(header.m_strRoleName, "");
    EXPECT_EQ(header.m_strPersonName, "");
    EXPECT_LT(static_cast<const void *>(&header.m_strRoleName), static_cast<const void *>(&header.m_strPersonName));
}

TEST(LogisticHeader, HasAVirtualDestructorOnly)
{
    EXPECT_TRUE((std::is_base_of_v<CIPC2581_XmlDataAdd_Function, CIPC2581_LogisticHeader>));
    EXPECT_TRUE(std::has_virtual_destructor_v<CIPC2581_LogisticHeader>);
    EXPECT_EQ(Slot(&Behind<CIPC2581_LogisticHeader>::Next), 2u);
}

TEST(LogisticHeader, KeepsTheLastRoleAndPerson)
{
    EXPECT_EQ(Read(Below(R"(
<Role name="one"/>
<Person name="Ann"/>
<Role name="two"/>
<Person name="Bob"/>
)")),
              (Names{"two", "Bob"}));
}

TEST(LogisticHeader, WithoutRoleAndPersonStaysEmpty)
{
    EXPECT_EQ(Read(""), (Names{"", ""}));
    EXPECT_EQ(Read(Joined({R"(<Enterprise id="E1" name="x" code="c"/>)"})), (Names{"", ""}));
}

TEST(LogisticHeader, ReadsWhatTheLinesSay)
{
    const std::vector<std::pair<std::string, Names>> rows = {
        {R"(<Person name="Ann Lee" enterpriseRef="E1"/>)", {"", "Ann Lee"}},
        {R"(<Person name="Ann" id="name"/>)", {"", "name"}},
        {R"(<Person name="Ann" enterpriseRef="name"/>)", {"", "name"}},
        {R"(<Person nickname="A"/>)", {"", "A"}},
        {R"(<Person Name="A"/>)", {"", ""}},
        {R"(<Person x="1">)", {"", ""}},
        {"<Person>", {"", ""}},
        {R"(<Role id="Owner"/>)", {"", ""}},
        {R"(<Role name="Owner" >)", {"Owner", ""}},
        {R"(<Role roleFunction="name"/>)", {"name", ""}},
        {R"(<role name="a"/>)", {"", ""}},
        {R"(<xRolex name="a"/>)", {"a", ""}},
        {R"(</Role name="a">)", {"a", ""}},
        {R"(</xPersonx name="a">)", {"", "a"}},
        {R"(<Other role="Role" name="Person"/>)", {"", ""}},
    };
    for (const auto & [line, names] : rows) {
        EXPECT_EQ(Read(line + "\n"), names) << line;
    }
}

TEST(LogisticHeader, ARoleWithoutANameLeavesTheFormer)
{
    EXPECT_EQ(Read(Below(R"(
<Role name="a"/>
<Role id="b"/>
</Role>
<Person name="c"/>
<Person id="d"/>
)")),
              (Names{"a", "c"}));
}

TEST(LogisticHeader, AFirstTokenWithTwoWordsGoesToTheEarlierRow)
{
    EXPECT_EQ(Read(Joined({R"(<PersonRole name="a"/>)"})), (Names{"a", ""}));
    EXPECT_EQ(Read(Joined({R"(</LogisticHeaderRole name="a">)", R"(<Role name="b"/>)"})), (Names{"b", ""}));
    EXPECT_EQ(Read(Joined({R"(</LogisticHeaderPerson name="a">)", R"(<Person name="b"/>)"})), (Names{"", "b"}));
}

TEST(LogisticHeader, TheScanBeginsAtTheFirstToken)
{
    EXPECT_EQ(Read(Joined({R"(<Role_name="a" >)", R"(<Person_name="b" >)"})), (Names{"a", "b"}));
}

TEST(LogisticHeader, TheOpeningLineIsNotLookedAt)
{
    Document document;
    document.Open(Joined({R"(<LogisticHeaderRole name="a">)", "</LogisticHeader>"}));
    EXPECT_EQ(document.root.m_LogisticHeader.m_strRoleName, "");
}

TEST(LogisticHeader, EndsAtItsClosingLine)
{
    Document document;
    document.Open(Below(R"(
<LogisticHeader>
<x/LogisticHeaderx>
<Role name="late"/>
<Bom name="b">
)"));
    EXPECT_EQ(document.root.m_LogisticHeader.m_strRoleName, "");
    EXPECT_EQ(document.root.m_Bom.name, "b");
}

TEST(LogisticHeader, IgnoresOtherLines)
{
    EXPECT_EQ(Read(Below(R"(

<Bom name="b">
</Bom>
<LogisticHeader>
text
<Role name="r"/>
)")),
              (Names{"r", ""}));
}

TEST(LogisticHeader, ALineOfBlanksThrows)
{
    Document document;
    EXPECT_THROW(document.Open(Joined({"<LogisticHeader>", R"(<Role name="r"/>)", "  ", "</LogisticHeader>"})),
                 CInvalidArgException);
    EXPECT_EQ(document.root.m_LogisticHeader.m_strRoleName, "r");
}

TEST(LogisticHeader, AValueThatIsCutOffThrowsIfItsTokenHoldsTheWord)
{
    Document document;
    EXPECT_THROW(document.Open(Joined({"<LogisticHeader>", R"(<Person name="Ann)"})), CInvalidArgException);
    EXPECT_EQ(Read(Joined({R"(<Person name="Ann" id="open)"})), (Names{"", "Ann"}));
}

TEST(LogisticHeader, TheEndOfTheFileEndsIt)
{
    Document document;
    EXPECT_EQ(document.Open(Below(R"(
<LogisticHeader>
<Role name="r"/>
<Person name="p"/>)")),
              1);
    EXPECT_EQ(document.root.m_LogisticHeader.m_strRoleName, "r");
    EXPECT_EQ(document.root.m_LogisticHeader.m_strPersonName, "p");
}

TEST(LogisticHeader, ASecondHeaderOverwritesWhatItNames)
{
    Document document;
    document.Open(Below(R"(
<LogisticHeader>
<Role name="r"/>
<Person name="p"/>
</LogisticHeader>
<LogisticHeader>
<Person name="q"/>
</LogisticHeader>
)"));
    EXPECT_EQ(document.root.m_LogisticHeader.m_strRoleName, "r");
    EXPECT_EQ(document.root.m_LogisticHeader.m_strPersonName, "q");
}

}  // namespace
