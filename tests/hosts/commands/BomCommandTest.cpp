#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/hosts/Program.h"

namespace ipc2581::tests {
namespace {

constexpr const char * Heading =
    "quantity,part number,part,pins,category,description,package,fitted,not fitted,value,makers' parts\n";

// A small board with these lines in its bill of materials.
std::string BoardWithItems(const std::string & items, const std::string & stepLines = "")
{
    std::string board = SmallBoard(stepLines);
    return board.insert(board.find("<Ecad"), "<Bom name=\"bom\">\n" + items + "</Bom>\n");
}

Result Csv(const std::string & board)
{
    return RunProgram({"bom", board, "--format", "csv"});
}

Result ExactCsv(const std::string & board)
{
    return RunProgram({"bom", board, "--format", "csv", "--exact"});
}

TEST(BomCommand, ListsTheExampleBoardInEachFormat)
{
    ExpectGoldenListings("bom");
}

TEST(BomCommand, GoesIntoAFile)
{
    const TempFolder folder;
    const std::string file = folder.Path("bom.csv");
    EXPECT_EQ(RunProgram({"bom", ExampleBoard(), "-f", "csv", "-o", file}), (Result{0, "", ""}));
    EXPECT_EQ(Bytes(file), Csv(ExampleBoard()).out);
}

TEST(BomCommand, SortsByDesignators)
{
    const TempFolder folder;
    const std::string board = folder.Save("b.cvg", BoardWithItems("<BomItem internalPartNumber=\"X\">\n"
                                                                  "<RefDes name=\"R20\" populate=\"FALSE\"/>\n"
                                                                  "<RefDes name=\"R10\" populate=\"TRUE\"/>\n"
                                                                  "<RefDes name=\"R9\" populate=\"TRUE\"/>\n"
                                                                  "<RefDes name=\"R8\" populate=\"FALSE\"/>\n"
                                                                  "</BomItem>\n"
                                                                  "<BomItem internalPartNumber=\"Y\">\n"
                                                                  "<RefDes name=\"R2\"/>\n"
                                                                  "</BomItem>\n"));
    EXPECT_EQ(RunProgram({"bom", board, "--format", "csv", "--sort"}),
              (Result{0, std::string(Heading) + ",Y,,,,,,R2,,,\n,X,,,,,,R9 R10,R8 R20,,\n", ""}));
    EXPECT_EQ(Csv(board), (Result{0, std::string(Heading) + ",X,,,,,,R10 R9,R20 R8,,\n,Y,,,,,,R2,,,\n", ""}));
}

TEST(BomCommand, TakesPartAndPackageFromTheComponents)
{
    const TempFolder folder;
    const std::string component =
        "<Package name=\"P\">\n</Package>\n<Package name=\"P1\">\n</Package>\n<Package name=\"P2\">\n</Package>\n"
        "<Component refDes=\"R1\" packageRef=\"P1\" part=\"A\">\n</Component>\n"
        "<Component refDes=\"R2\" packageRef=\"P2\" part=\"A\">\n</Component>\n"
        "<Component refDes=\"R3\" packageRef=\"\" part=\"\">\n</Component>\n";
    const std::string designators = "<RefDes name=\"R1\"/>\n<RefDes name=\"R2\"/>\n<RefDes name=\"R3\"/>\n"
                                    "<RefDes name=\"R4\"/>\n</BomItem>\n";
    const std::string board =
        folder.Save("b.cvg", BoardWithItems("<BomItem quantity=\"4\">\n" + designators +
                                                "<BomItem quantity=\"04\" packageRef=\"P\">\n" + designators,
                                            component));
    EXPECT_EQ(Csv(board),
              (Result{0, std::string(Heading) + "4,,A,,,,P1 P2,R1 R2 R3 R4,,,\n04,,A,,,,P,R1 R2 R3 R4,,,\n", ""}));
}

TEST(BomCommand, GroupsItems)
{
    const auto item = [](const std::string & number, const std::string & quantity, const std::string & designators,
                         const std::string & value) {
        return "<BomItem internalPartNumber=\"" + number + "\" quantity=\"" + quantity + "\">" + designators +
               (value.empty() ? ""
                              : "<Characteristics><Textual textualCharacteristicName=\"Value\" "
                                "textualCharacteristicValue=\"" +
                                    value + "\"/></Characteristics>") +
               "</BomItem>\n";
    };
    const TempFolder folder;
    const std::string board = folder.Save(
        "b.xml", BoardWithItems(item("A", "2", "<RefDes name=\"R10\"/><RefDes name=\"R2\" populate=\"false\"/>", "1k") +
                                    item("B", "1.5", "<RefDes name=\"R1\"/>", "") +
                                    item("C", "many", "<RefDes name=\"R3\"/><RefDes name=\"R4\"/>", "1k"),
                                "<Package name=\"P\"/><Package name=\"Q\"/>\n"
                                "<Component refDes=\"R10\" packageRef=\"P\" part=\"X\"/>\n"
                                "<Component refDes=\"R1\" packageRef=\"P\" part=\"X\"/>\n"
                                "<Component refDes=\"R3\" packageRef=\"Q\"/>\n"));
    const auto grouped = [&](const std::string & group, const std::string & option) {
        std::vector<std::string> arguments = {"bom", board, "--format", "csv", "--group", group};
        if (!option.empty()) {
            arguments.push_back(option);
        }
        return RunProgram(arguments).out;
    };
    const std::string heading = ",quantity,items,part numbers,fitted,not fitted\n";
    EXPECT_EQ(grouped("value", ""), "value" + heading + "1k,4,2,A C,R10 R3 R4,R2\nX,1.5,1,B,R1,\n");
    EXPECT_EQ(grouped("value", "--sort"), "value" + heading + "X,1.5,1,B,R1,\n1k,4,2,A C,R3 R4 R10,R2\n");
    EXPECT_EQ(grouped("part", ""), "part" + heading + "X,3.5,2,A B,R10 R1,R2\nC,2,1,C,R3 R4,\n");
    EXPECT_EQ(grouped("package", ""), "package" + heading + "P,3.5,2,A B,R10 R1,R2\nQ,2,1,C,R3 R4,\n");
    EXPECT_EQ(RunProgram({"bom", board, "--group", "size"}),
              WrongUsage("--group: must be value, part or package, not size"));
}

TEST(BomCommand, WarnsOfWordsThatAreReadOtherwise)
{
    const TempFolder folder;
    const std::string board = folder.Save("b.cvg", BoardWithItems("<BomItem OEMDesignNumberRef=\"X\" pinCount=\"2\">\n"
                                                                  "<RefDes name=\"R1\" populate=\"true\"/>\n"
                                                                  "<RefDes name=\"R2\" populate=\"1\"/>\n"
                                                                  "<RefDes name=\"R3\" populate=\"false\"/>\n"
                                                                  "</BomItem>\n"));
    EXPECT_EQ(ExactCsv(board),
              (Result{0, std::string(Heading) + ",,,,,,,,R1 R2 R3,,\n",
                      Warning(board, "2 designators listed as not fitted (populate is not \"TRUE\" in upper case); 1 "
                                     "BOM item listed without a part number (OEMDesignNumberRef in the file); 1 BOM "
                                     "item listed without pins (pinCount in the file)")}));
}

TEST(BomCommand, WarnsOfWhatIsMissing)
{
    const TempFolder folder;
    const std::string empty = folder.Save("empty.cvg", SmallBoard());
    EXPECT_EQ(ExactCsv(empty), (Result{0, Heading, Warning(empty, "no BOM items in the file")}));
    const std::string closed = folder.Save("closed.cvg", BoardWithItems("<BomItem internalPartNumber=\"X\"/>\n"
                                                                        "<BomItem internalPartNumber=\"Y\">\n"
                                                                        "<RefDes name=\"R1\"/><RefDes name=\"R2\"/>\n"
                                                                        "</BomItem>\n"));
    EXPECT_EQ(ExactCsv(closed), (Result{0, std::string(Heading) + ",X,,,,,,R2,,,\n",
                                        Warning(closed, "1 of 2 BOM items missing; 1 of 2 designators missing")}));
}

TEST(BomCommand, SaysNothingOfHowThingsAreListedThatAreNot)
{
    const TempFolder folder;
    const std::string board = folder.Save("b.cvg", SmallBoard("<BomItem OEMDesignNumberRef=\"X\" pinCount=\"2\">\n"
                                                              "<RefDes name=\"R1\" populate=\"true\"/>\n"
                                                              "</BomItem>\n"));
    EXPECT_EQ(ExactCsv(board),
              (Result{0, Heading, Warning(board, "1 of 1 BOM items missing; 1 of 1 designators missing")}));
}

TEST(BomCommand, SaysWhatCannotBeRead)
{
    const TempFolder folder;
    const std::string stopped = folder.Save("stopped.cvg", BoardWithItems("   \n"));
    EXPECT_EQ(ExactCsv(stopped), Failure(stopped + ":7: a line of blanks stops the read"));
    EXPECT_EQ(ExactCsv("missing.cvg"), Failure("missing.cvg: No such file or directory"));
}

}  // namespace
}  // namespace ipc2581::tests
