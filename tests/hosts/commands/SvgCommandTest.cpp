#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/hosts/Program.h"

namespace ipc2581::tests {
namespace {

namespace fs = std::filesystem;

// The picture of a board of which nothing but one layer, its contents and its unit is known.
std::string Picture(const std::string & layerLines, const std::string & unit = "MILLIMETER",
                    const std::string & name = "L", const std::vector<std::string> & options = {})
{
    const TempFolder folder;
    const std::string board = folder.Save("board.xml", "<IPC-2581>\n"
                                                       "<Content>\n"
                                                       "<DictionaryStandard units=\"INCH\">\n"
                                                       "<EntryStandard id=\"BIG\">\n"
                                                       "<RectCenter width=\"2\" height=\"1\"/>\n"
                                                       "</EntryStandard>\n"
                                                       "</DictionaryStandard>\n"
                                                       "</Content>\n"
                                                       "<Ecad name=\"e\">\n"
                                                       "<CadHeader units=\"" +
                                                           unit +
                                                           "\">\n"
                                                           "</CadHeader>\n"
                                                           "<CadData>\n"
                                                           "<Step name=\"s\">\n"
                                                           "<LayerFeature layerRef=\"" +
                                                           name + "\">\n" + layerLines +
                                                           "</LayerFeature>\n"
                                                           "</Step>\n"
                                                           "</CadData>\n"
                                                           "</Ecad>\n"
                                                           "</IPC-2581>\n");
    std::vector<std::string> arguments = {"svg", board, "-o", folder.Path("out")};
    arguments.insert(arguments.end(), options.begin(), options.end());
    EXPECT_EQ(RunProgram(arguments).status, 0);
    return Bytes(folder.Path("out/layer-" + name + ".svg"));
}

std::string ExactPicture(const std::string & layerLines)
{
    return Picture(layerLines, "MILLIMETER", "L", {"--exact"});
}

std::string Features(const std::string & lines)
{
    return "<Set>\n<Features>\n" + lines + "</Features>\n</Set>\n";
}

std::string Line(const std::string & startX, const std::string & endX, const std::string & lineDesc)
{
    return "<Line startX=\"" + startX + "\" startY=\"0\" endX=\"" + endX + "\" endY=\"0\">\n" + lineDesc +
           "\n</Line>\n";
}

void ExpectHolds(const std::string & text, const std::string & part)
{
    EXPECT_NE(text.find(part), std::string::npos) << part << "\nis not in\n" << text;
}

TEST(Svg, DrawsTheExampleBoard)
{
    const TempFolder folder;
    EXPECT_EQ(RunProgram({"svg", ExampleBoard(), "-o", folder.Path("new/pictures")}), (Result{0, "", ""}));
    const std::set<std::string> names = {"board-top.svg",         "board-bottom.svg",   "layer-BOTTOM.svg",
                                         "layer-CORE.svg",        "layer-DRILL.svg",    "layer-MASK_TOP.svg",
                                         "layer-SILK_BOTTOM.svg", "layer-SILK_TOP.svg", "layer-TOP.svg"};
    EXPECT_EQ(Names(folder.Path("new/pictures")), names);
    for (const std::string & name : names) {
        const std::string picture = Bytes(folder.Path("new/pictures/" + name));
        EXPECT_EQ(picture, Golden("svg-" + name, picture)) << name;
    }
}

TEST(Svg, TracksKeepWidthAndEnds)
{
    const std::string picture = Picture(Features(Line("1", "2", "<LineDesc lineEnd=\"ROUND\" lineWidth=\"0.2\"/>") +
                                                 Line("3", "4", "<LineDesc lineEnd=\"ROUND\" lineWidth=\"0.2\"/>") +
                                                 Line("5", "6", "<LineDesc lineEnd=\"SQUARE\" lineWidth=\"0.2\"/>") +
                                                 Line("7", "8", "<LineDesc lineEnd=\"NONE\" lineWidth=\"0.3\"/>")));
    ExpectHolds(picture, "<path class=\"t\" stroke-width=\".2\" d=\"M1 0H2M3 0H4\"/>\n"
                         "<path class=\"q\" stroke-width=\".2\" d=\"M5 0H6\"/>\n"
                         "<path class=\"n\" stroke-width=\".3\" d=\"M7 0H8\"/>\n");
}

TEST(Svg, FeaturesStandWhereTheirLocationIs)
{
    const std::string picture = Picture(Features("<Location x=\"10\" y=\"20\"/>\n<Circle diameter=\"2\"/>\n" +
                                                 Line("1", "2", "<LineDesc lineEnd=\"ROUND\" lineWidth=\"1\"/>")));
    ExpectHolds(picture, "<path d=\"M11 20A1 1 0 0 1 9 20A1 1 0 0 1 11 20Z\"/>\n");
    ExpectHolds(picture, "d=\"M11 20H12\"");
}

TEST(Svg, LineThatNobodyDrewIsLeftOut)
{
    const std::string picture =
        ExactPicture(Features("<Arc startX=\"5\" startY=\"5\" endX=\"6\" endY=\"6\" "
                              "centerX=\"5\" centerY=\"6\" clockwise=\"true\">\n"
                              "<LineDesc lineEnd=\"ROUND\" lineWidth=\"1\"/>\n</Arc>\n</Line>\n"));
    ExpectHolds(picture, "viewBox=\"-.02 -1.02 1.04 1.04\"");
    EXPECT_EQ(picture.find("<path class"), std::string::npos);
}

TEST(Svg, PadsUseTheShapesOfTheDictionaryInTheUnitOfTheBoard)
{
    const std::string pad = "<Set>\n<Pad pin=\"1\">\n<Xform rotation=\"90\"/>\n<Location x=\"100\" y=\"50\"/>\n"
                            "<StandardPrimitiveRef id=\"BIG\"/>\n</Pad>\n</Set>\n";
    const std::string unknown = "<Set>\n<Pad pin=\"2\">\n<StandardPrimitiveRef id=\"NONE\"/>\n</Pad>\n</Set>\n";
    const std::string picture = Picture(pad + unknown + pad);
    ExpectHolds(picture, "<defs><g id=\"s0\">\n<path d=\"M-25.4-12.7H25.4V12.7H-25.4Z\"/>\n</g></defs>\n"
                         "<use href=\"#s0\" transform=\"translate(100 50)rotate(90)\"/>\n"
                         "<use href=\"#s0\" transform=\"translate(100 50)rotate(90)\"/>\n</g>");
    ExpectHolds(picture, "width=\"27.432mm\" height=\"52.832mm\" viewBox=\"86.284 -76.416 27.432 52.832\"");
}

TEST(Svg, LengthsHaveTheUnitOfTheFile)
{
    const std::string circle = Features("<Location x=\"500\" y=\"500\"/>\n<Circle diameter=\"1000\"/>\n");
    ExpectHolds(Picture(circle, "MICRON"), "width=\"1.04mm\" height=\"1.04mm\" viewBox=\"-20 -1020 1040 1040\"");
    ExpectHolds(Picture(circle, "MIL"), "width=\"1.04in\" height=\"1.04in\" viewBox=\"-20 -1020 1040 1040\"");
    ExpectHolds(Picture(circle, "INCH"), "width=\"1040in\"");
    ExpectHolds(Picture(circle, "FURLONG"), "width=\"1040\"");
}

TEST(Svg, NamesOfFilesAreSafeAndDiffer)
{
    const TempFolder folder;
    const std::string board =
        folder.Save("board.xml", SmallBoard("<LayerFeature layerRef=\"../../a\">\n</LayerFeature>\n"
                                            "<LayerFeature layerRef=\"Top\">\n</LayerFeature>\n"
                                            "<LayerFeature layerRef=\"TOP\">\n</LayerFeature>\n"
                                            "<LayerFeature layerRef=\"\xff|*\">\n</LayerFeature>\n"));
    EXPECT_EQ(RunProgram({"svg", "--exact", board, "-o", folder.Path("out")}), (Result{0, "", ""}));
    EXPECT_EQ(Names(folder.Path("out")), (std::set<std::string>{"board-top.svg", "board-bottom.svg", "layer-....a.svg",
                                                                "layer-Top.svg", "layer-TOP-2.svg", "layer-___.svg"}));
}

TEST(Svg, DesignatorsAreEscaped)
{
    const TempFolder folder;
    const std::string board =
        folder.Save("board.xml", SmallBoard("<Component refDes=\"R&amp;1\" packageRef=\"P\" layerRef=\"TOP\">\n"
                                            "<Location x=\"1\" y=\"2\"/>\n</Component>\n"));
    EXPECT_EQ(RunProgram({"svg", board, "-o", folder.Path("out")}).status, 0);
    ExpectHolds(Bytes(folder.Path("out/board-top.svg")), ">R&amp;1</text>\n");
    EXPECT_EQ(Bytes(folder.Path("out/board-bottom.svg")).find("<text"), std::string::npos);
}

// What the command says of a board with these lines in its step.
std::string Lacking(const std::string & stepLines)
{
    const TempFolder folder;
    const std::string board = folder.Save("board.xml", SmallBoard(stepLines));
    const Result result = RunProgram({"svg", "--exact", board, "-o", folder.Path("out")});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "");
    const std::size_t begin = Warning(board, "").find(": warning: ") + 11;
    const std::size_t end = result.err.find("; see ipc2581 check ");
    if (end == std::string::npos) {
        EXPECT_EQ(result.err, "");
        return "";
    }
    const std::string causes = result.err.substr(begin, end - begin);
    EXPECT_EQ(result.err, Warning(board, causes));
    return causes;
}

std::string OnALayer(const std::string & lines)
{
    return "<LayerFeature layerRef=\"TOP\">\n" + lines + "</LayerFeature>\n";
}

TEST(Svg, TellsOfTracksWithoutAWidth)
{
    const std::string polyline = "<Polyline>\n<PolyBegin x=\"0\" y=\"0\"/>\n<PolyStepSegment x=\"1\" y=\"0\"/>\n"
                                 "<LineDescRef id=\"W\"/>\n</Polyline>\n";
    EXPECT_EQ(Lacking(OnALayer(Features(polyline))), "1 track drawn one hairline wide (no width was read)");
    EXPECT_EQ(Lacking(OnALayer(Features(polyline + Line("1", "2", "<LineDescRef id=\"W\"/>") +
                                        Line("3", "4", "<LineDesc lineEnd=\"ROUND\" lineWidth=\"1\"/>")))),
              "2 tracks drawn one hairline wide (no width was read)");
    ExpectHolds(Picture(Features(polyline)), "<path class=\"t\" stroke-width=\".001\" d=\"M0 0H1\"/>");
}

TEST(Svg, TellsOfPadsThatAreNotDrawn)
{
    const std::string pad = "<Pad>\n<Xform mirror=\"true\"/>\n<UserPrimitiveRef id=\"U\"/>\n</Pad>\n";
    EXPECT_EQ(Lacking(OnALayer("<Set>\n" + pad + "</Set>\n")), "1 of 1 pads missing");
    EXPECT_EQ(Lacking("<Package name=\"P\">\n<LandPattern>\n<Pad>\n<StandardPrimitiveRef id=\"NONE\"/>\n</Pad>\n"
                      "</LandPattern>\n</Package>\n"),
              "1 of 1 pads missing");
}

TEST(Svg, TellsOfPadsWhoseMirrorIsNotRead)
{
    const std::string pad = "<Pad>\n<Xform mirror=\"TRUE\"/>\n<StandardPrimitiveRef id=\"DOT\"/>\n</Pad>\n";
    const std::string closed = "<Pad/>\n";
    const std::string other = "<Pin number=\"1\">\n<Xform mirror=\"true\"/>\n</Pin>\n";
    const std::string dictionary = "<DictionaryStandard units=\"MILLIMETER\">\n<EntryStandard id=\"DOT\">\n"
                                   "<Circle diameter=\"1\"/>\n</EntryStandard>\n</DictionaryStandard>\n";
    const TempFolder folder;
    std::string text = SmallBoard(OnALayer("<Set>\n" + pad + "</Set>\n<Set>\n" + closed + "</Set>\n" + other));
    text.insert(text.find("</Content>"), dictionary);
    const std::string board = folder.Save("board.xml", text);
    EXPECT_EQ(
        RunProgram({"svg", "--exact", board, "-o", folder.Path("out")}),
        (Result{0, "",
                Warning(board, "1 of 2 pads missing; 1 pad drawn as not mirrored (mirror of pads is not read)")}));
}

TEST(Svg, TellsOfWhatNoPictureHas)
{
    EXPECT_EQ(Lacking(OnALayer("<Set>\n<SlotCavity name=\"S\"/>\n</Set>\n" +
                               Features("<UserPrimitiveRef id=\"U\"/>\n<UserPrimitiveRef id=\"U\"/>\n"))),
              "1 of 1 slots missing; 2 of 2 user primitives missing");
    EXPECT_EQ(Lacking("<Features/>\n<UserPrimitiveRef id=\"U\"/>\n<Arc startX=\"0\"/>\n"), "");
}

TEST(Svg, TellsOfComponentsThatMayBeOnTheOtherSide)
{
    const auto component = [](const std::string & mirror) {
        return "<Component refDes=\"R1\" packageRef=\"P\" layerRef=\"BOTTOM\">\n<Xform mirror=\"" + mirror +
               "\"/>\n</Component>\n";
    };
    const std::string package = "<Package name=\"P\">\n</Package>\n";
    EXPECT_EQ(Lacking(package + component("true")),
              "1 component drawn on the top (mirror is not \"TRUE\" in upper case, and the layer was not read)");
    EXPECT_EQ(Lacking(package + component("TRUE")), "");
    EXPECT_EQ(Lacking(package + component("false")), "");
}

TEST(Svg, CannotMakeAFolderOfAFile)
{
    const TempFolder folder;
    const std::string board = folder.Save("board.xml", SmallBoard());
    EXPECT_EQ(RunProgram({"svg", board, "-o", folder.Path("board.xml/out")}),
              Failure(folder.Path("board.xml/out") + ": cannot be created: Not a directory"));
    EXPECT_EQ(RunProgram({"svg", board, "-o", board}).status, 1);
}

TEST(Svg, LeavesAGoodPictureWhereTheDiskIsFull)
{
    const TempFolder folder;
    fs::create_directory(folder.Path("out"));
    const std::string good = folder.Save("out/board-top.svg", "good");
    EXPECT_EQ(RunProgram({"svg", ExampleBoard(), "-o", folder.Path("out")}, {.fileLimit = 5000}),
              Failure(good + ": cannot be written: File too large"));
    EXPECT_EQ(Bytes(good), "good");
    EXPECT_EQ(Names(folder.Path("out")), std::set<std::string>{"board-top.svg"});
}

TEST(Svg, NeedsBoardAndFolder)
{
    EXPECT_EQ(RunProgram({"svg", "board.cvg"}), WrongUsage("--output is required"));
    EXPECT_EQ(RunProgram({"svg", "-o", "x"}), WrongUsage("BOARD is required"));
    EXPECT_EQ(RunProgram({"svg", "no-such-board", "-o", "x"}).status, 1);
}

}  // namespace
}  // namespace ipc2581::tests
