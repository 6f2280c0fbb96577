#include <gtest/gtest.h>

#include "tests/import/support/Documents.h"
#include "tests/support/Files.h"

namespace ipc2581::tests {
namespace {

const CIPC2581_Content & ContentOf(const Imported & imported)
{
    return imported.board->m_Content;
}

Texts Listed(const CStringArray & texts)
{
    Texts listed;
    for (std::int64_t i = 0; i < texts.GetSize(); ++i) {
        listed.push_back(Str(texts[i]));
    }
    return listed;
}

TEST(ContentSection, TakesTheFunctionModeWithLevelAndComment)
{
    const Imported imported =
        ImportDocument({.content = R"(<FunctionMode mode="ASSEMBLY" level="2" comment="a &lt; b"/>)"});
    EXPECT_EQ(Str(ContentOf(imported).FunctionMode), "ASSEMBLY");
    EXPECT_EQ(Str(ContentOf(imported).FunctionModeLevel), "2");
    EXPECT_EQ(Str(ContentOf(imported).FunctionModeComment), "a &lt; b");
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(ContentSection, ListsTheReferencesToStepsLayersAndBills)
{
    const Imported imported = ImportDocument({.content = R"(<StepRef name="s1"/><StepRef name="s2"/>
        <LayerRef name="l&amp;1"/><LayerRef name="l2"/><LayerRef name="l3"/><BomRef name="b"/>)"});
    EXPECT_EQ(Listed(ContentOf(imported).StepRef), (Texts{"s1", "s2"}));
    EXPECT_EQ(Listed(ContentOf(imported).LayerRef), (Texts{"l&amp;1", "l2", "l3"}));
    EXPECT_EQ(Listed(ContentOf(imported).BomRef), (Texts{"b"}));
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(ContentSection, TakesTheTextOfAReferenceWithoutAName)
{
    const Imported imported = ImportDocument({.content = "<LayerRef>A&amp;B</LayerRef><StepRef>s</StepRef>"});
    EXPECT_EQ(Listed(ContentOf(imported).LayerRef), (Texts{"A&amp;B"}));
    EXPECT_EQ(Listed(ContentOf(imported).StepRef), (Texts{"s"}));
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(ContentSection, KeepsAReferenceWithoutANameAsAnEmptyOne)
{
    const Imported imported = ImportDocument({.content = R"(<LayerRef/><LayerRef name="A"/>)"});
    EXPECT_EQ(Listed(ContentOf(imported).LayerRef), (Texts{"", "A"}));
}

TEST(ContentSection, ReportsTheReferenceToTheRoleAndWhatElseStandsThere)
{
    const Imported imported =
        ImportText(R"(<IPC-2581 revision="C"><Content roleRef="Owner"><AvlRef name="a"/></Content></IPC-2581>)");
    EXPECT_EQ(Losses(imported.report),
              (Texts{"IPC-2581 revision=C", "Content roleRef=Owner", "Content/AvlRef name=a"}));
}

TEST(ContentSection, TakesColorsAndReferencesToThem)
{
    const Imported imported = ImportDocument({.content = R"(<DictionaryColor>
        <EntryColor id="GREEN"><Color r="1" g="255" b="3"/></EntryColor>
        <EntryColor id="SAME"><ColorRef id="GREEN"/></EntryColor></DictionaryColor>)"});
    const auto & entries = *ContentOf(imported).m_DictionaryColor->Entry;
    ASSERT_EQ(entries.GetSize(), 2);
    EXPECT_EQ(Str(entries.GetAt(0)->EntryColorId), "GREEN");
    EXPECT_EQ(entries.GetAt(0)->Red, 1);
    EXPECT_EQ(entries.GetAt(0)->Green, 255);
    EXPECT_EQ(entries.GetAt(0)->Blue, 3);
    EXPECT_EQ(Str(entries.GetAt(1)->EntryColorId), "SAME");
    EXPECT_EQ(Str(entries.GetAt(1)->ColorRefID), "GREEN");
    EXPECT_EQ(Losses(imported.report), Texts());
}

TEST(ContentSection, KeepsTheDictionariesInTheirOwnUnits)
{
    const Imported imported = ImportDocument({.content = R"(<DictionaryStandard units="INCH">
        <EntryStandard id="DOT"><Circle diameter="0.1"/></EntryStandard></DictionaryStandard>
        <DictionaryUser units="MICRON"><EntryUser id="BAR"><UserSpecial>
        <Line startX="1" startY="2" endX="3" endY="4"><LineDesc lineEnd="ROUND" lineWidth="50"/></Line>
        </UserSpecial></EntryUser></DictionaryUser>)"});
    EXPECT_EQ(Str(ContentOf(imported).DictionaryStandard->Unit), "INCH");
    EXPECT_EQ(EntryShapes(imported, "DOT"), (Texts{"Circle Diameter=0.1"}));
    const CIPC2581_Content_DictionaryUser & users = *ContentOf(imported).DictionaryUser;
    EXPECT_EQ(Str(users.Unit), "MICRON");
    ASSERT_EQ(users.EntryArray->GetSize(), 1);
    EXPECT_EQ(Str(users.EntryArray->GetAt(0)->ID), "BAR");
    EXPECT_EQ(ShapeTexts(*users.EntryArray->GetAt(0)->DrawObjArray), (Texts{"Line 1,2 to 3,4 pen 50 ROUND"}));
    EXPECT_EQ(Losses(imported.report), Texts());
}

// The line descriptions of a file come behind the standard dictionary as well as in front of it.
TEST(ContentSection, FindsLineDescriptionsWhereverTheirDictionaryStands)
{
    const std::string lines = R"(<DictionaryLineDesc units="MILLIMETER"><EntryLineDesc id="PEN">
        <LineDesc lineEnd="SQUARE" lineWidth="0.2"/></EntryLineDesc></DictionaryLineDesc>)";
    const std::string users = R"(<DictionaryUser units="MILLIMETER"><EntryUser id="BAR"><UserSpecial>
        <Line startX="0" startY="0" endX="1" endY="0"><LineDescRef id="PEN"/></Line></UserSpecial></EntryUser>
        </DictionaryUser>)";
    for (const std::string & content : {lines + users, users + lines}) {
        const Imported imported = ImportDocument({.content = content});
        const auto & entries = *ContentOf(imported).DictionaryUser->EntryArray;
        ASSERT_EQ(entries.GetSize(), 1);
        EXPECT_EQ(ShapeTexts(*entries.GetAt(0)->DrawObjArray), (Texts{"Line 0,0 to 1,0 pen 0.2 SQUARE"})) << content;
        EXPECT_EQ(Losses(imported.report), Texts()) << content;
        EXPECT_EQ(Notes(imported.report), Texts()) << content;
    }
}

TEST(ContentSection, FindsFillsWhereverTheirDictionaryStands)
{
    const std::string fills = R"(<DictionaryFillDesc><EntryFillDesc id="FULL"><FillDesc fillProperty="FILL"/>
        </EntryFillDesc></DictionaryFillDesc>)";
    const std::string standards = R"(<DictionaryStandard units="MILLIMETER"><EntryStandard id="DOT">
        <Circle diameter="1"><FillDescRef id="FULL"/></Circle></EntryStandard></DictionaryStandard>)";
    for (const std::string & content : {fills + standards, standards + fills}) {
        const Imported imported = ImportDocument({.content = content});
        EXPECT_EQ(EntryShapes(imported, "DOT"), (Texts{"Circle Diameter=1"})) << content;
        EXPECT_EQ(Losses(imported.report), Texts()) << content;
        EXPECT_EQ(Notes(imported.report), Texts()) << content;
    }
}

TEST(ContentSection, KeepsTheEntriesInTheOrderOfTheFileWhereTheyReferBack)
{
    const Imported imported = ImportDocument({.content = R"(
        <DictionaryLineDesc units="MILLIMETER"><EntryLineDesc id="PEN"><LineDesc lineEnd="ROUND" lineWidth="1"/>
        </EntryLineDesc></DictionaryLineDesc>
        <DictionaryStandard units="MILLIMETER">
        <EntryStandard id="A"><Circle diameter="1"/></EntryStandard>
        <EntryStandard id="B"><Circle diameter="2"/></EntryStandard>
        <EntryStandard id="C"><Circle diameter="3"/></EntryStandard></DictionaryStandard>)"});
    EXPECT_EQ(EntryIds(imported), (Texts{"A", "B", "C"}));
}

TEST(ContentSection, TellsALineDescriptionThatNobodyRefersTo)
{
    const Imported imported = ImportDocument({.content = R"(<DictionaryLineDesc units="MILLIMETER">
        <EntryLineDesc id="PEN"><LineDesc lineEnd="ROUND" lineWidth="0.2"/></EntryLineDesc></DictionaryLineDesc>)"});
    ASSERT_EQ(imported.report.LostAt("Content/DictionaryLineDesc/EntryLineDesc").size(), 1U);
    EXPECT_EQ(imported.report.LostAt("Content/DictionaryLineDesc/EntryLineDesc")[0].Value("id"), "PEN");
}

TEST(ContentSection, TellsAFillThatNobodyRefersTo)
{
    const Imported imported = ImportDocument({.content = R"(<DictionaryFillDesc>
        <EntryFillDesc id="FULL"><FillDesc fillProperty="FILL"/></EntryFillDesc></DictionaryFillDesc>)"});
    ASSERT_EQ(imported.report.LostAt("Content/DictionaryFillDesc/EntryFillDesc").size(), 1U);
    EXPECT_EQ(imported.report.LostAt("Content/DictionaryFillDesc/EntryFillDesc")[0].Value("id"), "FULL");
}

TEST(ContentSection, TellsWhatALineDescriptionHasBesideWidthAndEnd)
{
    const Imported imported = ImportDocument({.content = R"(<DictionaryLineDesc units="MILLIMETER">
        <EntryLineDesc id="PEN"><LineDesc lineEnd="ROUND" lineWidth="0.2" lineProperty="DASHED"/></EntryLineDesc>
        </DictionaryLineDesc>)",
                                              .step = FeaturesOnTop(R"(<Line startX="0" startY="0" endX="1" endY="0">
                                                  <LineDescRef id="PEN"/></Line>)")});
    EXPECT_EQ(Losses(imported.report),
              (Texts{"Content/DictionaryLineDesc/EntryLineDesc/LineDesc lineProperty=DASHED"}));
}

TEST(ContentSection, LosesTheDictionariesOfFontsAndFirmware)
{
    const Imported imported = ImportDocument({.content = R"(<DictionaryFont units="INCH"><EntryFont id="F">
        <FontDefExternal name="n" urn="u"/></EntryFont></DictionaryFont>)"});
    EXPECT_EQ(Losses(imported.report),
              (Texts{"Content/DictionaryFont units=INCH", "Content/DictionaryFont/EntryFont id=F",
                     "Content/DictionaryFont/EntryFont/FontDefExternal name=n urn=u"}));
}

TEST(ContentSection, WritesTheIdsOfEntriesWithEntities)
{
    const Imported imported = ImportDocument({.content = R"(<DictionaryStandard units="MILLIMETER">
        <EntryStandard id='a"b&lt;&amp;'><Circle diameter="1"/></EntryStandard></DictionaryStandard>)"});
    EXPECT_EQ(EntryIds(imported), (Texts{"a&quot;b&lt;&amp;"}));
}

TEST(ContentSection, LosesASecondLineDescriptionOfAName)
{
    const Imported imported = ImportDocument({.content = R"(<DictionaryLineDesc units="MILLIMETER">
        <EntryLineDesc id="PEN"><LineDesc lineEnd="ROUND" lineWidth="0.2"/><LineDesc lineWidth="3"/></EntryLineDesc>
        <EntryLineDesc id="PEN"><LineDesc lineEnd="ROUND" lineWidth="0.7"/></EntryLineDesc></DictionaryLineDesc>)",
                                              .step = FeaturesOnTop(R"(<Line><LineDescRef id="PEN"/></Line>)")});
    EXPECT_EQ(Losses(imported.report), (Texts{"Content/DictionaryLineDesc/EntryLineDesc/LineDesc lineWidth=3",
                                              "Content/DictionaryLineDesc/EntryLineDesc id=PEN",
                                              "Content/DictionaryLineDesc/EntryLineDesc/LineDesc lineEnd=ROUND "
                                              "lineWidth=0.7"}));
}

TEST(ContentSection, LosesASecondFillOfAName)
{
    const Imported imported =
        ImportDocument({.content = R"(<DictionaryFillDesc>
        <EntryFillDesc id="F"><FillDesc fillProperty="FILL"/></EntryFillDesc>
        <EntryFillDesc id="F"><FillDesc fillProperty="VOID"/></EntryFillDesc></DictionaryFillDesc>)",
                        .step = FeaturesOnTop(R"(<Circle diameter="1"><FillDescRef id="F"/></Circle>)")});
    EXPECT_EQ(Losses(imported.report), (Texts{"Content/DictionaryFillDesc/EntryFillDesc id=F",
                                              "Content/DictionaryFillDesc/EntryFillDesc/FillDesc fillProperty=VOID"}));
}

TEST(ContentSection, LosesLineDescriptionsAndFillsThatNobodyRefersTo)
{
    const Imported imported =
        ImportDocument({.content = R"(<DictionaryLineDesc units="MILLIMETER"><EntryLineDesc id="PEN" odd="1">
        <LineDesc lineEnd="ROUND" lineWidth="0.2"/></EntryLineDesc></DictionaryLineDesc>
        <DictionaryFillDesc><EntryFillDesc id="F"><FillDesc fillProperty="FILL"/></EntryFillDesc></DictionaryFillDesc>)"});
    EXPECT_EQ(Losses(imported.report),
              (Texts{"Content/DictionaryLineDesc/EntryLineDesc id=PEN odd=1",
                     "Content/DictionaryLineDesc/EntryLineDesc/LineDesc lineEnd=ROUND lineWidth=0.2",
                     "Content/DictionaryFillDesc/EntryFillDesc id=F",
                     "Content/DictionaryFillDesc/EntryFillDesc/FillDesc fillProperty=FILL"}));
}

TEST(ContentSection, ConvertsOneMoreDictionaryToTheUnitOfTheFirst)
{
    const Imported imported = ImportDocument({.content = R"(
        <DictionaryStandard units="MILLIMETER"><EntryStandard id="A"><Circle diameter="25.4"/></EntryStandard>
        </DictionaryStandard>
        <DictionaryStandard units="INCH"><EntryStandard id="B"><Circle diameter="1"/></EntryStandard>
        <EntryStandard id="C"><Contour><Polygon><PolyBegin x="1" y="2"/><PolyStepSegment x="3" y="4"/>
        <LineDescRef id="PEN"/></Polygon></Contour></EntryStandard></DictionaryStandard>
        <DictionaryUser units="INCH"><EntryUser id="U"><UserSpecial><Circle diameter="1"/></UserSpecial></EntryUser>
        </DictionaryUser>
        <DictionaryUser units="MILLIMETER"><EntryUser id="V"><UserSpecial><Circle diameter="25.4"/>
        <UserPrimitiveRef id="U"/></UserSpecial></EntryUser></DictionaryUser>
        <DictionaryLineDesc units="INCH"><EntryLineDesc id="PEN"><LineDesc lineWidth="1"/></EntryLineDesc>
        </DictionaryLineDesc>
        <DictionaryLineDesc units="MILLIMETER"><EntryLineDesc id="PIN"><LineDesc lineWidth="25.4"/></EntryLineDesc>
        </DictionaryLineDesc>)",
                                              .step = FeaturesOnTop(R"(<UserPrimitiveRef id="V"/>
        <Line><LineDescRef id="PEN"/></Line><Line><LineDescRef id="PIN"/></Line>)")});
    EXPECT_EQ(EntryShapes(imported, "A"), (Texts{"Circle Diameter=25.4"}));
    EXPECT_EQ(EntryShapes(imported, "B"), (Texts{"Circle Diameter=25.4"}));
    EXPECT_EQ(EntryIds(imported), (Texts{"A", "B", "C"}));
    const auto & figures = *imported.board->m_Content.DictionaryUser->EntryArray;
    EXPECT_EQ(ShapeTexts(*figures.GetAt(1)->DrawObjArray), (Texts{"Circle Diameter=1", "Circle Diameter=1"}));
    const Texts drawn = Drawn(imported);
    ASSERT_EQ(drawn.size(), 4U);
    EXPECT_EQ(drawn[0], "Circle Diameter=25.4");
    EXPECT_EQ(drawn[1], "Circle Diameter=25.4");
    EXPECT_NE(drawn[2].find("25.4"), std::string::npos) << drawn[2];
    EXPECT_EQ(drawn[2], drawn[3]);
}

TEST(ContentSection, KeepsTheOrderOfTheStandardEntries)
{
    const Imported imported = ImportDocument({.content = R"(<DictionaryStandard units="MILLIMETER">
        <EntryStandard id="A"><Circle diameter="1"><LineDescRef id="P"/></Circle></EntryStandard>
        <EntryStandard id="B"><Circle diameter="1"/></EntryStandard></DictionaryStandard>
        <DictionaryLineDesc units="MILLIMETER"><EntryLineDesc id="P"><LineDesc lineEnd="ROUND" lineWidth="1"/>
        </EntryLineDesc></DictionaryLineDesc>)"});
    EXPECT_EQ(EntryIds(imported), (Texts{"A", "B"}));
}

TEST(ContentSection, DrawsFiguresWithThoseBehindThem)
{
    const Imported imported = ImportDocument({.content = R"(<DictionaryUser units="MILLIMETER">
        <EntryUser id="A"><UserSpecial><UserPrimitiveRef id="B"/></UserSpecial></EntryUser>
        <EntryUser id="B"><UserSpecial><UserPrimitiveRef id="C"/><UserPrimitiveRef id="C"/></UserSpecial></EntryUser>
        <EntryUser id="C"><UserSpecial><Circle diameter="1"/></UserSpecial></EntryUser></DictionaryUser>)",
                                              .step = FeaturesOnTop(R"(<UserPrimitiveRef id="A"/>)")});
    EXPECT_EQ(Drawn(imported), (Texts{"Circle Diameter=1", "Circle Diameter=1"}));
    EXPECT_EQ(Notes(imported.report), Texts());
    const auto & figures = *imported.board->m_Content.DictionaryUser->EntryArray;
    ASSERT_EQ(Count(figures), 3U);
    EXPECT_EQ(Str(figures.GetAt(0)->ID), "A");
    EXPECT_EQ(Count(figures.GetAt(0)->DrawObjArray), 2U);
    EXPECT_EQ(Str(figures.GetAt(2)->ID), "C");
}

// Each figure of a long chain draws the next one; none of them is on the stack of the program.
TEST(ContentSection, DrawsALongChainOfFigures)
{
    std::string entries;
    constexpr int count = 100'000;
    for (int i = 0; i < count; ++i) {
        entries += "<EntryUser id='f" + std::to_string(i) + "'><UserPrimitiveRef id='f" + std::to_string(i + 1) +
                   "'/></EntryUser>";
    }
    entries += "<EntryUser id='f" + std::to_string(count) + "'><Circle diameter='1'/></EntryUser>";
    const Imported imported =
        ImportDocument({.content = "<DictionaryUser units='MILLIMETER'>" + entries + "</DictionaryUser>",
                        .step = FeaturesOnTop("<UserPrimitiveRef id='f0'/>")});
    EXPECT_EQ(Drawn(imported), (Texts{"Circle Diameter=1"}));
}

TEST(ContentSection, TellsFiguresThatDrawEachOther)
{
    const Imported imported = ImportDocument({.content = R"(<DictionaryUser units="MILLIMETER">
        <EntryUser id="A"><UserSpecial><UserPrimitiveRef id="B"/></UserSpecial></EntryUser>
        <EntryUser id="B"><UserSpecial><Circle diameter="1"/><UserPrimitiveRef id="A"/></UserSpecial></EntryUser>
        </DictionaryUser>)",
                                              .step = FeaturesOnTop(R"(<UserPrimitiveRef id="A"/>)")});
    EXPECT_EQ(Drawn(imported), (Texts{"Circle Diameter=1"}));
    EXPECT_EQ(Notes(imported.report), (Texts{"DanglingReference: figure \"A\" refers to itself"}));
}

TEST(ContentSection, TellsLossesOfFiguresWhereTheyStandAndWhoseTheyAre)
{
    const Imported imported = ImportDocument({.content = R"(<DictionaryUser units="MILLIMETER">
        <EntryUser id="A"/><EntryUser id="B" odd="1"/></DictionaryUser><Strange/>)"});
    EXPECT_EQ(Losses(imported.report), (Texts{"Content/DictionaryUser/EntryUser odd=1", "Content/Strange"}));
    EXPECT_EQ(imported.report.Lost(0).owner, 1U);
}

TEST(ContentSection, TakesTheFirstColorOfAnEntry)
{
    const Imported imported = ImportDocument({.content = R"(<DictionaryColor><EntryColor id="A">
        <Color r="1" g="2" b="3"/><Color r="4" g="5" b="6"/></EntryColor></DictionaryColor>)"});
    EXPECT_EQ(Losses(imported.report), (Texts{"Content/DictionaryColor/EntryColor/Color r=4 g=5 b=6"}));
}

TEST(ContentSection, TellsReferencesThatLeadNowhere)
{
    const Imported imported =
        ImportDocument({.content = R"(<StepRef name="GONE"/><LayerRef name="GONE"/><BomRef name="GONE"/>
        <LayerRef name="TOP"/><BomRef name="B"/>
        <DictionaryColor><EntryColor id="A"><ColorRef id="GONE"/></EntryColor></DictionaryColor>)",
                        .logistics = R"(<Bom name="B"/>)"});
    EXPECT_EQ(Notes(imported.report), (Texts{"DanglingReference: step \"GONE\" is not in the file",
                                             "DanglingReference: layer \"GONE\" is not in the file",
                                             "DanglingReference: bill of materials \"GONE\" is not in the file",
                                             "DanglingReference: color \"GONE\" is not in the file"}));
}

TEST(ContentSection, TellsNoReferencesToASectionThatTheFileDoesNotHave)
{
    const Imported imported = ImportText(
        R"(<IPC-2581><Content><StepRef name="S"/><LayerRef name="L"/><BomRef name="B"/></Content>
        <Bom name="B"><BomItem packageRef="P"/></Bom></IPC-2581>)");
    EXPECT_EQ(Notes(imported.report), Texts());
}

}  // namespace
}  // namespace ipc2581::tests
