#include <regex>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/hosts/Program.h"

namespace ipc2581::tests {
namespace {

// A section of what the command prints, without its title.
std::string Section(const std::string & text, const std::string & title)
{
    const std::string start = "\n\n" + title + "\n";
    const std::size_t at = text.find(start);
    if (at == std::string::npos) {
        return "no " + title;
    }
    const std::size_t from = at + start.size();
    const std::size_t end = text.find("\n\n", from);
    return text.substr(from, end == std::string::npos ? end : end + 1 - from);
}

// The rows of a section without its heading, with a bar between their cells.
std::string Rows(const std::string & text, const std::string & title)
{
    const std::string section = Section(text, title);
    std::string rows = section.substr(section.find('\n') + 1);
    rows = std::regex_replace(rows, std::regex("(^|\\n)  "), "$1");
    return std::regex_replace(rows, std::regex("   *"), " | ");
}

// The command on a board with these lines.
class Check : public testing::Test {
protected:
    std::string Run(const std::string & board, const std::vector<std::string> & options = {})
    {
        std::vector<std::string> arguments = {"check", m_folder.Save("board.cvg", board)};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const Result result = RunProgram(arguments);
        const bool isRefused = result.out.find("\n  refused  ") != std::string::npos;
        const bool hasNotes = std::regex_search(result.out, std::regex("\n  notes +[1-9]"));
        EXPECT_EQ(result.status, isRefused || hasNotes ? 1 : 0);
        EXPECT_EQ(result.err, "");
        return result.out;
    }
    // Lines in the step begin with the ninth line of the board.
    std::string Stops(const std::string & lines) { return Rows(Run(SmallBoard(lines)), "stops"); }
    std::string Structure(const std::string & lines) { return Rows(Run(SmallBoard(lines)), "structure"); }
    std::string Values(const std::string & lines) { return Rows(Run(SmallBoard(lines)), "values"); }

