#include <string>

#include <gtest/gtest.h>

#include "tests/hosts/Program.h"

namespace ipc2581::tests {
namespace {

constexpr const char * Heading = "kind,name,change,property,before,after\n";

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
    EXPECT_EQ(RunProgram({"diff", ExampleBoard(), ExampleBoard(), "--format", "json"}), (Result{0, "[]\n", ""}));
}

TEST(DiffCommand, TellsOfEachKindOfChange)
{
    EXPECT_EQ(Changed("<CadHeader units=\"MILLIMETER\"", "<CadHeader units=\"INCH\""),
              Different("board,,changed,units,MILLIMETER,INCH\n"));
    EXPECT_EQ(Changed("<PolyBegin x=\"3.000000\" y=\"0.000000\" />", "<PolyBegin x=\"3.100000\" y=\"0.000000\" />"),
              Different("board,,changed,profile,,\n"));
    EXPECT_EQ(Changed("name=\"CORE\" layerFunction=\"DIELCORE\"", "name=\"CORE\" layerFunction=\"PLANE\""),
              Different("layer,CORE,changed,function,DIELCORE,PLANE\n"));
    EXPECT_EQ(Changed("materialType=\"FR4\" thickness=\"1.530000\"", "materialType=\"FR4\" thickness=\"1\""),
              Different("stackup layer,CORE,changed,thickness,1.53,1\n"));
    EXPECT_EQ(Changed("<Circle diameter=\"0.800000\"", "<Circle diameter=\"0.9\""),
              Different("shape,VIA_0.8,changed,drawing,,\n"));
    EXPECT_EQ(Changed("diameter=\"0.4\" platingStatus", "diameter=\"0.5\" platingStatus"),
              Different("pad stacks,,changed,pads and holes,1,1\n"));
    EXPECT_EQ(Changed("<Package name=\"SOIC8\" type=\"SOIC\"", "<Package name=\"SOIC8\" type=\"SOP\""),
              Different("package,SOIC8,changed,type,SOIC,SOP\n"));
    EXPECT_EQ(Changed("<PolyBegin x=\"-1.950000\" y=\"-2.450000\" />", "<PolyBegin x=\"-2\" y=\"-2.450000\" />"),
              Different("package,SOIC8,changed,outline,,\n"));
    EXPECT_EQ(Changed("<Location x=\"27.000000\" y=\"17.000000\"/>", "<Location x=\"28\" y=\"17.000000\"/>"),
              Different("component,R1,changed,x,27,28\n"));
    EXPECT_EQ(Changed("name=\"C2\" packageRef=\"C0805\" populate=\"FALSE\"",
                      "name=\"C2\" packageRef=\"C0805\" populate=\"TRUE\""),
              Different("BOM item,CAP-10N,changed,fitted,,C2\nBOM item,CAP-10N,changed,not fitted,C2,\n"));
}

TEST(DiffCommand, TellsOfPinsAndPoints)
{
    const std::string board = Bytes(ExampleBoard());
    const std::size_t pin = board.find("<LogicalNetPin");
    const std::string line = board.substr(pin, board.find('\n', pin) - pin);
    EXPECT_EQ(Changed(line, "<LogicalNetPin componentRef=\"U9\" pin=\"7\" />"),
              Different("net,GND,changed,pins,U1.1,U9.7\n"));
    EXPECT_EQ(Changed("<PhyNetPoint x=\"27.000000\" y=\"8.050000\"", "<PhyNetPoint x=\"28\" y=\"8.050000\""),
              Different("physical net,GND,changed,points,\"BOTTOM(27,8.05,EXPOSED,END,CAP_1.2X1.5)\","
                        "\"BOTTOM(28,8.05,EXPOSED,END,CAP_1.2X1.5)\"\n"));
}

TEST(DiffCommand, TellsOfRemovedAndAdded)
{
    const TempFolder folder;
    const std::string board = folder.Save("b.cvg", Replaced("<Component refDes=\"R1\"", "<Component refDes=\"R100\""));
    const Result expected = {1,
                             "kind       name  change   property  before  after\n"
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
              Different("layer,TOP,changed,sets,1,1\n"));
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
              Different("net,N,changed,pins,U1.1,U1.2\n"));
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
    EXPECT_EQ(RunProgram({"diff", ExampleBoard(), ExampleBoard()}, {.fileLimit = 100}),
              (Result{2, "", "ipc2581: temporary file: cannot be written: File too large\n"}));
}

}  // namespace
}  // namespace ipc2581::tests
