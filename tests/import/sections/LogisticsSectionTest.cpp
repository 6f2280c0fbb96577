#include <gtest/gtest.h>

#include "ipc2581/each.h"
#include "tests/import/support/Documents.h"
#include "tests/support/Files.h"

namespace ipc2581::tests {
namespace {

using Item = CIPC2581_Bom_BomItem;

Imported ImportItem(const std::string & item)
{
    return ImportDocument({.logistics = R"(<Bom name="B"><BomHeader assembly="A"/>)" + item + "</Bom>"});
}

const Item & ItemOf(const Imported & imported, std::size_t index = 0)
{
    return *Each(imported.board->m_Bom.m_arrBomItem)[index];
}

TEST(LogisticsSection, TakesTheNamesOfRoleAndPerson)
{
    const Imported imported = ImportDocument({.logistics = R"(<LogisticHeader>
        <Role id="Owner" roleFunction="SENDER"/><Enterprise id="E" code="1"/>
        <Person name="M&#xFC;ller" enterpriseRef="E" roleRef="Owner"/></LogisticHeader>)"});
    EXPECT_EQ(Str(imported.board->m_LogisticHeader.m_strRoleName), "Owner");
    EXPECT_EQ(Str(imported.board->m_LogisticHeader.m_strPersonName), "M\u00FCller");
    EXPECT_EQ(Losses(imported.report),
              (Texts{"LogisticHeader/Role roleFunction=SENDER", "LogisticHeader/Enterprise id=E code=1",
                     "LogisticHeader/Person enterpriseRef=E roleRef=Owner"}));
}

TEST(LogisticsSection, PrefersTheNameOfARoleToItsId)
{
    const Imported imported =
        ImportDocument({.logistics = R"(<LogisticHeader><Role id="i" name="n"/></LogisticHeader>)"});
    EXPECT_EQ(Str(imported.board->m_LogisticHeader.m_strRoleName), "n");
    EXPECT_EQ(Losses(imported.report), (Texts{"LogisticHeader/Role id=i"}));
}

TEST(LogisticsSection, TakesTheLastOfSeveralPersonsAndTellsTheOthers)
{
    const Imported imported =
        ImportDocument({.logistics = R"(<LogisticHeader><Person name="one"/><Person name="two"/></LogisticHeader>)"});
    EXPECT_EQ(Str(imported.board->m_LogisticHeader.m_strPersonName), "two");
    EXPECT_EQ(Losses(imported.report), (Texts{"LogisticHeader/Person name=one"}));
}

TEST(LogisticsSection, TakesTheHistory)
{
    const Imported imported = ImportDocument({.logistics = R"(<HistoryRecord number="12" origination="2001-01-01"
        toolRef="pen" lastChange="2002-02-02" software="s"><FileRevision fileRevisionId="1" comment="c"/>
        </HistoryRecord>)"});
    const CIPC2581_HistoryRecord & history = imported.board->m_HistoryRecord;
    EXPECT_EQ(history.number, 12);
    EXPECT_EQ(Str(history.origination), "2001-01-01");
    EXPECT_EQ(Str(history.toolRef), "pen");
    EXPECT_EQ(Str(history.lastChange), "2002-02-02");
    EXPECT_EQ(Losses(imported.report),
              (Texts{"HistoryRecord software=s", "HistoryRecord/FileRevision fileRevisionId=1 comment=c"}));
}

TEST(LogisticsSection, TakesAnItemOfRevisionA)
{
    const Imported imported = ImportItem(R"(<BomItem quantity="2" numberIO="14" category="ELECTRICAL"
        internalPartNumber="P-1" description="a &amp; b" packageRef="SO14"><RefDes name="U1" populate="TRUE"/></BomItem>)");
    const Item & item = ItemOf(imported);
    EXPECT_EQ(Str(imported.board->m_Bom.name), "B");
    EXPECT_EQ(Str(imported.board->m_Bom.assembly), "A");
    EXPECT_EQ(Str(item.quantity), "2");
    EXPECT_EQ(Str(item.numberIO), "14");
    EXPECT_EQ(Str(item.category), "ELECTRICAL");
    EXPECT_EQ(Str(item.internalPartNumber), "P-1");
    EXPECT_EQ(Str(item.description), "a &amp; b");
    EXPECT_EQ(Str(item.packageRef), "SO14");
    ASSERT_EQ(item.m_arrRefDes.GetSize(), 1);
    EXPECT_EQ(Str(item.m_arrRefDes.GetAt(0)->name), "U1");
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(LogisticsSection, TakesDesignNumberAndPinCountWhereTheirMembersAreFree)
{
    const Imported imported =
        ImportItem(R"(<BomItem OEMDesignNumberRef="D-1" quantity="1" pinCount="14" category="ELECTRICAL"/>)");
    EXPECT_EQ(Str(ItemOf(imported).internalPartNumber), "D-1");
    EXPECT_EQ(Str(ItemOf(imported).numberIO), "14");
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(LogisticsSection, TellsDesignNumberAndPinCountWhereTheirMembersAreTaken)
{
    const Imported imported = ImportItem(
        R"(<BomItem OEMDesignNumberRef="D-1" internalPartNumber="P-1" quantity="1" pinCount="14" numberIO="15"/>)");
    EXPECT_EQ(Str(ItemOf(imported).internalPartNumber), "P-1");
    EXPECT_EQ(Str(ItemOf(imported).numberIO), "15");
    EXPECT_EQ(Losses(imported.report), (Texts{"Bom/BomItem OEMDesignNumberRef=D-1 pinCount=14"}));
}

struct PopulateCase {
    const char * attribute;
    bool isPopulated;
    bool isLost = false;
};

class Populate : public testing::TestWithParam<PopulateCase> {};

TEST_P(Populate, IsATruthValueOfXml)
{
    const Imported imported =
        ImportItem(std::string(R"(<BomItem quantity="1"><RefDes name="R1" )") + GetParam().attribute + "/></BomItem>");
    EXPECT_EQ(ItemOf(imported).m_arrRefDes.GetAt(0)->populate, GetParam().isPopulated);
    EXPECT_EQ(imported.report.LostCount(), GetParam().isLost ? 1U : 0U);
}

INSTANTIATE_TEST_SUITE_P(Words, Populate,
                         testing::Values(PopulateCase{R"(populate="true")", true},
                                         PopulateCase{R"(populate="1")", true},
                                         PopulateCase{R"(populate="TRUE")", true},
                                         PopulateCase{R"(populate="false")", false},
                                         PopulateCase{R"(populate="0")", false}, PopulateCase{"", true},
                                         PopulateCase{R"(populate="maybe")", false, true}));

TEST(LogisticsSection, TakesThePackageThatAllDesignatorsNameForThatOfTheItem)
{
    const Imported imported = ImportItem(
        R"(<BomItem quantity="2"><RefDes name="R1" packageRef="P"/><RefDes name="R2" packageRef="P"/></BomItem>)");
    EXPECT_EQ(Str(ItemOf(imported).packageRef), "P");
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(LogisticsSection, TellsThePackagesOfDesignatorsThatDiffer)
{
    const Imported imported = ImportItem(
        R"(<BomItem quantity="2"><RefDes name="R1" packageRef="P"/><RefDes name="R2" packageRef="Q"/></BomItem>)");
    EXPECT_EQ(Str(ItemOf(imported).packageRef), "");
    EXPECT_EQ(Losses(imported.report), (Texts{"Bom/BomItem/RefDes packageRef=P", "Bom/BomItem/RefDes packageRef=Q"}));
}

TEST(LogisticsSection, TellsThePackageOfOneDesignatorWhereAnotherHasNone)
{
    const Imported imported =
        ImportItem(R"(<BomItem quantity="2"><RefDes name="R1" packageRef="P"/><RefDes name="R2"/></BomItem>)");
    EXPECT_EQ(Str(ItemOf(imported).packageRef), "");
    EXPECT_EQ(Losses(imported.report), (Texts{"Bom/BomItem/RefDes packageRef=P"}));
}

TEST(LogisticsSection, LeavesThePackageOfTheItemAloneAndTellsThoseOfItsDesignators)
{
    const Imported imported =
        ImportItem(R"(<BomItem quantity="1" packageRef="OWN"><RefDes name="R1" packageRef="P"/></BomItem>)");
    EXPECT_EQ(Str(ItemOf(imported).packageRef), "OWN");
    EXPECT_EQ(Losses(imported.report), (Texts{"Bom/BomItem/RefDes packageRef=P"}));
}

TEST(LogisticsSection, TakesThePackageOfDesignatorsThatIsThatOfTheItem)
{
    const Imported imported =
        ImportItem(R"(<BomItem quantity="1" packageRef="P"><RefDes name="R1" packageRef="P"/></BomItem>)");
    EXPECT_EQ(Str(ItemOf(imported).packageRef), "P");
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(LogisticsSection, TellsWhatElseAnItemHas)
{
    const Imported imported = ImportItem(R"(<BomItem quantity="1"><RefDes name="R1" layerRef="TOP">
        <Tuning value="1"/></RefDes><Characteristics category="ELECTRICAL"><Textual definitionSource="d"
        textualCharacteristicName="n" textualCharacteristicValue="v"/></Characteristics></BomItem>)");
    EXPECT_EQ(Losses(imported.report),
              (Texts{"Bom/BomItem/RefDes layerRef=TOP", "Bom/BomItem/RefDes/Tuning value=1",
                     "Bom/BomItem/Characteristics category=ELECTRICAL",
                     "Bom/BomItem/Characteristics/Textual definitionSource=d textualCharacteristicName=n "
                     "textualCharacteristicValue=v"}));
}

TEST(LogisticsSection, AddsTheItemsOfASecondBillToThoseOfTheFirst)
{
    const Imported imported = ImportDocument({.logistics = R"(
        <Bom name="one"><BomHeader assembly="a"/><BomItem internalPartNumber="1"/></Bom>
        <Bom name="two"><BomHeader assembly="b"/><BomItem internalPartNumber="2"/></Bom>)"});
    EXPECT_EQ(Str(imported.board->m_Bom.name), "one");
    EXPECT_EQ(Str(imported.board->m_Bom.assembly), "a");
    ASSERT_EQ(Count(imported.board->m_Bom.m_arrBomItem), 2U);
    EXPECT_EQ(Str(ItemOf(imported, 1).internalPartNumber), "2");
    EXPECT_EQ(Losses(imported.report), (Texts{"Bom name=two", "Bom/BomHeader assembly=b"}));
}

TEST(LogisticsSection, SaysWhichItemALostFactBelongsTo)
{
    const Imported imported = ImportItem(R"(<BomItem/><BomItem><RefDes name="R" layerRef="L"/></BomItem>)");
    ASSERT_EQ(imported.report.LostCount(), 1U);
    EXPECT_EQ(imported.report.Lost(0).owner, 1U);
}

}  // namespace
}  // namespace ipc2581::tests
