#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "tests/hosts/Program.h"

namespace ipc2581::tests {
namespace {

constexpr const char * Heading = "kind,name,change,property,before,after,units\n";

// The example board with a text replaced where it stands first.
std::string Replaced(const std::string & old, const std::string & text)
{
    std::string board = Bytes(ExampleBoard());
    const std::size_t at = board.find(old);
    EXPECT_NE(at, std::string::npos) << old;
    return board.replace(at, old.size(), text);
}

// What differs where the example board is changed.
Result Changed(const std::string & old, const std::string & text)
{
    const TempFolder folder;
    return RunProgram(
        {"diff", "--exact", ExampleBoard(), folder.Save("b.cvg", Replaced(old, text)), "--format", "csv"});
}

Result Different(const std::string & rows)
{
    return {1, Heading + rows, ""};
}

TEST(DiffCommand, SaysNothingOfTheSameBoard)
{
    EXPECT_EQ(RunProgram({"diff", ExampleBoard(), ExampleBoard()}), (Result{0, "", ""}));
    EXPECT_EQ(RunProgram({"diff", ExampleBoard(), ExampleBoard(), "--format", "csv"}), (Result{0, Heading, ""}));
    EXPECT_NE(RunProgram({"diff", ExampleBoard(), ExampleBoard(), "--format", "json"})
                  .out.find(",\n  \"differences\": []\n}\n"),
              std::string::npos);
}

TEST(DiffCommand, TellsOfEachKindOfChange)
{
    EXPECT_EQ(Changed("<CadHeader units=\"MILLIMETER\"", "<CadHeader units=\"INCH\""),
              Different("board,,changed,units,MILLIMETER,INCH,millimeter inch\n"));
    EXPECT_EQ(Changed("<PolyBegin x=\"3.000000\" y=\"0.000000\" />", "<PolyBegin x=\"3.100000\" y=\"0.000000\" />"),
              Different("board,,changed,profile,,,millimeter\n"));
    EXPECT_EQ(Changed("name=\"CORE\" layerFunction=\"DIELCORE\"", "name=\"CORE\" layerFunction=\"PLANE\""),
              Different("layer,CORE,changed,function,DIELCORE,PLANE,millimeter\n"));
    EXPECT_EQ(Changed("materialType=\"FR4\" thickness=\"1.530000\"", "materialType=\"FR4\" thickness=\"1\""),
              Different("stackup layer,CORE,changed,thickness,1.53,1,millimeter\n"));
    EXPECT_EQ(Changed("<Circle diameter=\"0.800000\"", "<Circle diameter=\"0.9\""),
              Different("shape,VIA_0.8,changed,drawing,,,millimeter\n"));
    EXPECT_EQ(Changed("diameter=\"0.4\" platingStatus", "diameter=\"0.5\" platingStatus"),
              Different("pad stacks,,changed,pads and holes,1,1,millimeter\n"));
    EXPECT_EQ(Changed("<Package name=\"SOIC8\" type=\"SOIC\"", "<Package name=\"SOIC8\" type=\"SOP\""),
              Different("package,SOIC8,changed,type,SOIC,SOP,millimeter\n"));
    EXPECT_EQ(Changed("<PolyBegin x=\"-1.950000\" y=\"-2.450000\" />", "<PolyBegin x=\"-2\" y=\"-2.450000\" />"),
              Different("package,SOIC8,changed,outline,,,millimeter\n"));
    EXPECT_EQ(Changed("<Location x=\"27.000000\" y=\"17.000000\"/>", "<Location x=\"28\" y=\"17.000000\"/>"),
              Different("component,R1,changed,x,27,28,millimeter\n"));
    EXPECT_EQ(
        Changed("name=\"C2\" packageRef=\"C0805\" populate=\"FALSE\"",
                "name=\"C2\" packageRef=\"C0805\" populate=\"TRUE\""),
        Different(
            "BOM item,CAP-10N,changed,fitted,,C2,millimeter\nBOM item,CAP-10N,changed,not fitted,C2,,millimeter\n"));
}

TEST(DiffCommand, TellsOfPinsAndPoints)
{
    const std::string board = Bytes(ExampleBoard());
    const std::size_t pin = board.find("<LogicalNetPin");
    const std::string line = board.substr(pin, board.find('\n', pin) - pin);
    EXPECT_EQ(Changed(line, "<LogicalNetPin componentRef=\"U9\" pin=\"7\" />"),
              Different("net,GND,changed,pins,U1.1,U9.7,millimeter\n"));
    EXPECT_EQ(Changed("<PhyNetPoint x=\"27.000000\" y=\"8.050000\"", "<PhyNetPoint x=\"28\" y=\"8.050000\""),
              Different("physical net,GND,changed,points,\"BOTTOM(27,8.05,EXPOSED,END,CAP_1.2X1.5)\","
                        "\"BOTTOM(28,8.05,EXPOSED,END,CAP_1.2X1.5)\",millimeter\n"));
}

TEST(DiffCommand, TellsOfRemovedAndAdded)
{
    const TempFolder folder;
    const std::string board = folder.Save("b.cvg", Replaced("<Component refDes=\"R1\"", "<Component refDes=\"R100\""));
    const Result expected = {1,
                             "kind       name  change   property  before (mm)  after (mm)\n"
                             "component  R1    removed\n"
                             "component  R100  added\n",
                             ""};
    EXPECT_EQ(RunProgram({"diff", "--exact", ExampleBoard(), board}), expected);
    const std::string file = folder.Path("diff.txt");
    EXPECT_EQ(RunProgram({"diff", "--exact", ExampleBoard(), board, "-o", file}), (Result{1, "", ""}));
    EXPECT_EQ(Bytes(file), expected.out);
}

TEST(DiffCommand, TellsOfWhatLiesOnALayer)
{
    std::string board = Bytes(ExampleBoard());
    const std::size_t feature = board.find("<LayerFeature layerRef=\"TOP\"");
    ASSERT_NE(feature, std::string::npos);
    const std::size_t value = board.find("lineWidth=\"", feature) + 11;
    const TempFolder folder;
    const std::string changed = folder.Save("b.cvg", board.replace(value, 1, "7"));
    const std::string where = "\"from 6,16.27 to 27,17.95 and 4 more shapes net VCC\"";
    EXPECT_EQ(RunProgram({"diff", ExampleBoard(), changed, "--format", "csv"}),
              Different("layer,TOP,changed,sets,1,1,millimeter\n"
                        "feature,TOP,removed,Polyline," +
                        where + ",,millimeter\nfeature,TOP,added,Polyline,," + where + ",millimeter\n"));
}

TEST(DiffCommand, ComparesWhatTheImportMakesOfBoth)
{
    const TempFolder folder;
    const auto board = [&](const std::string & name, const std::string & pin) {
        return folder.Save(name, SmallBoard("<Component refDes=\"U1\"/>\n<LogicalNet name=\"N\"><PinRef "
                                            "componentRef=\"U1\" pin=\"" +
                                            pin + "\"/></LogicalNet>\n"));
    };
    EXPECT_EQ(RunProgram({"diff", board("a.xml", "1"), board("b.xml", "2"), "--format", "csv"}),
              Different("net,N,changed,pins,U1.1,U1.2,\n"));
}

// A board in these units, where each length but zero is the given one.
std::string BoardInUnits(const std::string & units, const std::string & length)
{
    const std::string polygon = "<Polygon><PolyBegin x=\"0\" y=\"0\"/><PolyStepSegment x=\"@\" y=\"0\"/>"
                                "<PolyStepSegment x=\"0\" y=\"@\"/></Polygon>";
    const std::string stroke = "<LineDesc lineEnd=\"ROUND\" lineWidth=\"@\"/>";
    const std::string hole = " name=\"H\" diameter=\"@\" plusTol=\"@\" minusTol=\"0\" x=\"@\" y=\"0\" "
                             "platingStatus=\"VIA\"/>";
    const std::string turned = "<Xform rotation=\"45\"/><Location x=\"@\" y=\"0\"/>";
    const std::string sets = "<Set net=\"N\"><Hole" + hole + "</Set><Set><Pad>" + turned +
                             "<StandardPrimitiveRef id=\"C\"/></Pad></Set><Set><Features><Line startX=\"0\" "
                             "startY=\"0\" endX=\"@\" endY=\"0\">" +
                             stroke + "</Line></Features></Set>\n";
    std::string text =
        SmallBoard("<PadStack net=\"N\"><LayerHole" + hole + "</PadStack>\n<Profile>" + polygon +
                   "</Profile>\n<Package name=\"P\"><Outline>" + polygon + stroke +
                   "</Outline></Package>\n<Component refDes=\"U1\" packageRef=\"P\" layerRef=\"L\">" + turned +
                   "</Component>\n<LayerFeature layerRef=\"L\">\n" + sets + "</LayerFeature>\n");
    text.insert(text.find("</Content>"), "<DictionaryStandard units=\"" + units +
                                             "\"><EntryStandard id=\"C\"><Circle diameter=\"@\"/></EntryStandard>"
                                             "</DictionaryStandard>\n");
    text.insert(text.find("<Step"), "<Layer name=\"L\" layerFunction=\"SIGNAL\"/>\n");
    text.insert(text.find("<CadData"), "<CadHeader units=\"" + units + "\"/>\n");
    for (std::size_t at = text.find('@'); at != std::string::npos; at = text.find('@', at)) {
        text.replace(at, 1, length);
    }
    return text;
}

TEST(DiffCommand, ComparesBoardsOfDifferentUnits)
{
    const TempFolder folder;
    const std::string metric = folder.Save("a.xml", BoardInUnits("MILLIMETER", "25.4"));
    const std::string imperial = folder.Save("b.xml", BoardInUnits("INCH", "1"));
    const Result own = RunProgram({"diff", metric, imperial});
    EXPECT_EQ(own.status, 1);
    EXPECT_NE(own.out.find("before (mm)"), std::string::npos) << own;
    EXPECT_NE(own.out.find("feature     L     removed  hole"), std::string::npos) << own;
    const std::vector<std::pair<std::string, std::string>> units = {{"mil", "mil"}, {"mm", "millimeter"}};
    for (const auto & [unit, word] : units) {
        EXPECT_EQ(RunProgram({"diff", metric, imperial, "--units", unit, "--format", "csv"}),
                  (Result{1,
                          std::string(Heading) + "board,,changed,units,MILLIMETER,INCH," + word +
                              "\nboard,,changed,dictionary units,MILLIMETER,INCH," + word + "\n",
                          ""}));
    }
}

TEST(DiffCommand, JsonHasBothBoardsAndTypedValues)
{
    const TempFolder folder;
    const std::string changed = folder.Save(
        "b.cvg", Replaced("<Location x=\"27.000000\" y=\"17.000000\"/>", "<Location x=\"28\" y=\"17.000000\"/>"));
    const Result diff = OfExampleBoard("diff", {changed, "--format", "json"});
    EXPECT_EQ(diff.status, 1);
    EXPECT_EQ(diff.out, "{\n  \"file\": \"board.cvg\",\n  \"step\": \"blinker\",\n  \"units\": \"millimeter\",\n"
                        "  \"warnings\": [],\n  \"other\": {\n    \"file\": \"" +
                            changed +
                            "\",\n    \"step\": \"blinker\",\n    \"units\": \"millimeter\",\n    "
                            "\"warnings\": []\n  },\n  \"differences\": [\n"
                            "    {\"kind\":\"component\",\"name\":\"R1\",\"change\":\"changed\",\"property\":\"x\","
                            "\"before\":27,\"after\":28}\n  ]\n}\n");
}

TEST(DiffCommand, WarnsOfWhatWasNotCompared)
{
    const TempFolder folder;
    const std::string board = folder.Save("b.cvg", SmallBoard("<Package name=\"P\"><Pin number=\"1\"/></Package>\n"));
    const std::string warning = Warning(board, "1 of 1 pins of packages missing");
    EXPECT_EQ(RunProgram({"diff", "--exact", board, board}), (Result{2, "", warning + warning}));
    EXPECT_EQ(RunProgram({"diff", board, board}), (Result{0, "", ""}));
    const std::string empty = folder.Save("empty.cvg", SmallBoard());
    EXPECT_EQ(RunProgram({"diff", "--exact", empty, empty}), (Result{0, "", ""}));
}

TEST(DiffCommand, TroubleIsTwo)
{
    const Result missing = {2, "", "ipc2581: missing.cvg: No such file or directory\n"};
    EXPECT_EQ(RunProgram({"diff", ExampleBoard(), "missing.cvg"}), missing);
    EXPECT_EQ(RunProgram({"diff", "missing.cvg", ExampleBoard()}), missing);
    EXPECT_EQ(RunProgram({"diff", ExampleBoard()}), WrongUsage("B is required"));
    const TempFolder folder;
    const std::string board = folder.Save("b.cvg", SmallBoard());
    EXPECT_EQ(RunProgram({"diff", ExampleBoard(), board, "-o", board}),
              (Result{2, "", "ipc2581: " + board + ": is the board itself, which is never overwritten\n"}));
}

TEST(DiffCommand, TakesOneBoardFromAPipe)
{
    EXPECT_EQ(RunProgram({"diff", "-", ExampleBoard()}, {.input = ExampleBoard()}), (Result{0, "", ""}));
    EXPECT_EQ(RunProgram({"diff", ExampleBoard(), "/dev/stdin"}, {.input = ExampleBoard()}), (Result{0, "", ""}));
    EXPECT_EQ(RunShell("diff() { ipc2581 diff <(cat $1) <(cat $1); }; diff " + ExampleBoard()), (Result{0, "", ""}));
    for (const std::string other : {"-", "/dev/stdin"}) {
        EXPECT_EQ(
            RunProgram({"diff", "-", other}, {.input = ExampleBoard()}),
            (Result{2, "", "ipc2581: standard input: is there to be read once; give one of the boards as a file\n"}));
    }
}

TEST(DiffCommand, FullDiskIsTroubleToo)
{
    const TempFolder folder;
    const std::string out = folder.Path("diff.json");
    const Result result =
        RunProgram({"diff", ExampleBoard(), ExampleBoard(), "--format", "json", "-o", out}, {.fileLimit = 100});
    EXPECT_EQ(result, (Result{2, "", "ipc2581: " + out + ": cannot be written: File too large\n"}));
}

// Two boards in inch, each with these lines in its step, and in front of Ecad.
Result Compared(const std::string & before, const std::string & after, const std::string & items = "",
                const std::string & otherItems = "", std::vector<std::string> options = {})
{
    const TempFolder folder;
    const auto board = [&](const std::string & name, const std::string & lines, const std::string & bom) {
        std::string text = SmallBoard(lines);
        text.insert(text.find("<CadData"), "<CadHeader units=\"INCH\"/><Layer name=\"TOP\"/>\n");
        text.insert(text.find("<Ecad"), bom);
        return folder.Save(name, text);
    };
    std::vector<std::string> arguments = {"diff", board("a.xml", before, items), board("b.xml", after, otherItems),
                                          "--format", "csv"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    Result result = RunProgram(arguments);
    EXPECT_TRUE(result.out.starts_with(Heading)) << result.out;
    result.out.erase(0, std::string(Heading).size());
    result.err.clear();
    return result;
}

std::string NetOf(const std::string & name, const std::string & component)
{
    return "<LogicalNet name=\"" + name + "\"><PinRef componentRef=\"" + component +
           "\" pin=\"1\"/></LogicalNet>\n<PhyNetGroup><PhyNet name=\"" + name + "\"/></PhyNetGroup>\n";
}

TEST(DiffCommand, TellsARenamedNetOnce)
{
    const std::string pad = "<LayerFeature layerRef=\"TOP\"><Set net=\"";
    const std::string end = "\"><Pad/></Set></LayerFeature>\n";
    EXPECT_EQ(Compared(NetOf("A", "U1") + pad + "A" + end, NetOf("B", "U1") + pad + "B" + end),
              (Result{1, "net,A,renamed,name,A,B,inch\n", ""}));
    EXPECT_EQ(Compared(NetOf("A", "U1") + NetOf("B", "U2") + pad + "A" + end,
                       NetOf("A", "U2") + NetOf("B", "U1") + pad + "B" + end),
              (Result{1, "net,A,renamed,name,A,B,inch\nnet,B,renamed,name,B,A,inch\n", ""}));
}

TEST(DiffCommand, TellsOfFlagsValuesAndMakersParts)
{
    const auto item = [](const std::string & populate, const std::string & value, const std::string & part) {
        return "<Bom><BomItem OEMDesignNumberRef=\"N\"><RefDes name=\"R1\" populate=\"" + populate +
               "\"/><Characteristics><Textual textualCharacteristicName=\"Value\" textualCharacteristicValue=\"" +
               value +
               "\"/></Characteristics></BomItem></Bom><Avl><AvlItem OEMDesignNumber=\"N\"><AvlVmpn><AvlMpn name=\"" +
               part + "\"/></AvlVmpn></AvlItem></Avl>\n";
    };
    EXPECT_EQ(Compared("", "", item("true", "1k", "P"), item("false", "1k", "P")),
              (Result{1, "BOM item,N,changed,fitted,R1,,inch\nBOM item,N,changed,not fitted,,R1,inch\n", ""}));
    EXPECT_EQ(Compared("", "", item("true", "1k", "P"), item("true", "2k", "P")),
              (Result{1,
                      "BOM item,N,changed,value,1k,2k,inch\nwithout a place,Bom/BomItem/Characteristics/Textual,"
                      "changed,facts,1,1,inch\n",
                      ""}));
    EXPECT_EQ(Compared("", "", item("true", "1k", "P"), item("true", "1k", "Q")),
              (Result{1, "BOM item,N,changed,makers' parts,P,Q,inch\n", ""}));
}

TEST(DiffCommand, TellsWhatDiffersOnALayerAndWhere)
{
    const auto sets = [](int count, const std::string & more = "") {
        std::string text = "<LayerFeature layerRef=\"TOP\">" + more;
        for (int i = 0; i < count; ++i) {
            text += "<Set><Pad><Location x=\"" + std::to_string(i) + "\" y=\"2\"/></Pad></Set>";
        }
        return text + "</LayerFeature>\n";
    };
    EXPECT_EQ(Compared(sets(1), sets(2)),
              (Result{1, "layer,TOP,changed,sets,0,1,inch\nfeature,TOP,added,pad,,\"at 1,2\",inch\n", ""}));
    EXPECT_EQ(Compared(sets(1, "<Set net=\"N\"><Hole diameter=\"0.1\" platingStatus=\"VIA\" x=\"5\" y=\"6\"/></Set>"),
                       sets(1, "<Set net=\"N\"><Features><Line startX=\"1\" startY=\"2\" endX=\"3\" endY=\"4\"/>"
                               "</Features></Set>"))
                  .out.substr(0, 200),
              "layer,TOP,changed,sets,1,1,inch\nfeature,TOP,removed,hole,\"0.1 VIA at 5,6 net N\",,inch\n"
              "feature,TOP,added,Line,,\"from 1,2 to 3,4 net N\",inch\n");
    const Result many = Compared(sets(0), sets(13));
    // In the order of the board.
    std::size_t last = 0;
    for (int i = 0; i < 10; ++i) {
        const std::size_t at = many.out.find("\"at " + std::to_string(i) + ",2\"");
        EXPECT_NE(at, std::string::npos) << many.out;
        EXPECT_GT(at, last) << many.out;
        last = at;
    }
    EXPECT_EQ(std::count(many.out.begin(), many.out.end(), '\n'), 12);
    EXPECT_TRUE(many.out.ends_with("feature,TOP,added,\"more, see --all\",,3,inch\n")) << many.out;
    const Result all = Compared(sets(0), sets(13), "", "", {"--all"});
    EXPECT_EQ(std::count(all.out.begin(), all.out.end(), '\n'), 14);
}

TEST(DiffCommand, TellsOfFactsWithoutAPlace)
{
    EXPECT_EQ(Compared("<Odd a=\"1\"/>\n", "<Odd a=\"2\"/><Odd a=\"3\"/>\n"),
              (Result{1, "without a place,Ecad/CadData/Step/Odd,changed,facts,1,2,inch\n", ""}));
    EXPECT_EQ(
        Compared("", "", "<HistoryRecord number=\"1\" odd=\"1\"/>\n", "<HistoryRecord number=\"2\" odd=\"2\"/>\n"),
        (Result{0, "", ""}));
}

TEST(DiffCommand, IsTroubledWhereNotAllCouldBeCompared)
{
    const TempFolder folder;
    const std::string lower = folder.Save("b.cvg", Replaced("populate=\"TRUE\"", "populate=\"true\""));
    EXPECT_EQ(RunProgram({"diff", "--exact", lower, lower}).status, 2);
    EXPECT_EQ(RunProgram({"diff", lower, lower}).status, 0);
}

}  // namespace
}  // namespace ipc2581::tests