    TempFolder m_folder;
};

std::string Bom(const std::string & lines)
{
    return "<IPC-2581>\n<Bom name=\"b\">\n" + lines + "</Bom>\n</IPC-2581>\n";
}

std::string Dictionary(const std::string & lines)
{
    return "<IPC-2581>\n<Content>\n<DictionaryStandard units=\"MM\">\n" + lines +
           "</DictionaryStandard>\n</Content>\n</IPC-2581>\n";
}

TEST_F(Check, TellsOfTheExampleBoardInEachFormat)
{
    ExpectGoldenListings("check");
}

TEST_F(Check, TellsAllLinesIfAsked)
{
    const Result check = RunProgram({"check", "--all", ExampleBoard()});
    EXPECT_EQ(check, (Result{0, Golden("check-all.txt", check.out), ""}));
}

TEST(CheckStatus, IsOneWhereAListingIsChanged)
{
    const TempFolder folder;
    const auto status = [&](const std::string & board, const std::vector<std::string> & options = {}) {
        std::vector<std::string> arguments = {"check", folder.Save("board.cvg", board)};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return RunProgram(arguments).status;
    };
    const std::string whole = Bytes(ExampleBoard());
    EXPECT_EQ(status(whole), 0);
    EXPECT_EQ(status(SmallBoard("<Route/>")), 0);
    EXPECT_EQ(status(""), 1);
    EXPECT_EQ(status("\x01\xfe nothing that anybody knows"), 1);
    EXPECT_EQ(status("<IPC-2581/>"), 1);
    EXPECT_EQ(status(whole.substr(0, whole.find('\n', whole.size() / 2) + 1)), 1);
    EXPECT_EQ(status(SmallBoard("<Component packageRef=\"none\"/>")), 1);
    EXPECT_EQ(status(SmallBoard("</Step><Step name=\"two\">")), 1);

    EXPECT_EQ(status(SmallBoard(), {"--strict"}), 0);
    EXPECT_EQ(status(SmallBoard("<Route/>"), {"--strict"}), 3);
    EXPECT_EQ(status(SmallBoard("</Step><Step name=\"two\">"), {"--strict"}), 3);
    EXPECT_EQ(status("", {"--strict"}), 1);
}

TEST_F(Check, TellsOfASmallBoardInFull)
{
    EXPECT_EQ(Run(SmallBoard("<Component refDes=\"R1\" weight=\"2\">\n"
                             "<Xform rotation=\"90\" mirror=\"true\"/>\n"
                             "<Slot name=\"S\"/>\n"
                             "</Component>\n")),
              "import\n"
              "  facts without a place  2\n"
              "  remarks of sets        0\n"
              "  notes                  0\n"
              "\n"
              "import notes\n"
              "  what is not as it stands  count  lines\n"
              "\n"
              "no place\n"
              "  element                           attributes  count  lines\n"
              "  Ecad/CadData/Step/Component       weight          1  9\n"
              "  Ecad/CadData/Step/Component/Slot  name            1  11\n"
              "\n"
              "check\n"
              "  lines                           16\n"
              "  well-formed XML                 yes\n"
              "  well-formed when written        yes\n"
              "  stops of the read               0\n"
              "  lines taken for others          0\n"
              "  values read otherwise           1\n"
              "  elements passed over            1\n"
              "  attributes passed over          1\n"
              "  attributes not written as read  1\n"
              "\n"
              "stops\n"
              "  what stops the read  count  lines\n"
              "\n"
              "structure\n"
              "  what is taken for something else  count  lines\n"
              "\n"
              "values\n"
              "  what is read otherwise                     count  lines\n"
              "  mirror=\"true\" of Xform is read as not set      1  10\n"
              "\n"
              "passed elements\n"
              "  element  in         count  lines\n"
              "  Slot     Component      1  11\n"
              "\n"
              "passed attributes\n"
              "  element    attribute  count  lines\n"
              "  Component  weight         1  9\n"
              "\n"
              "not written\n"
              "  element  attribute  written   count  lines\n"
              "  Xform    mirror     left out      1  10\n"
              "\n"
              "elements\n"
              "  element          file  taken  model  written\n"
              "  CadData             1      1               1\n"
              "  CadHeader           0      0               1\n"
              "  Component           1      1      1        1\n"
              "  Content             1      1               1\n"
              "  Datum               0      0               1\n"
              "  DictionaryColor     0      0               1\n"
              "  Ecad                1      1               1\n"
              "  FunctionMode        1      1               1\n"
              "  IPC-2581            1      1               1\n"
              "  Location            0      0               1\n"
              "  PhyNetGroup         0      0               1\n"
              "  PolyBegin           0      0               1\n"
              "  Polygon             0      0      0        1\n"
              "  Profile             0      0               1\n"
              "  Slot                1      0               0\n"
              "  Step                1      1               1\n"
              "  Xform               1      1               1\n");
}

TEST_F(Check, TellsOfAllLinesThatStopTheRead)
{
    EXPECT_EQ(Stops("<Component refDes=\"R1\">\n"
                    " \n"
                    "</Component>\n"
                    "\n"
                    "<Package name=\"a\" type=\"cut\n"
                    "off\">\n"
                    " \n"
                    "</Package>\n"),
              "a line of blanks | 2 | 10 15\n"
              "a value that is cut off at the end of its line: type of Package | 1 | 13\n");
}

TEST_F(Check, StopsOnlyAtValuesThatAreRead)
{
    EXPECT_EQ(Stops("<Package name=\"a\" note=\"cut\n"
                    "off\">\n"
                    "</Package>\n"),
              "");
}

TEST_F(Check, KnowsWhereBlanksAreHarmless)
{
    EXPECT_EQ(Rows(Run(Dictionary("  \n<EntryStandard id=\"a\">\n  \n\n</EntryStandard>\n\n")), "stops"), "");
    EXPECT_EQ(Rows(Run("<IPC-2581>\n\n<Content>\n\n<DictionaryColor>\n\n  \n</DictionaryColor>\n  \n</Content>\n"
                       "</IPC-2581>\n"),
                   "stops"),
              "an empty line inside Content | 1 | 4\n"
              "a line of blanks | 2 | 7 9\n");
}

TEST_F(Check, ModelAndWrittenFileEndWhereTheReadStops)
{
    const std::string lines = "<LogicalNet name=\"a\">\n</LogicalNet>\n \n<LogicalNet name=\"b\">\n</LogicalNet>\n";
    const std::string elements = Rows(Run(SmallBoard(lines)), "elements");
    EXPECT_NE(elements.find("LogicalNet | 2 | 2 | 1 | 1\n"), std::string::npos) << elements;
}

TEST_F(Check, TellsOfElementsThatSwallowWhatFollows)
{
    for (const std::string name : {"Profile", "PadStack", "Package", "Component", "LogicalNet", "PhyNetGroup"}) {
        const std::string structure = Structure("<" + name + " a=\"b\"/>\n");
        EXPECT_NE(structure.find(name + " closes itself, and takes what follows up to the next </" + name + ">"),
                  std::string::npos)
            << structure;
    }
}

TEST_F(Check, KnowsASelfClosedElementThatIsHarmless)
{
    EXPECT_EQ(Structure("<Profile/>\n<Datum x=\"1\" y=\"2\"/>\n"), "");
}

TEST_F(Check, TellsWhatASwallowedElementLoses)
{
    const std::string out = Run(SmallBoard("<Component refDes=\"R1\"/>\n"
                                           "<Component refDes=\"R2\">\n"
                                           "</Component>\n"));
    EXPECT_EQ(Rows(out, "structure"),
              "Component closes itself, and takes what follows up to the next </Component> | 1 | 9\n");
    EXPECT_EQ(Rows(out, "passed elements"), "Component | Step | 1 | 10\n");
}

TEST_F(Check, TellsOfAnAssemblyDrawingWithoutOutline)
{
    EXPECT_EQ(Structure("<Package name=\"a\">\n"
                        "<AssemblyDrawing>\n"
                        "<Marking/>\n"
                        "</AssemblyDrawing>\n"
                        "<Pin number=\"1\">\n"
                        "<Outline>\n"
                        "</Outline>\n"
                        "</Pin>\n"
                        "</Package>\n"),
              "AssemblyDrawing without an Outline takes what follows up to the next </Outline> | 1 | 12\n");
}

TEST_F(Check, TellsOfSeveralTagsOnOneLine)
{
    EXPECT_EQ(Structure("<LogicalNet name=\"a\"><LogicalNetPin pin=\"1\"/>\n"
                        "</LogicalNet>\n"
                        "<LogicalNet name=\"b\"></LogicalNet>\n"
                        "<LogicalNet name=\"c\">\n"
                        "</LogicalNet></Step>\n"),
              "<LogicalNetPin> behind another tag on its line is not seen | 1 | 9\n"
              "</LogicalNet> stands on the line of its opening tag and is not seen | 1 | 11\n"
              "</Step> behind another tag on its line is not seen | 1 | 13\n");
}

TEST_F(Check, TellsOfElementsSplitOverLines)
{
    EXPECT_EQ(Structure("<Component refDes=\"R1\"\n"
                        " part=\"P\">\n"
                        "</Component>\n"),
              "Component is split over lines, and only its first line is seen | 1 | 9\n");
}

TEST_F(Check, TellsOfElementsThatEndElsewhere)
{
    EXPECT_EQ(Structure("<LogicalNet name=\"a\">\n"
                        "<LogicalNetPin pin=\"1\">\n"
                        "</LogicalNetPin>\n"
                        "</LogicalNet>\n"
                        "<Package name=\"p\">\n"),
              "LogicalNet ends at </LogicalNetPin> | 1 | 11\n"
              "Package does not end before </Step> | 1 | 14\n");
}

TEST_F(Check, TellsOfElementsThatShareOnePlace)
{
    EXPECT_EQ(Structure("<LayerFeature layerRef=\"L\">\n"
                        "<Set>\n"
                        "<Pad pin=\"1\">\n"
                        "</Pad>\n"
                        "<Pad pin=\"2\">\n"
                        "</Pad>\n"
                        "<Hole name=\"H\" diameter=\"1\"/>\n"
                        "</Set>\n"
                        "<Set>\n"
                        "<Features>\n"
                        "</Features>\n"
                        "<Features>\n"
                        "</Features>\n"
                        "</Set>\n"
                        "</LayerFeature>\n"
                        "<Profile>\n"
                        "<Polygon>\n"
                        "</Polygon>\n"
                        "<Polygon>\n"
                        "</Polygon>\n"
                        "</Profile>\n"),
              "<Pad> takes the place of <Pad> in the same Set | 1 | 13\n"
              "<Hole> takes the place of <Pad> in the same Set | 1 | 15\n"
              "a second <Features> in Set goes into the first | 1 | 20\n"
              "a second <Polygon> in Profile goes into the first | 1 | 27\n");
}

TEST_F(Check, TellsOfWordsThatAreReadOtherwise)
{
    EXPECT_EQ(Rows(Run(Bom("<BomItem quantity=\"1\" description=\"quantity of one\">\n"
                           "<RefDes name=\"R1\" populate=\"true\"/>\n"
                           "<RefDes name=\"R2\" populate=\"TRUE\"/>\n"
                           "<RefDes name=\"R3\" populate=\"false\"/>\n"
                           "</BomItem>\n")),
                   "values"),
              "description is taken for quantity of BomItem | 1 | 3\n"
              "populate=\"true\" of RefDes is read as not set | 1 | 4\n");
    EXPECT_EQ(Rows(Run(Dictionary("<EntryStandard id=\"a\">\n"
                                  "<RectRound width=\"1\" height=\"2\" radius=\"x\" upperRight=\"TRUE\"/>\n"
                                  "<Circle diameter=\"1\">\n"
                                  "</Circle>\n"
                                  "</EntryStandard>\n")),
                   "values"),
              "radius of RectRound is no plain number | 1 | 5\n"
              "upperRight=\"TRUE\" of RectRound is read as not set | 1 | 5\n"
              "</Circle> is taken for <Circle> | 1 | 7\n");
}

TEST_F(Check, TellsOfFlagsInLowerCase)
{
    EXPECT_EQ(Values("<PhyNetGroup name=\"g\">\n"
                     "<PhyNet name=\"n\">\n"
                     "<PhyNetPoint x=\"1\" y=\"2\" via=\"true\" test=\"true\">\n"
                     "</PhyNetPoint>\n"
                     "</PhyNet>\n"
                     "</PhyNetGroup>\n"
                     "<LayerFeature layerRef=\"L\">\n"
                     "<Set net=\"a\" plate=\"true\" testPoint=\"1\">\n"
                     "</Set>\n"
                     "</LayerFeature>\n"),
              "via=\"true\" of PhyNetPoint is read as not set | 1 | 11\n"
              "test=\"true\" of PhyNetPoint is read as not set | 1 | 11\n"
              "plate=\"true\" of Set is read as not set | 1 | 16\n"
              "testPoint=\"1\" of Set is read as not set | 1 | 16\n");
}

TEST_F(Check, TellsOfTextsThatAreChanged)
{
    EXPECT_EQ(Values("<Component refDes=\"A/B\" part=\"a  b\" packageRef=\"a&amp;b\" layerRef='L'>\n"
                     "<Location x=\"1\" y=\"2\"/>\n"
                     "</Component>\n"),
              "refDes of Component loses its slashes | 1 | 9\n"
              "part of Component loses blanks out of runs | 1 | 9\n"
              "packageRef of Component keeps entities as they stand | 1 | 9\n"
              "layerRef of Component in single quotes is not understood | 1 | 9\n");
}

TEST_F(Check, TellsOfCommentsThatAreRead)
{
    const std::string values = Values("<!--\n"
                                      "<LogicalNet name=\"old\">\n"
                                      "</LogicalNet>\n"
                                      "-->\n"
                                      "<!-- <Component refDes=\"R1\"> -->\n");
    EXPECT_EQ(values, "a comment or a text is taken for <LogicalNet> | 1 | 10\n");
}

TEST_F(Check, SumsUpEqualFindings)
{
    std::string lines;
    for (int i = 0; i < 12; ++i) {
        lines += "<Slot a=\"1\"/>\n";
    }
    EXPECT_EQ(Rows(Run(SmallBoard(lines)), "passed elements"),
              "Slot | Step | 12 | 9 10 11 12 13 14 15 16 17 18 and 2 more\n");
    EXPECT_EQ(Rows(Run(SmallBoard(lines), {"--all"}), "passed elements"),
              "Slot | Step | 12 | 9 10 11 12 13 14 15 16 17 18 19 20\n");
}

TEST_F(Check, GoesThroughTheLinesOfWhatIsNoXml)
{
    const std::string out = Run("<IPC-2581>\n<Ecad name=\"a\">\n<CadHeader units=\"MM\">\n</Ecad>\n</IPC-2581>\n");
    EXPECT_NE(
        out.find("  well-formed XML                 no\n  XML error                       line 4: mismatched tag\n"),
        std::string::npos)
        << out;
    EXPECT_NE(out.find("  Ecad                1      1               1\n"), std::string::npos) << out;
}

TEST_F(Check, KnowsTheElementAroundBehindClosingTagsThatNothingOpened)
{
    // So many that a search for each of them would take minutes.
    constexpr int many = 100000;
    std::string lines;
    for (int i = 0; i < many; ++i) {
        lines += "<Outer>\n";
    }
    for (int i = 0; i < many; ++i) {
        lines += "</Stray>\n";
    }
    lines += "<Inner>\n</Outer>\n<Behind/>\n";
    EXPECT_EQ(Rows(Run(SmallBoard(lines)), "passed elements"),
              "Outer | Step | 1 | 9\n"
              "Outer | Outer | 99999 | 10 11 12 13 14 15 16 17 18 19 and 99989 more\n"
              "Inner | Outer | 1 | 200009\n"
              "Behind | Outer | 1 | 200011\n");
}

TEST_F(Check, KnowsTheEncodingOfDesignTools)
{
    const auto wellFormed = [&](const std::string & encoding, const std::string & name) {
        const std::string report = Run("<?xml version=\"1.0\" encoding=\"" + encoding +
                                       "\"?>\n<IPC-2581>\n<Ecad name=\"" + name + "\">\n</Ecad>\n</IPC-2581>\n");
        const bool isGood = report.find("  well-formed XML                 yes\n") != std::string::npos;
        const std::string row = isGood ? "  well-formed XML                 " : "  XML error                       ";
        const std::size_t at = report.find(row) + row.size();
        return report.substr(at, report.find('\n', at) - at);
    };
    EXPECT_EQ(wellFormed("windows-1252", "10 \xb5m \x80 \xff"), "yes");
    EXPECT_EQ(wellFormed("Windows-1252", "plain"), "yes");
    EXPECT_EQ(wellFormed("windows-1252", "\x81"), "line 3: not well-formed (invalid token)");
    EXPECT_EQ(wellFormed("windows-1251", "plain"), "line 1: unknown encoding");
}

TEST_F(Check, TellsOfAnEmptyFile)
{
    const std::string out = Run("");
    EXPECT_NE(out.find("  lines                           0\n"
                       "  well-formed XML                 no\n"
                       "  XML error                       line 1: no element found\n"),
              std::string::npos)
        << out;
}

TEST_F(Check, GoesIntoAFile)
{
    const std::string file = m_folder.Path("check.txt");
    EXPECT_EQ(RunProgram({"check", ExampleBoard(), "-o", file}), (Result{0, "", ""}));
    EXPECT_EQ(Bytes(file), RunProgram({"check", ExampleBoard()}).out);
}

TEST_F(Check, LeavesTheBoardAlone)
{
    const std::string board = m_folder.Save("board.cvg", SmallBoard());
    EXPECT_EQ(RunProgram({"check", board}).status, 0);
    EXPECT_EQ(Bytes(board), SmallBoard());
    EXPECT_EQ(RunProgram({"check", board, "-o", board}),
              Failure(board + ": is the board itself, which is never overwritten"));
}

TEST_F(Check, NeedsABoard)
{
    const std::string file = m_folder.Path("none.cvg");
    EXPECT_EQ(RunProgram({"check", file}), Failure(file + ": No such file or directory"));
    EXPECT_EQ(RunProgram({"check"}), WrongUsage("BOARD is required"));
}

}  // namespace
}  // namespace ipc2581::tests
