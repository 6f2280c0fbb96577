#include "ipc2581/logistics/LogisticHeader.h"

#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/document/Parser.h"
#include "ipc2581/document/XmlLiteReader.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"

namespace {

using ipc2581::tests::Slot;
using ipc2581::tests::Str;
using ipc2581::tests::TempFolder;

using Names = std::pair<std::string, std::string>;

class Behind : public CIPC2581_LogisticHeader {
public:
    virtual void Next() {}
};

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
    EXPECT_EQ(Slot(&Behind::Next), 2u);
}

TEST(LogisticHeader, KeepsTheLastRoleAndPerson)
{
    EXPECT_EQ(Read("<Role name=\"one\"/>\n<Person name=\"Ann\"/>\n<Role name=\"two\"/>\n<Person name=\"Bob\"/>\n"),
              (Names{"two", "Bob"}));
}

TEST(LogisticHeader, WithoutRoleAndPersonStaysEmpty)
{
    EXPECT_EQ(Read(""), (Names{"", ""}));
    EXPECT_EQ(Read("<Enterprise id=\"E1\" name=\"x\" code=\"c\"/>\n"), (Names{"", ""}));
}

TEST(LogisticHeader, ReadsWhatTheLinesSay)
{
    const std::vector<std::pair<std::string, Names>> rows = {
        {"<Person name=\"Ann Lee\" enterpriseRef=\"E1\"/>", {"", "Ann Lee"}},
        {"<Person name=\"Ann\" id=\"name\"/>", {"", "name"}},
        {"<Person name=\"Ann\" enterpriseRef=\"name\"/>", {"", "name"}},
        {"<Person nickname=\"A\"/>", {"", "A"}},
        {"<Person Name=\"A\"/>", {"", ""}},
        {"<Person x=\"1\">", {"", ""}},
        {"<Person>", {"", ""}},
        {"<Role id=\"Owner\"/>", {"", ""}},
        {"<Role name=\"Owner\" >", {"Owner", ""}},
        {"<Role roleFunction=\"name\"/>", {"name", ""}},
        {"<role name=\"a\"/>", {"", ""}},
        {"<xRolex name=\"a\"/>", {"a", ""}},
        {"</Role name=\"a\">", {"a", ""}},
        {"</xPersonx name=\"a\">", {"", "a"}},
        {"<Other role=\"Role\" name=\"Person\"/>", {"", ""}},
    };
    for (const auto & [line, names] : rows) {
        EXPECT_EQ(Read(line + "\n"), names) << line;
    }
}

TEST(LogisticHeader, ARoleWithoutANameLeavesTheFormer)
{
    EXPECT_EQ(Read("<Role name=\"a\"/>\n<Role id=\"b\"/>\n</Role>\n<Person name=\"c\"/>\n<Person id=\"d\"/>\n"),
              (Names{"a", "c"}));
}

TEST(LogisticHeader, AFirstTokenWithTwoWordsGoesToTheEarlierRow)
{
    EXPECT_EQ(Read("<PersonRole name=\"a\"/>\n"), (Names{"a", ""}));
    EXPECT_EQ(Read("</LogisticHeaderRole name=\"a\">\n<Role name=\"b\"/>\n"), (Names{"b", ""}));
    EXPECT_EQ(Read("</LogisticHeaderPerson name=\"a\">\n<Person name=\"b\"/>\n"), (Names{"", "b"}));
}

TEST(LogisticHeader, TheScanBeginsAtTheFirstToken)
{
    EXPECT_EQ(Read("<Role_name=\"a\" >\n<Person_name=\"b\" >\n"), (Names{"a", "b"}));
}

TEST(LogisticHeader, TheOpeningLineIsNotLookedAt)
{
    Document document;
    document.Open("<LogisticHeaderRole name=\"a\">\n</LogisticHeader>\n");
    EXPECT_EQ(document.root.m_LogisticHeader.m_strRoleName, "");
}

TEST(LogisticHeader, EndsAtItsClosingLine)
{
    Document document;
    document.Open("<LogisticHeader>\n<x/LogisticHeaderx>\n<Role name=\"late\"/>\n<Bom name=\"b\">\n");
    EXPECT_EQ(document.root.m_LogisticHeader.m_strRoleName, "");
    EXPECT_EQ(document.root.m_Bom.name, "b");
}

TEST(LogisticHeader, IgnoresOtherLines)
{
    EXPECT_EQ(Read("\n<Bom name=\"b\">\n</Bom>\n<LogisticHeader>\ntext\n<Role name=\"r\"/>\n"), (Names{"r", ""}));
}

TEST(LogisticHeader, ALineOfBlanksThrows)
{
    Document document;
    EXPECT_THROW(document.Open("<LogisticHeader>\n<Role name=\"r\"/>\n  \n</LogisticHeader>\n"), CInvalidArgException);
    EXPECT_EQ(document.root.m_LogisticHeader.m_strRoleName, "r");
}

TEST(LogisticHeader, AValueThatIsCutOffThrowsIfItsTokenHoldsTheWord)
{
    Document document;
    EXPECT_THROW(document.Open("<LogisticHeader>\n<Person name=\"Ann\n"), CInvalidArgException);
    EXPECT_EQ(Read("<Person name=\"Ann\" id=\"open\n"), (Names{"", "Ann"}));
}

TEST(LogisticHeader, TheEndOfTheFileEndsIt)
{
    Document document;
    EXPECT_EQ(document.Open("<LogisticHeader>\n<Role name=\"r\"/>\n<Person name=\"p\"/>"), 1);
    EXPECT_EQ(document.root.m_LogisticHeader.m_strRoleName, "r");
    EXPECT_EQ(document.root.m_LogisticHeader.m_strPersonName, "p");
}

TEST(LogisticHeader, ASecondHeaderOverwritesWhatItNames)
{
    Document document;
    document.Open("<LogisticHeader>\n<Role name=\"r\"/>\n<Person name=\"p\"/>\n</LogisticHeader>\n"
                  "<LogisticHeader>\n<Person name=\"q\"/>\n</LogisticHeader>\n");
    EXPECT_EQ(document.root.m_LogisticHeader.m_strRoleName, "r");
    EXPECT_EQ(document.root.m_LogisticHeader.m_strPersonName, "q");
}

}  // namespace
