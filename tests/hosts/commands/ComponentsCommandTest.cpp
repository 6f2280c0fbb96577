#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/hosts/Program.h"

namespace ipc2581::tests {
namespace {

constexpr const char * Heading =
    "designator,package,part,layer,side,mount,x,y,rotation,mirror,height,standoff,fitted,value,units\n";

// A small board with a layer TOP and these lines in its step.
std::string BoardWithStep(const std::string & stepLines)
{
    std::string board = SmallBoard(stepLines);
    return board.insert(board.find("<Step"), "<Layer name=\"TOP\" layerFunction=\"SIGNAL\" side=\"TOP\">\n</Layer>\n");
}

std::string Component(const std::string & name, const std::string & layer, const std::string & transform)
{
    return "<Component refDes=\"" + name + "\" layerRef=\"" + layer + "\">\n" + transform +
           "\n<Location x=\"1\" y=\"-2.5\"/>\n</Component>\n";
}

Result Csv(const std::string & board)
{
    return RunProgram({"components", board, "--format", "csv"});
}

Result ExactCsv(const std::string & board)
{
    return RunProgram({"components", board, "--format", "csv", "--exact"});
}

TEST(ComponentsCommand, ListsTheExampleBoardInEachFormat)
{
    ExpectGoldenListings("components");
}

TEST(ComponentsCommand, SortsByDesignator)
{
    const TempFolder folder;
    const std::string turn = "<Xform rotation=\"90\" mirror=\"TRUE\"/>";
    const std::string board =
        folder.Save("b.cvg", BoardWithStep(Component("R10", "TOP", turn) + Component("R9", "TOP", turn)));
    const std::string nine = "R9,,,TOP,TOP,OTHER,1,-2.5,90,yes,0,,,,\n";
    const std::string ten = "R10,,,TOP,TOP,OTHER,1,-2.5,90,yes,0,,,,\n";
    EXPECT_EQ(Csv(board), (Result{0, Heading + ten + nine, ""}));
    EXPECT_EQ(RunProgram({"components", board, "--sort", "--format", "csv"}), (Result{0, Heading + nine + ten, ""}));
}

TEST(ComponentsCommand, TellsFittingValueAndHeight)
{
    const TempFolder folder;
    std::string text = BoardWithStep("<Package name=\"P\"></Package>\n"
                                     "<Component refDes=\"R1\" packageRef=\"P\" layerRef=\"TOP\" height=\"1.25\" "
                                     "standoff=\"0.1\">\n<Location x=\"1\" y=\"-2.5\"/>\n</Component>\n"
                                     "<Component refDes=\"R2\" packageRef=\"P\" layerRef=\"TOP\"/>\n");
    text.insert(text.find("<CadData"), "<CadHeader units=\"MILLIMETER\"/>\n");
    text.insert(text.find("<Ecad"), "<Bom name=\"b\"><BomItem><RefDes name=\"R1\" populate=\"true\"/><RefDes "
                                    "name=\"R2\" populate=\"false\"/><Characteristics><Textual "
                                    "textualCharacteristicName=\"Value\" textualCharacteristicValue=\"47k\"/>"
                                    "</Characteristics></BomItem></Bom>\n");
    const std::string board = folder.Save("b.cvg", text);
    EXPECT_EQ(Csv(board), (Result{0,
                                  std::string(Heading) + "R1,P,,TOP,TOP,OTHER,1,-2.5,0,no,1.25,0.1,yes,47k,millimeter\n"
                                                         "R2,P,,TOP,TOP,OTHER,0,0,0,no,0,,no,47k,millimeter\n",
                                  ""}));
    EXPECT_EQ(RunProgram({"components", board, "--units", "um"}).out,
              "designator  package  part  layer  side  mount  x (um)  y (um)  rotation  mirror  height (um)  "
              "standoff (um)  fitted  value\n"
              "R1          P              TOP    TOP   OTHER    1000   -2500         0  no             1250  "
              "          100  yes     47k\n"
              "R2          P              TOP    TOP   OTHER       0       0         0  no                0  "
              "               no      47k\n");
}

// A part on each side, and one that the bill of materials does not know. R2 is not fitted.
std::string BoardWithThreeParts()
{
    std::string text = BoardWithStep("<Package name=\"P\"></Package>\n"
                                     "<Component refDes=\"R1\" packageRef=\"P\" part=\"A\" layerRef=\"TOP\"><Xform "
                                     "rotation=\"90\"/><Location x=\"1\" y=\"2\"/></Component>\n"
                                     "<Component refDes=\"R2\" packageRef=\"P\" part=\"A\" layerRef=\"BOT\"><Xform "
                                     "rotation=\"90\" mirror=\"true\"/><Location x=\"3\" y=\"4\"/></Component>\n"
                                     "<Component refDes=\"R3\" packageRef=\"P\" part=\"C\" layerRef=\"BOT\"><Xform "
                                     "rotation=\"-30\"/><Location x=\"5\" y=\"6\"/></Component>\n");
    text.insert(text.find("<Step"), "<Layer name=\"BOT\" layerFunction=\"SIGNAL\" side=\"BOTTOM\"/>\n");
    text.insert(text.find("<CadData"), "<CadHeader units=\"MILLIMETER\"/>\n");
    return text.insert(text.find("<Ecad"),
                       "<Bom name=\"b\"><BomItem><RefDes name=\"R1\" populate=\"true\"/><RefDes name=\"R2\" "
                       "populate=\"false\"/><Characteristics><Textual textualCharacteristicName=\"Value\" "
                       "textualCharacteristicValue=\"47k\"/></Characteristics></BomItem></Bom>\n");
}

// What is listed of it as CSV.
std::string Chosen(std::vector<std::string> options)
{
    const TempFolder folder;
    options.insert(options.begin(), {"components", folder.Save("b.xml", BoardWithThreeParts()), "--format", "csv"});
    const Result result = RunProgram(options);
    EXPECT_EQ(result.status, 0) << result;
    return result.out;
}

TEST(ComponentsCommand, ListsUnderTheHeadsOfOtherPrograms)
{
    EXPECT_EQ(Chosen({"--columns", "placement"}), "Designator,Mid X,Mid Y,Layer,Rotation\n"
                                                  "R1,1,2,Top,90\nR2,3,4,Bottom,90\nR3,5,6,Bottom,-30\n");
    EXPECT_EQ(Chosen({"--columns", "position", "--units", "um"}),
              "Ref,Val,Package,PosX,PosY,Rot,Side\n"
              "R1,47k,P,1000,2000,90,top\nR2,47k,P,3000,4000,90,bottom\nR3,C,P,5000,6000,-30,bottom\n");
}

TEST(ComponentsCommand, ListsTheColumnsThatAreAskedFor)
{
    EXPECT_EQ(Chosen({"--columns", "x,designator"}),
              "x,designator,units\n1,R1,millimeter\n3,R2,millimeter\n5,R3,millimeter\n");
    EXPECT_EQ(Chosen({"--columns", "side"}), "side\nTOP\nBOTTOM\nBOTTOM\n");
    for (const std::string columns : {"x,", "Mid X", "placement,x", ""}) {
        EXPECT_EQ(
            RunProgram({"components", ExampleBoard(), "--columns", columns}),
            WrongUsage("--columns: must be placement, position, or some of designator, package, part, layer, side, "
                       "mount, x, y, rotation, mirror, height, standoff, fitted, value, not " +
                       columns));
    }
}

TEST(ComponentsCommand, LeavesOutWhatIsNotFitted)
{
    EXPECT_EQ(Chosen({"--columns", "designator", "--fitted"}), "designator\nR1\nR3\n");
}

TEST(ComponentsCommand, TurnsPartsAtTheBottomAsSeenFromBelowOrAbove)
{
    EXPECT_EQ(Chosen({"--columns", "rotation", "--bottom-rotation", "below"}), "rotation\n90\n90\n-30\n");
    EXPECT_EQ(Chosen({"--columns", "rotation", "--bottom-rotation", "above"}), "rotation\n90\n270\n30\n");
    EXPECT_EQ(RunProgram({"components", ExampleBoard(), "--bottom-rotation", "left"}),
              WrongUsage("--bottom-rotation: must be below or above, not left"));
}

TEST(ComponentsCommand, RefusesToConvertWhatHasNoUnits)
{
    const TempFolder folder;
    const std::string board = folder.Save("b.cvg", SmallBoard());
    EXPECT_EQ(RunProgram({"components", board, "--units", "mm"}),
              Failure(board + ": does not tell its units, so that lengths cannot be listed in mm"));
    EXPECT_EQ(RunProgram({"components", board, "--units", "cm"}),
              WrongUsage("--units: must be mm, inch, mil or um, not cm"));
}

TEST(ComponentsCommand, WarnsOfWordsThatAreReadOtherwise)
{
    const TempFolder folder;
    const std::string board = folder.Save(
        "b.cvg", BoardWithStep("<Package name=\"P\">\n<Pin number=\"1\">\n<Xform mirror=\"true\"/>\n</Pin>\n"
                               "</Package>\n" +
                               Component("R1", "TOP", "<Xform mirror=\"true\"/>") +
                               Component("R2", "BOTTOM", "<Xform mirror=\"false\"/>")));
    EXPECT_EQ(
        ExactCsv(board),
        (Result{0,
                std::string(Heading) + "R1,,,TOP,TOP,OTHER,1,-2.5,0,no,0,,,,\nR2,,,BOTTOM,,OTHER,1,-2.5,0,no,0,,,,\n",
                Warning(board, "1 component listed without a side (on a layer that was not read); 1 component listed "
                               "as not mirrored (mirror is not \"TRUE\" in upper case)")}));
}

TEST(ComponentsCommand, WarnsOfWhatIsMissing)
{
    const TempFolder folder;
    const std::string empty = folder.Save("empty.cvg", SmallBoard());
    EXPECT_EQ(ExactCsv(empty), (Result{0, Heading, Warning(empty, "no components in the file")}));
    const std::string closed = folder.Save(
        "closed.cvg", BoardWithStep("<Component refDes=\"R1\" layerRef=\"TOP\"/>\n" + Component("R2", "TOP", "")));
    EXPECT_EQ(ExactCsv(closed), (Result{0, std::string(Heading) + "R1,,,TOP,TOP,OTHER,1,-2.5,0,no,0,,,,\n",
                                        Warning(closed, "1 of 2 components missing")}));
}

TEST(ComponentsCommand, SaysNothingOfHowThingsAreListedThatAreNot)
{
    const TempFolder folder;
    std::string text = SmallBoard();
    text.insert(text.find("<Step"), Component("R1", "TOP", "<Xform mirror=\"true\"/>"));
    const std::string board = folder.Save("b.cvg", text);
    EXPECT_EQ(ExactCsv(board), (Result{0, Heading, Warning(board, "1 of 1 components missing")}));
}

TEST(ComponentsCommand, ClosedComponentHoldsNoTransform)
{
    const TempFolder folder;
    const std::string board =
        folder.Save("b.cvg", BoardWithStep("<Component refDes=\"R1\" layerRef=\"TOP\"/>\n</Component>\n"
                                           "<Package name=\"P\">\n<Pin number=\"1\">\n<Xform mirror=\"true\"/>\n"
                                           "</Pin>\n</Package>\n"));
    EXPECT_EQ(ExactCsv(board), (Result{0, std::string(Heading) + "R1,,,TOP,TOP,OTHER,0,0,0,no,0,,,,\n", ""}));
}

TEST(ComponentsCommand, SaysWhatCannotBeRead)
{
    const TempFolder folder;
    const std::string cut = folder.Save("cut.cvg", BoardWithStep("<Component refDes=\"R1\" part=\n"));
    EXPECT_EQ(ExactCsv(cut), Failure(cut + ":11: a value that is cut off at the end of its line stops the read"));
}

}  // namespace
}  // namespace ipc2581::tests
