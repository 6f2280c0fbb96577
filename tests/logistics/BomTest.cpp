#include "ipc2581/logistics/Bom.h"

#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/Afx.h"
#include "tests/logistics/Boms.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

TEST(Bom, IsEmptyAtFirst)
{
    const CIPC2581_Bom bom;
    EXPECT_EQ(bom.name, "");
    EXPECT_EQ(bom.assembly, "");
    EXPECT_EQ(bom.m_strHeaderText2, "");
    EXPECT_EQ(bom.m_strHeaderText3, "");
    EXPECT_EQ(bom.m_arrBomItem.GetSize(), 0);
}

TEST(Bom, HoldsItsFieldsInOrder)
{
    const CIPC2581_Bom bom;
    const auto at = [](const auto & member) { return static_cast<const void *>(&member); };
    EXPECT_LT(at(bom.name), at(bom.assembly));
    EXPECT_LT(at(bom.assembly), at(bom.m_strHeaderText2));
    EXPECT_LT(at(bom.m_strHeaderText2), at(bom.m_strHeaderText3));
    EXPECT_LT(at(bom.m_strHeaderText3), at(bom.m_arrBomItem));
}

TEST(Bom, HasAVirtualDestructorOnly)
{
    EXPECT_FALSE(std::is_copy_constructible_v<CIPC2581_Bom>);
    EXPECT_FALSE(std::is_copy_assignable_v<CIPC2581_Bom>);
    EXPECT_TRUE((std::is_base_of_v<CIPC2581_XmlDataAdd_Function, CIPC2581_Bom>));
    EXPECT_TRUE(std::has_virtual_destructor_v<CIPC2581_Bom>);
    EXPECT_EQ(Slot(&Behind<CIPC2581_Bom>::Next), 2u);
}

TEST(Bom, TakesItsNameFromItsLine)
{
    const std::vector<std::pair<std::string_view, std::string_view>> rows = {
        {R"(<Bom name="Rev A">)", "Rev A"},
        {R"(<Bom name="a" name="b">)", "b"},
        {R"(<Bom filename="f" >)", "f"},
        {R"(<Bom name ="a">)", ""},
        {"<Bom>", ""},
        {R"(<Bom Name="a">)", ""},
        {R"(<Bom name="a/b" x="1">)", "ab"},
        {R"(<Bom_name="t" >)", "t"},
    };
    for (const auto & [line, name] : rows) {
        BomDocument document;
        EXPECT_EQ(document.Open(std::string(line) + "\n</Bom>\n"), 1);
        EXPECT_EQ(document.bom.name, name) << line;
    }
}

