#include <string>

#include <gtest/gtest.h>

#include "tests/hosts/Program.h"

namespace ipc2581::tests {
namespace {

constexpr const char * PhysicalHeading = "net,x,y,layer,exposure,node,via,primitive,test,units\n";

Result Csv(const std::string & board, const std::string & option)
{
    return RunProgram({"nets", board, "--format", "csv", option});
}

Result Csv(const std::string & board)
{
    return RunProgram({"nets", board, "--format", "csv"});
}

Result ExactCsv(const std::string & board, const std::string & option)
{
    return RunProgram({"nets", board, "--format", "csv", "--exact", option});
}

Result ExactCsv(const std::string & board)
{
    return RunProgram({"nets", board, "--format", "csv", "--exact"});
}

TEST(NetsCommand, ListsThePinsOfTheExampleBoardInEachFormat)
{
    ExpectGoldenListings("nets");
}

TEST(NetsCommand, ListsThePointsOfTheExampleBoard)
{
    const Result nets = RunProgram({"nets", "--physical", ExampleBoard()});
    EXPECT_EQ(nets, (Result{0, Golden("nets-physical.txt", nets.out), ""}));
}

TEST(NetsCommand, ConvertsPoints)
{
    const Result nets = OfExampleBoard("nets", {"--physical", "--units", "um", "--format", "csv"});
    EXPECT_NE(nets.out.find("\nGND,17300,16905,TOP,EXPOSED,END,no,SOIC_1.6X0.6_PIN1,no,micron\n"), std::string::npos)
        << nets.out;
}

TEST(NetsCommand, JsonTellsOfItsWarnings)
{
    const TempFolder folder;
    const std::string board = folder.Save("b.cvg", SmallBoard("<LogicalNet name=\"N\">\n"
                                                              "<PinRef componentRef=\"U1\" pin=\"1\"/>\n"
                                                              "</LogicalNet>\n"));
    const std::string imported = RunProgram({"nets", board, "--format", "json"}).out;
    EXPECT_NE(imported.find("\"warnings\": [\n    {\"kind\":\"dangling_reference\",\"line\":10,"), std::string::npos)
        << imported;
    const std::string exact = RunProgram({"nets", board, "--format", "json", "--exact"}).out;
    EXPECT_NE(exact.find("\"warnings\": [\n    {\"kind\":\"not_read\",\"line\":null,\"text\":\"1 of 1 pins of nets "
                         "missing\"}\n  ],"),
              std::string::npos)
        << exact;
}

TEST(NetsCommand, SortsNetsAndPins)
{
    const TempFolder folder;
    const std::string board = folder.Save("b.cvg", SmallBoard("<Component refDes=\"U1\"/>\n"
                                                              "<LogicalNet name=\"N10\">\n"
                                                              "<LogicalNetPin componentRef=\"U1\" pin=\"10\"/>\n"
                                                              "<LogicalNetPin componentRef=\"U1\" pin=\"9\"/>\n"
                                                              "</LogicalNet>\n"
                                                              "<LogicalNet name=\"N9\">\n"
                                                              "</LogicalNet>\n"));
    EXPECT_EQ(Csv(board), (Result{0, "net,count,pins,class\nN10,2,U1.10 U1.9,\nN9,0,,\n", ""}));
    EXPECT_EQ(Csv(board, "--sort"), (Result{0, "net,count,pins,class\nN9,0,,\nN10,2,U1.9 U1.10,\n", ""}));
}

TEST(NetsCommand, WarnsOfPinsThatTheReaderPassesOver)
{
    const TempFolder folder;
    const std::string other = folder.Save("other.cvg", SmallBoard("<LogicalNet name=\"N\">\n"
                                                                  "<PinRef componentRef=\"U1\" pin=\"1\"/>\n"
                                                                  "</LogicalNet>\n"));
    EXPECT_EQ(ExactCsv(other),
              (Result{0, "net,count,pins,class\nN,0,,\n", Warning(other, "1 of 1 pins of nets missing")}));
    // The second pin, behind the end of its net, is a net without a name.
    const std::string split = folder.Save("split.cvg", SmallBoard("<LogicalNet name=\"N\">\n"
                                                                  "<LogicalNetPin componentRef=\"U1\" pin=\"1\">\n"
                                                                  "</LogicalNetPin>\n"
                                                                  "<LogicalNetPin componentRef=\"U2\" pin=\"2\">\n"
                                                                  "</LogicalNetPin>\n"
                                                                  "</LogicalNet>\n"));
    EXPECT_EQ(ExactCsv(split),
              (Result{0, "net,count,pins,class\nN,1,U1.1,\n,0,,\n", Warning(split, "1 of 2 pins of nets missing")}));
}

TEST(NetsCommand, PinsOfPadsAreNotThoseOfNets)
{
    const TempFolder folder;
    const std::string board = folder.Save("b.cvg", SmallBoard("<LogicalNet name=\"N\">\n"
                                                              "<LogicalNetPin componentRef=\"U1\" pin=\"1\"/>\n"
                                                              "</LogicalNet>\n"
                                                              "<LayerFeature layerRef=\"TOP\">\n<Set>\n<Pad>\n"
                                                              "<PinRef componentRef=\"U1\" pin=\"1\"/>\n"
                                                              "</Pad>\n</Set>\n</LayerFeature>\n"));
    EXPECT_EQ(ExactCsv(board), (Result{0, "net,count,pins,class\nN,1,U1.1,\n", ""}));
}

TEST(NetsCommand, WarnsOfPointsThatAreReadOtherwise)
{
    const TempFolder folder;
    const std::string point = "<PhyNetPoint x=\"1\" y=\"2\" layerRef=\"TOP\" netNode=\"END\" exposure=\"EXPOSED\" ";
    const std::string board =
        folder.Save("b.cvg", SmallBoard("<PhyNetGroup name=\"g\">\n<PhyNet name=\"N\">\n" + point +
                                        "via=\"true\">\n</PhyNetPoint>\n" + point + "via=\"TRUE\"/>\n" + point +
                                        ">\n</PhyNetPoint>\n" + "</PhyNet>\n</PhyNetGroup>\n"));
    EXPECT_EQ(
        ExactCsv(board, "--physical"),
        (Result{
            0, std::string(PhysicalHeading) + "N,1,2,TOP,EXPOSED,END,no,,no,\nN,1,2,TOP,EXPOSED,END,yes,,no,\n",
            Warning(board,
                    "1 of 3 points of nets missing; 1 point listed as no via (via is not \"TRUE\" in upper case)")}));
}

TEST(NetsCommand, SaysNothingOfHowThingsAreListedThatAreNot)
{
    const TempFolder folder;
    std::string text = SmallBoard();
    text.insert(text.find("<Step"), "<PhyNet name=\"N\">\n<PhyNetPoint via=\"true\"/>\n</PhyNet>\n");
    const std::string board = folder.Save("b.cvg", text);
    EXPECT_EQ(
        ExactCsv(board, "--physical"),
        (Result{0, PhysicalHeading, Warning(board, "1 of 1 physical nets missing; 1 of 1 points of nets missing")}));
}

TEST(NetsCommand, WarnsOfABoardWithoutNets)
{
    const TempFolder folder;
    const std::string board = folder.Save("b.cvg", SmallBoard());
    EXPECT_EQ(ExactCsv(board), (Result{0, "net,count,pins,class\n", Warning(board, "no logical nets in the file")}));
    EXPECT_EQ(ExactCsv(board, "--physical"),
              (Result{0, PhysicalHeading, Warning(board, "no physical nets in the file")}));
}

}  // namespace
}  // namespace ipc2581::tests
