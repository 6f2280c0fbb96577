#include "ipc2581/logistics/BomItem.h"

#include <string>
#include <string_view>
#include <type_traits>

#include <gtest/gtest.h>

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/logistics/Bom.h"
#include "ipc2581/logistics/RefDes.h"
#include "tests/logistics/Boms.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

// The six texts of an item, in their order.
Texts FieldsOf(const CIPC2581_Bom_BomItem & item)
{
    return {Str(item.quantity),           Str(item.numberIO),    Str(item.category),
            Str(item.internalPartNumber), Str(item.description), Str(item.packageRef)};
}

// The item that ReadBomItem makes of its opening line and the lines behind it.
class ReadItem {
public:
    explicit ReadItem(std::string_view opening, std::string_view behind = "</BomItem>\n") : m_lines(behind)
    {
        Tokens tokens(opening);
        bom.ReadBomItem(tokens, m_lines.File());
    }
    const CIPC2581_Bom_BomItem & Item() { return *bom.m_arrBomItem.GetAt(0); }
    Texts Rest() { return m_lines.Rest(); }
    // The names of the reference designators, in brackets where they are not populated.
    Texts RefDes()
    {
        Texts names;
        for (std::int64_t i = 0; i < Item().m_arrRefDes.GetSize(); ++i) {
            const CIPC2581_Bom_BomItem_RefDes & refDes = *Item().m_arrRefDes.GetAt(i);
            names.push_back(refDes.populate ? Str(refDes.name) : "(" + Str(refDes.name) + ")");
        }
        return names;
    }

    CIPC2581_Bom bom;

private:
    Lines m_lines;
};

constexpr std::string_view Words[] = {"quantity",           "numberIO",    "category",
                                      "internalPartNumber", "description", "packageRef"};

TEST(BomItem, IsEmptyAtFirst)
{
    const CIPC2581_Bom_BomItem item;
    EXPECT_EQ(FieldsOf(item), (Texts{"", "", "", "", "", ""}));
    EXPECT_EQ(item.m_arrRefDes.GetSize(), 0);
}

TEST(BomItem, HoldsItsFieldsInOrder)
{
    const CIPC2581_Bom_BomItem item;
    const auto at = [](const auto & member) { return static_cast<const void *>(&member); };
    EXPECT_LT(at(item.quantity), at(item.numberIO));
    EXPECT_LT(at(item.numberIO), at(item.category));
    EXPECT_LT(at(item.category), at(item.internalPartNumber));
    EXPECT_LT(at(item.internalPartNumber), at(item.description));
    EXPECT_LT(at(item.description), at(item.packageRef));
    EXPECT_LT(at(item.packageRef), at(item.m_arrRefDes));
}

TEST(BomItem, HasAVirtualDestructorOnlyAndNoBase)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<CIPC2581_Bom_BomItem>);
    EXPECT_FALSE((std::is_base_of_v<CIPC2581_XmlDataAdd_Function, CIPC2581_Bom_BomItem>));
    EXPECT_EQ(Slot(&Behind<CIPC2581_Bom_BomItem>::Next), 2u);
}

TEST(BomItem, ItsArraysAddNothingToTheOwningArray)
{
    EXPECT_TRUE(
        (std::is_base_of_v<CExPtrArray<CIPC2581_Bom_BomItem *, CIPC2581_Bom_BomItem *>, CIPC2581_BomItemArray>));
    EXPECT_TRUE((std::is_base_of_v<CExPtrArray<CIPC2581_Bom_BomItem_RefDes *, CIPC2581_Bom_BomItem_RefDes *>,
                                   CIPC2581_BOMRefDesArray>));
    EXPECT_EQ(Slot(&Behind<CIPC2581_BomItemArray>::Next), 8u);
    EXPECT_EQ(Slot(&Behind<CIPC2581_BOMRefDesArray>::Next), 8u);
}

TEST(BomItem, ReadsItsSixAttributes)
{
    ReadItem read(R"(<BomItem quantity="2" numberIO="3" category="ELECTRICAL" internalPartNumber="P")"
                  R"( description="two words" packageRef="K">)");
    EXPECT_EQ(FieldsOf(read.Item()), (Texts{"2", "3", "ELECTRICAL", "P", "two words", "K"}));
    ReadItem backwards(R"(<BomItem packageRef="K" description="d" internalPartNumber="P" category="c")"
                       R"( numberIO="3" quantity="many">)");
    EXPECT_EQ(FieldsOf(backwards.Item()), (Texts{"many", "3", "c", "P", "d", "K"}));
}

TEST(BomItem, TestsForTheWordsWithoutTheEqualSign)
{
    for (std::size_t i = 0; i < std::size(Words); ++i) {
        ReadItem read(R"(<BomItem other=")" + std::string(Words[i]) + R"(" >)");
        Texts expected(6);
        expected[i] = Words[i];
        EXPECT_EQ(FieldsOf(read.Item()), expected) << Words[i];
    }
}

TEST(BomItem, ATokenWithTwoWordsGoesToTheEarlierRow)
{
    for (std::size_t earlier = 0; earlier < std::size(Words); ++earlier) {
        for (std::size_t later = earlier + 1; later < std::size(Words); ++later) {
            ReadItem read("<BomItem " + std::string(Words[later]) + R"(=")" + std::string(Words[earlier]) + R"(" >)");
            Texts expected(6);
            expected[earlier] = Words[earlier];
            EXPECT_EQ(FieldsOf(read.Item()), expected) << Words[later];
        }
    }
}

TEST(BomItem, ADescriptionThatSaysQuantityLandsThere)
{
    ReadItem read(R"(<BomItem description="quantity of one" packageRef="K">)");
    EXPECT_EQ(FieldsOf(read.Item()), (Texts{"quantity of one", "", "", "", "", "K"}));
}