TEST(Bom, EndsAtItsClosingLine)
{
    BomDocument document;
    document.Open(Below(R"(
<Bom name="b">
</xBom>
<HistoryRecord number="4"/>
)"));
    EXPECT_EQ(document.root.m_HistoryRecord.number, 0);
    BomDocument other;
    other.Open(Below(R"(
<Bom name="b">
</Bomx>
<HistoryRecord number="4"/>
)"));
    EXPECT_EQ(other.root.m_HistoryRecord.number, 4);
}

TEST(Bom, ReadsItsHeader)
{
    BomDocument document;
    document.Open(Below(R"(
<Bom>
<BomHeader assembly="A1" revision="r">
<StepRef name="s"/>
</BomHeader>
</Bom>
)"));
    EXPECT_EQ(document.bom.assembly, "A1");
    EXPECT_EQ(document.bom.m_arrBomItem.GetSize(), 0);
}

TEST(Bom, TheHeaderFillsTheAssemblyAlone)
{
    const std::vector<std::pair<std::string_view, std::string_view>> rows = {
        {R"(<BomHeader assembly="A1"/>)", "A1"},
        {R"(<BomHeader assembly="a" assembly="b" assembly="c"/>)", "c"},
        {R"(<BomHeader revision="1" affecting="FALSE"/>)", "before"},
        {R"(<BomHeader revision="assembly"/>)", "assembly"},
        {R"(<BomHeader subassembly="s"/>)", "s"},
        {R"(<BomHeader Assembly="s"/>)", "before"},
        {R"(<BomHeader assembly="two words" x="1">)", "two words"},
        {"</BomHeader>", "before"},
        {R"(<assembly="t" >)", "t"},
    };
    for (const auto & [line, assembly] : rows) {
        CIPC2581_Bom bom;
        bom.assembly = "before";
        Tokens tokens(line);
        bom.ReadBomHeader(tokens);
        EXPECT_EQ(bom.assembly, assembly) << line;
        EXPECT_EQ(bom.m_strHeaderText2, "") << line;
        EXPECT_EQ(bom.m_strHeaderText3, "") << line;
        EXPECT_EQ(bom.name, "") << line;
    }
}

TEST(Bom, ACutHeaderThrows)
{
    CIPC2581_Bom bom;
    Tokens tokens(R"(<BomHeader assembly="open)");
    EXPECT_THROW(bom.ReadBomHeader(tokens), CInvalidArgException);
    Tokens other(R"(<BomHeader revision="open)");
    bom.ReadBomHeader(other);
    EXPECT_EQ(bom.assembly, "");
}

TEST(Bom, AFirstTokenWithTwoWordsGoesToTheEarlierRow)
{
    BomDocument document;
    document.Open(Below(R"(
<Bom>
<BomItemBomHeader assembly="a" quantity="1">
</BomItem>
<X/>
</BomItem>
</Bom>
)"));
    EXPECT_EQ(document.bom.assembly, "a");
    ASSERT_EQ(document.bom.m_arrBomItem.GetSize(), 1);
    EXPECT_EQ(document.bom.m_arrBomItem.GetAt(0)->quantity, "");
}

TEST(Bom, AClosingHeaderLineIsAHeaderLine)
{
    BomDocument document;
    document.Open(Below(R"(
<Bom>
</BomHeader assembly="late">
</Bom>
)"));
    EXPECT_EQ(document.bom.assembly, "late");
}

TEST(Bom, AStrayClosingItemLineOpensAnItem)
{
    BomDocument document;
    document.Open(Below(R"(
<Bom>
</BomItem quantity="5">
<RefDes name="R1"/>
</Bom>
</BomItem>
</Bom>
)"));
    ASSERT_EQ(document.bom.m_arrBomItem.GetSize(), 1);
    EXPECT_EQ(document.bom.m_arrBomItem.GetAt(0)->quantity, "5");
    EXPECT_EQ(document.bom.m_arrBomItem.GetAt(0)->m_arrRefDes.GetSize(), 1);
}

TEST(Bom, IgnoresOtherLines)
{
    BomDocument document;
    document.Open(Below(R"(
<Bom>

<RefDes name="R1"/>
<Ecad name="e">
</Ecad>
<Bom name="x">
</Bom>
)"));
    EXPECT_EQ(document.bom.name, "");
    EXPECT_EQ(document.bom.m_arrBomItem.GetSize(), 0);
    EXPECT_EQ(document.root.m_Ecad.name, "");
}

TEST(Bom, KeepsItemsOfOnePartNumberApart)
{
    BomDocument document;
    document.Open(Below(R"(
<Bom>
<BomItem internalPartNumber="P" quantity="1">
</BomItem>
<BomItem internalPartNumber="P" quantity="2">
</BomItem>
</Bom>
)"));
    ASSERT_EQ(document.bom.m_arrBomItem.GetSize(), 2);
    EXPECT_EQ(document.bom.m_arrBomItem.GetAt(0)->quantity, "1");
    EXPECT_EQ(document.bom.m_arrBomItem.GetAt(1)->quantity, "2");
}

TEST(Bom, ASecondSectionAppendsAndOverwritesTheName)
{
    BomDocument document;
    document.Open(Below(R"(
<Bom name="a">
<BomHeader assembly="h"/>
<BomItem>
</BomItem>
</Bom>
<Bom name="b">
<BomItem>
</BomItem>
</Bom>
<Bom>
</Bom>
)"));
    EXPECT_EQ(document.bom.name, "b");
    EXPECT_EQ(document.bom.assembly, "h");
    EXPECT_EQ(document.bom.m_arrBomItem.GetSize(), 2);
}

TEST(Bom, TheEndOfTheFileEndsIt)
{
    BomDocument document;
    EXPECT_EQ(document.Open(Below(R"(
<Bom name="a">
<BomHeader assembly="h"/>
<BomItem>
</BomItem>
)")),
              1);
    EXPECT_EQ(document.bom.name, "a");
    EXPECT_EQ(document.bom.assembly, "h");
    EXPECT_EQ(document.bom.m_arrBomItem.GetSize(), 1);
}

TEST(Bom, AnItemIsLostAtTheEndOfTheFile)
{
    BomDocument document;
    EXPECT_EQ(document.Open(Below(R"(
<Bom>
<BomItem>
</BomItem>
<BomItem>
<RefDes name="R1"/>
)")),
              1);
    EXPECT_EQ(document.bom.m_arrBomItem.GetSize(), 1);
}

TEST(Bom, ALineOfBlanksThrowsAtEveryDepth)
{
    BomDocument document;
    EXPECT_THROW(document.Open(Joined({R"(<Bom name="b">)", "<BomItem>", "</BomItem>", "  ", "</Bom>"})),
                 CInvalidArgException);
    EXPECT_EQ(document.bom.name, "b");
    EXPECT_EQ(document.bom.m_arrBomItem.GetSize(), 1);
    BomDocument inside;
    EXPECT_THROW(inside.Open(Joined({"<Bom>", "<BomItem>", R"(<RefDes name="R1"/>)", "  ", "</BomItem>"})),
                 CInvalidArgException);
    EXPECT_EQ(inside.bom.m_arrBomItem.GetSize(), 0);
}

}  // namespace
