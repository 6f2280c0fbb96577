#include "import/ImportReport.h"

#include <gtest/gtest.h>

#include "import/Import.h"
#include "tests/import/support/Documents.h"

namespace ipc2581::tests {
namespace {

TEST(ImportReport, TellsALostAttributeWithLineElementAndValue)
{
    const ImportReport report = ImportText("<IPC-2581>\n<Ecad>\n<CadData>\n\n<Layer name='TOP' colour='a &amp; b'\n"
                                           "weight='2'/></CadData></Ecad></IPC-2581>")
                                    .report;
    ASSERT_EQ(report.LostCount(), 1U);
    const LostFact fact = report.Lost(0);
    EXPECT_EQ(fact.path, "Ecad/CadData/Layer");
    EXPECT_EQ(fact.Element(), "Layer");
    EXPECT_EQ(fact.line, 5U);
    ASSERT_EQ(fact.attributes.size(), 2U);
    EXPECT_EQ(fact.Value("colour"), "a & b");
    EXPECT_EQ(fact.Value("weight"), "2");
    EXPECT_EQ(fact.Value("name"), "");
}

TEST(ImportReport, TellsTheLineOnWhichAnElementBegins)
{
    const ImportReport report =
        ImportText("<IPC-2581>\r\n<a\r\n b='1'\r\n c='2'\r\n/>\r\n\r\n<d/><!--\r\n\r\n--><e\r\n/>"
                   "</IPC-2581>")
            .report;
    ASSERT_EQ(report.LostCount(), 3U);
    EXPECT_EQ(report.Lost(0).line, 2U);
    EXPECT_EQ(report.Lost(1).line, 7U);
    EXPECT_EQ(report.Lost(2).line, 9U);
}

TEST(ImportReport, TellsTheLineOfElementsWithValuesOfAnyLength)
{
    const std::string value(3'000'000, 'x');
    const std::string lines(100'000, '\n');
    const ImportReport report =
        ImportText("<IPC-2581>\n<a b='" + value + "'\n/>\n<c d='" + lines + "'/>\n<e/></IPC-2581>").report;
    ASSERT_EQ(report.LostCount(), 3U);
    EXPECT_EQ(report.Lost(0).line, 2U);
    EXPECT_EQ(report.Lost(0).Value("b").size(), value.size());
    EXPECT_EQ(report.Lost(1).line, 4U);
    EXPECT_EQ(report.Lost(2).line, 100'005U);
}

TEST(ImportReport, TellsElementsThatItDoesNotKnowWithAllThatStandsInThem)
{
    const ImportReport report =
        ImportText("<IPC-2581><Avl name='x'><AvlItem OEMDesignNumber='1'>text<b/></AvlItem></Avl></IPC-2581>").report;
    EXPECT_EQ(Losses(report),
              (Texts{"Avl name=x", "Avl/AvlItem OEMDesignNumber=1", "Avl/AvlItem =text", "Avl/AvlItem/b"}));
}

TEST(ImportReport, TellsTheTextOfAnElementThatHasArrived)
{
    const ImportReport report =
        ImportDocument({.data = "<Layer name='TOP'>see &amp; believe</Layer><Layer name='B'><![CDATA[<raw>]]></Layer>"})
            .report;
    ASSERT_EQ(report.LostCount(), 2U);
    std::string text;
    for (const auto & [name, value] : report.Lost(0).attributes) {
        EXPECT_EQ(name, "");
        text += value;
    }
    EXPECT_EQ(text, "see & believe");
    EXPECT_EQ(report.Lost(1).Value(""), "<raw>");
}

TEST(ImportReport, LeavesBlanksBetweenElementsAlone)
{
    EXPECT_EQ(ImportText("<IPC-2581> \r\n\t<Ecad> \n </Ecad>\n</IPC-2581>").report.LostCount(), 0U);
}

TEST(ImportReport, CountsWhatStandsInTheFileAndWhatIsLost)
{
    const ImportReport report = ImportText(R"(<IPC-2581><Ecad><CadData><Layer name="A"/><Layer name="B" x="1"/>
        <Layer name="C" y="1"><Odd/><Odd/></Layer></CadData></Ecad></IPC-2581>)")
                                    .report;
    const auto & elements = report.Elements();
    EXPECT_EQ(elements.size(), 5U);
    EXPECT_EQ(elements.at("Layer").stated, 3U);
    EXPECT_EQ(elements.at("Layer").lost, 2U);
    EXPECT_EQ(elements.at("Odd").stated, 2U);
    EXPECT_EQ(elements.at("Odd").lost, 2U);
    EXPECT_EQ(elements.at("CadData").stated, 1U);
    EXPECT_EQ(elements.at("CadData").lost, 0U);
    EXPECT_EQ(elements.find("Set"), elements.end());
}

TEST(ImportReport, ListsThePathsThatHaveLostSomethingInTheOrderOfTheFile)
{
    const ImportReport report = ImportText("<IPC-2581 r='1'><z/><Ecad><y/><a/><y/></Ecad><z/></IPC-2581>").report;
    const std::vector<std::pair<std::string, std::size_t>> expected = {
        {"IPC-2581", 1}, {"z", 2}, {"Ecad/y", 2}, {"Ecad/a", 1}};
    EXPECT_EQ(report.LostPaths(), expected);
}

TEST(ImportReport, FindsFactsByTheirPath)
{
    const ImportReport report = ImportText("<IPC-2581><z a='1'/><Ecad><z a='2'/></Ecad><z a='3'/></IPC-2581>").report;
    const std::vector<LostFact> facts = report.LostAt("z");
    ASSERT_EQ(facts.size(), 2U);
    EXPECT_EQ(facts[0].Value("a"), "1");
    EXPECT_EQ(facts[1].Value("a"), "3");
    EXPECT_EQ(report.LostAt("Ecad/z").size(), 1U);
    EXPECT_TRUE(report.LostAt("Ecad").empty());
    EXPECT_TRUE(report.LostAt("").empty());
    EXPECT_TRUE(report.LostAt("/z").empty());
}

TEST(ImportReport, ShowsEachFactAsItTellsIt)
{
    const ImportReport report =
        ImportText("<IPC-2581 a='0'><x a='1'><y b='2'>text</y></x><z/><x c='3' d='4'/></IPC-2581>").report;
    std::size_t place = 0;
    report.ForEachLost([&](const LostFact & shown) {
        const LostFact told = report.Lost(place++);
        EXPECT_EQ(shown.path, told.path);
        EXPECT_EQ(shown.line, told.line);
        EXPECT_EQ(shown.owner, told.owner);
        EXPECT_EQ(shown.attributes, told.attributes);
    });
    EXPECT_EQ(place, report.LostCount());
    EXPECT_EQ(place, 6U);

    std::vector<std::string> values;
    report.ForEachLostAt("x", [&](const LostFact & shown) {
        EXPECT_EQ(shown.path, "x");
        values.emplace_back(shown.attributes.front().second);
    });
    EXPECT_EQ(values, (std::vector<std::string>{"1", "3"}));
}

TEST(ImportReport, RefusesAnIndexThatIsNotThere)
{
    const ImportReport report = ImportText("<IPC-2581><z/></IPC-2581>").report;
    EXPECT_THROW(static_cast<void>(report.Lost(1)), std::out_of_range);
}

TEST(ImportReport, KeepsTheLastElementsOfAVeryDeepPath)
{
    std::string text = "<IPC-2581>";
    for (int i = 0; i < 100; ++i) {
        text += "<a>";
    }
    text += "<last/>";
    for (int i = 0; i < 100; ++i) {
        text += "</a>";
    }
    const ImportReport report = ImportText(text + "</IPC-2581>").report;
    ASSERT_EQ(report.LostCount(), 101U);
    EXPECT_EQ(report.Lost(100).Element(), "last");
    EXPECT_TRUE(report.Lost(100).path.ends_with("a/a/last"));
}

TEST(ImportReport, OutlivesTheBoardAndTheBytes)
{
    ImportReport report;
    {
        report = ImportDocument({.step = R"(<Component refDes="U1" weight="3"/>)"}).report;
    }
    EXPECT_EQ(Losses(report), (Texts{"Ecad/CadData/Step/Component weight=3"}));
    const ImportReport copy = report;
    report = ImportReport();
    EXPECT_EQ(Losses(copy), (Texts{"Ecad/CadData/Step/Component weight=3"}));
}

TEST(ImportReport, OfNothingIsEmpty)
{
    const ImportReport report;
    EXPECT_EQ(report.LostCount(), 0U);
    EXPECT_TRUE(report.LostPaths().empty());
    EXPECT_TRUE(report.LostAt("Ecad").empty());
    EXPECT_EQ(report.RemarkCount(), 0U);
    EXPECT_TRUE(report.Notes().empty());
    EXPECT_TRUE(report.Elements().empty());
}

TEST(ImportReport, TellsWhichLayerALineBelongsTo)
{
    const ImportReport report = ImportText("<IPC-2581><Ecad><CadHeader units='INCH'/><CadData>\n"
                                           "<Step name='s'>\n"
                                           "<LayerFeature layerRef='A&amp;B'>\n"
                                           "<Set geometryUsage='TEXT'/>\n"
                                           "</LayerFeature>\n"
                                           "<LayerFeature layerRef='C'/><LayerFeature layerRef='D'/>\n"
                                           "<LayerFeature\n"
                                           "layerRef='E'/>\n"
                                           "</Step></CadData></Ecad></IPC-2581>")
                                    .report;
    EXPECT_EQ(report.LayerAt(0), "");
    EXPECT_EQ(report.LayerAt(2), "");
    EXPECT_EQ(report.LayerAt(3), "A&B");
    EXPECT_EQ(report.LayerAt(5), "A&B");
    EXPECT_EQ(report.LayerAt(6), "C");
    EXPECT_EQ(report.LayerAt(7), "E");
    EXPECT_EQ(report.LayerAt(1000), "E");
    EXPECT_EQ(ImportReport().LayerAt(1), "");
}

TEST(ImportReport, TellsTheLinesOfNotes)
{
    const ImportReport report =
        ImportText("<IPC-2581><Ecad><CadHeader units='INCH'/><CadData>\n<Step name='s'>\n\n<Component refDes='U1'\n"
                   "packageRef='GONE'/></Step></CadData></Ecad></IPC-2581>")
            .report;
    ASSERT_EQ(report.Notes().size(), 1U);
    EXPECT_EQ(report.Notes()[0].line, 4U);
    EXPECT_EQ(report.Notes()[0].kind, NoteKind::DanglingReference);
}

TEST(ImportReport, CountsOwnersWhereTheyBelong)
{
    const Imported imported = ImportDocument({.step = R"(<Odd><Component/></Odd><Component refDes="U" odd="1"/>)"});
    ASSERT_EQ(imported.report.LostCount(), 3U);
    EXPECT_EQ(imported.report.Lost(2).owner, 0U);
}

TEST(ImportReport, TellsAttributesOfOtherNamespaces)
{
    const Imported imported = ImportText("<IPC-2581 xmlns:v='urn:v' v:stamp='1'/>");
    EXPECT_EQ(Losses(imported.report), (Texts{"IPC-2581 v:stamp=1"}));
}

TEST(ImportReport, TellsATextAsOneValue)
{
    EXPECT_EQ(Losses(ImportDocument({.data = "<Layer name='A'>a&amp;b<!-- c -->d&#32;e</Layer>"}).report),
              (Texts{"Ecad/CadData/Layer =a&bd e"}));
    EXPECT_EQ(Losses(ImportText("<IPC-2581>a&amp;b</IPC-2581>").report), (Texts{"IPC-2581 =a&b"}));
}

}  // namespace
}  // namespace ipc2581::tests