TEST(BomItem, OtherAttributesAreNotKept)
{
    ReadItem read(R"(<BomItem OEMDesignNumberRef="o" Quantity="1" pinCount="2" quantity="7"/>)");
    EXPECT_EQ(FieldsOf(read.Item()), (Texts{"7", "", "", "", "", ""}));
}

TEST(BomItem, TheScanBeginsAtTheFirstToken)
{
    ReadItem read(R"(<BomItem_quantity="1" >)");
    EXPECT_EQ(read.Item().quantity, "1");
}

TEST(BomItem, ACutValueThrowsAndAddsNothing)
{
    Lines lines({"</BomItem>"});
    CIPC2581_Bom bom;
    Tokens tokens(R"(<BomItem quantity="1" description="open)");
    EXPECT_THROW(bom.ReadBomItem(tokens, lines.File()), CInvalidArgException);
    EXPECT_EQ(bom.m_arrBomItem.GetSize(), 0);
    EXPECT_EQ(lines.Rest(), Texts{"</BomItem>"});
}

TEST(BomItem, AnItemWithoutRefDesIsAdded)
{
    ReadItem read("<BomItem>", "</BomItem>\n<Behind/>\n");
    ASSERT_EQ(read.bom.m_arrBomItem.GetSize(), 1);
    EXPECT_EQ(read.Item().m_arrRefDes.GetSize(), 0);
    EXPECT_EQ(read.Rest(), Texts{"<Behind/>"});
}

TEST(BomItem, ReadsItsRefDesLines)
{
    ReadItem read("<BomItem>", Below(R"(
<RefDes name="R1" packageRef="K" populate="TRUE" layerRef="TOP"/>
<RefDes name="R 2" populate="FALSE">
</RefDes>
<RefDes populate="true" name="R3"/>
<RefDes name="R4"/>
<RefDes>
<RefDesX populate="xTRUEx" filename="R5" >
</BomItem>
)"));
    EXPECT_EQ(read.RefDes(), (Texts{"R1", "(R 2)", "(R3)", "R4", "", "R5"}));
}

TEST(BomItem, RefDesTestsCarryTheEqualSign)
{
    ReadItem read("<BomItem>", Below(R"(
<RefDes name ="R1" populate ="FALSE" kind="name" >
<RefDes populate=name="FALSE"/>
<RefDes_name="t" populate="FALSE" populate="TRUE" >
</BomItem>
)"));
    EXPECT_EQ(read.RefDes(), (Texts{"", "name=FALSE", "t"}));
}

TEST(BomItem, ASlashInTheFirstTokenIsNoRefDes)
{
    ReadItem read("<BomItem>", Below(R"(
<RefDes/>
</RefDes>
</RefDes name="R1">
<RefDes/x name="R2">
</BomItem>
)"));
    EXPECT_EQ(read.RefDes(), Texts{});
}

TEST(BomItem, AFirstTokenWithRefDesAndTheClosingWordEndsIt)
{
    ReadItem read("<BomItem>", "</BomItemRefDes>\n<Behind/>\n");
    EXPECT_EQ(read.RefDes(), Texts{});
    EXPECT_EQ(read.Rest(), Texts{"<Behind/>"});
}

TEST(BomItem, IgnoresOtherLines)
{
    ReadItem read("<BomItem>", Below(R"(

<Characteristics category="x" quantity="9">
</Bom>
<BomItem quantity="8">
<x name="RefDes"/>
<refdes name="a"/>
</BomItem>
)"));
    EXPECT_EQ(FieldsOf(read.Item()), (Texts{"", "", "", "", "", ""}));
    EXPECT_EQ(read.RefDes(), Texts{});
}

TEST(BomItem, ASelfClosingItemTakesTheLinesOfTheNext)
{
    BomDocument document;
    document.Open(Below(R"(
<Bom>
<BomItem quantity="1"/>
<BomItem quantity="2">
<RefDes name="R2"/>
</BomItem>
<BomItem quantity="3">
</BomItem>
</Bom>
)"));
    ASSERT_EQ(document.bom.m_arrBomItem.GetSize(), 2);
    EXPECT_EQ(document.bom.m_arrBomItem.GetAt(0)->quantity, "1");
    EXPECT_EQ(document.bom.m_arrBomItem.GetAt(0)->m_arrRefDes.GetSize(), 1);
    EXPECT_EQ(document.bom.m_arrBomItem.GetAt(1)->quantity, "3");
}

TEST(BomItem, ACutRefDesThrows)
{
    Lines lines({R"(<RefDes name="R1"/>)", R"(<RefDes name="open)", "</BomItem>"});
    CIPC2581_Bom bom;
    Tokens tokens("<BomItem>");
    EXPECT_THROW(bom.ReadBomItem(tokens, lines.File()), CInvalidArgException);
    EXPECT_EQ(bom.m_arrBomItem.GetSize(), 0);
}

TEST(BomItem, TheEndOfTheFileAddsNoItem)
{
    ReadItem read(R"(<BomItem quantity="1">)", Joined({R"(<RefDes name="R1"/>)"}));
    EXPECT_EQ(read.bom.m_arrBomItem.GetSize(), 0);
}

TEST(BomItemArray, DeletesItsItems)
{
    int deleted = 0;
    {
        CIPC2581_BomItemArray items;
        items.Add(new Counted<CIPC2581_Bom_BomItem>(deleted));
        items.Add(nullptr);
        items.Add(new Counted<CIPC2581_Bom_BomItem>(deleted));
    }
    EXPECT_EQ(deleted, 2);
}

}  // namespace
