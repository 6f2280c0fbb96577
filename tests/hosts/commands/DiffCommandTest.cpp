#include <string>

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
    EXPECT_EQ(RunProgram({"diff", ExampleBoard(), changed, "--format", "csv"}),
              Different("layer,TOP,changed,sets,1,1,millimeter\n"));
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

TEST(DiffCommand, ComparesBoardsOfDifferentUnits)
{
    const TempFolder folder;
    const auto board = [&](const std::string & name, const std::string & units, const std::string & x) {
        std::string text = SmallBoard("<Component refDes=\"U1\"><Location x=\"" + x + "\" y=\"0\"/></Component>\n");
        return folder.Save(name, text.insert(text.find("<CadData"), "<CadHeader units=\"" + units + "\"/>\n"));
    };
    const std::string metric = board("a.xml", "MILLIMETER", "25.4");
    const std::string imperial = board("b.xml", "INCH", "1");
    EXPECT_EQ(RunProgram({"diff", metric, imperial}),
              (Result{1,
                      "kind       name  change   property  before (mm)  after (inch)\n"
                      "board            changed  units     MILLIMETER   INCH\n"
                      "component  U1    changed  x         25.4         1\n",
                      ""}));
    EXPECT_EQ(RunProgram({"diff", metric, imperial, "--units", "mil", "--format", "csv"}),
              (Result{1, std::string(Heading) + "board,,changed,units,MILLIMETER,INCH,mil\n", ""}));
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
    const std::string board = folder.Save("b.cvg", SmallBoard());
    const std::string warning = Warning(board, "no BOM items in the file; no components in the file; no logical nets "
                                               "in the file; no physical nets in the file");
    EXPECT_EQ(RunProgram({"diff", "--exact", board, board}), (Result{0, "", warning + warning}));
    EXPECT_EQ(RunProgram({"diff", board, board}), (Result{0, "", ""}));
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

TEST(DiffCommand, FullDiskIsTroubleToo)
{
    EXPECT_EQ(RunProgram({"diff", ExampleBoard(), ExampleBoard()}, {.fileLimit = 100}),
              (Result{2, "", "ipc2581: temporary file: cannot be written: File too large\n"}));
}

}  // namespace
}  // namespace ipc2581::tests
