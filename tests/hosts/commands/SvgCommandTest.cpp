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

// A package of two by one.
std::string Outlined()
{
    return "<Package name=\"P\">\n<Outline>\n<Polygon>\n<PolyBegin x=\"-1\" y=\"-0.5\"/>\n"
           "<PolyStepSegment x=\"1\" y=\"-0.5\"/>\n<PolyStepSegment x=\"1\" y=\"0.5\"/>\n"
           "<PolyStepSegment x=\"-1\" y=\"0.5\"/>\n</Polygon>\n<LineDesc lineEnd=\"ROUND\" lineWidth=\"0\"/>\n"
           "</Outline>\n</Package>\n";
}

std::string Component(const std::string & refDes, const std::string & x, const std::string & attributes = "")
{
    return "<Component refDes=\"" + refDes + "\" packageRef=\"P\" layerRef=\"TOP\" " + attributes +
           ">\n<Location x=\"" + x + "\" y=\"0\"/>\n</Component>\n";
}

// A board of a hundred by ten with layers of copper, mask, legend and notes.
std::string BoardOfLayers(const std::string & stepLines)
{
    const auto layer = [](const std::string & name, const std::string & function, const std::string & side) {
        return "<Layer name=\"" + name + "\" layerFunction=\"" + function + "\" side=\"" + side +
               "\" polarity=\"POSITIVE\"/>\n";
    };
    return "<IPC-2581>\n<Ecad name=\"e\">\n<CadHeader units=\"MILLIMETER\">\n</CadHeader>\n<CadData>\n" +
           layer("CU", "SIGNAL", "TOP") + layer("MASK", "SOLDERMASK", "TOP") + layer("SILK", "SILKSCREEN", "TOP") +
           layer("NOTES", "DOCUMENT", "NONE") +
           "<Step name=\"s\">\n<Profile>\n<Polygon>\n<PolyBegin x=\"0\" y=\"0\"/>\n"
           "<PolyStepSegment x=\"100\" y=\"0\"/>\n<PolyStepSegment x=\"100\" y=\"10\"/>\n"
           "<PolyStepSegment x=\"0\" y=\"10\"/>\n</Polygon>\n</Profile>\n" +
           stepLines + "</Step>\n</CadData>\n</Ecad>\n</IPC-2581>\n";
}

std::string OnLayer(const std::string & name, const std::string & sets)
{
    return "<LayerFeature layerRef=\"" + name + "\">\n" + sets + "</LayerFeature>\n";
}

std::string CircleAt(const std::string & x, const std::string & setAttributes = "")
{
    return "<Set " + setAttributes + ">\n<Features>\n<Location x=\"" + x +
           "\" y=\"5\"/>\n<Circle diameter=\"2\"/>\n</Features>\n</Set>\n";
}

std::size_t Count(const std::string & text, const std::string & part)
{
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += part.size()) {
        ++count;
    }
    return count;
}

// All values of an attribute, in their order.
std::vector<std::string> Values(const std::string & text, const std::string & attribute)
{
    std::vector<std::string> values;
    const std::string begin = " " + attribute + "=\"";
    for (std::size_t at = 0; (at = text.find(begin, at)) != std::string::npos;) {
        at += begin.size();
        values.push_back(text.substr(at, text.find('"', at) - at));
    }
    return values;
}

TEST(Svg, PicturesOfABoardHaveOneFrame)
{
    const TempFolder folder;
    const std::string board =
        folder.Save("board.xml", BoardOfLayers(OnLayer("CU", CircleAt("50")) + OnLayer("SILK", CircleAt("-20")) +
                                               OnLayer("NOTES", CircleAt("500"))));
    const auto frames = [&](const std::vector<std::string> & options) {
        std::vector<std::string> arguments = {"svg", board, "-o", folder.Path("out")};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const Result result = RunProgram(arguments);
        EXPECT_EQ(result.status, 0);
        std::set<std::string> boxes;
        for (const std::string & name : Names(folder.Path("out"))) {
            boxes.insert(Values(Bytes(folder.Path("out/" + name)), "viewBox").front());
        }
        return std::make_pair(boxes, result.err);
    };
    using Boxes = std::set<std::string>;
    EXPECT_EQ(
        frames({}),
        std::make_pair(Boxes{"-23.42 -12.42 125.84 14.84"},
                       "ipc2581: " + board +
                           ": warning: layers that reach beyond the pictures: NOTES; --whole shows all of them\n"));
    EXPECT_EQ(frames({"--layers", "CU"}), std::make_pair(Boxes{"-23.42 -12.42 125.84 14.84"}, std::string()));
    EXPECT_EQ(frames({"--whole"}), std::make_pair(Boxes{"-31.44 -20.44 542.88 30.88"}, std::string()));
}

TEST(Svg, BottomIsTurnedRoundInItsFrame)
{
    const TempFolder folder;
    const std::string board = folder.Save("board.xml", BoardOfLayers(OnLayer("SILK", CircleAt("-20"))));
    EXPECT_EQ(RunProgram({"svg", board, "-o", folder.Path("out")}).status, 0);
    // The frame is as wide to the left of 39.5 as it is to the right.
    ExpectHolds(Bytes(folder.Path("out/board-bottom.svg")), "<g transform=\"translate(79 0)scale(-1 -1)\">");
}

TEST(Svg, LayersNetsAndPartsHaveTitlesAndIds)
{
    const TempFolder folder;
    const std::string board = folder.Save(
        "board.xml", BoardOfLayers(Outlined() + Component("R 1", "10") + Component("R_1", "20") +
                                   OnLayer("CU", CircleAt("10", "net=\"+5V&lt;\"") + CircleAt("20", "net=\"GND\"") +
                                                     CircleAt("30", "net=\"+5V&lt;\"") +
                                                     CircleAt("40", "net=\"-5V_\"") + CircleAt("45"))));
    EXPECT_EQ(RunProgram({"svg", board, "-o", folder.Path("out")}).status, 0);
    for (const std::string & name : Names(folder.Path("out"))) {
        const std::vector<std::string> ids = Values(Bytes(folder.Path("out/" + name)), "id");
        EXPECT_EQ(std::set<std::string>(ids.begin(), ids.end()).size(), ids.size()) << name;
        for (const std::string & id : ids) {
            EXPECT_EQ(id.find_first_of(" <&+"), std::string::npos) << id;
        }
    }
    const std::string copper = Bytes(folder.Path("out/layer-CU.svg"));
    ExpectHolds(copper, "<title>CU (SIGNAL)</title>");
    ExpectHolds(copper, "<g id=\"layer-CU\" class=\"layer\"><title>CU</title>\n"
                        "<g id=\"net-_5V_\" class=\"net\"><title>+5V&lt;</title>\n"
                        "<path d=\"M11 5A1 1 0 0 1 9 5A1 1 0 0 1 11 5Z\"/>\n"
                        "<path d=\"M31 5A1 1 0 0 1 29 5A1 1 0 0 1 31 5Z\"/>\n</g>\n"
                        "<g id=\"net-GND\" class=\"net\"><title>GND</title>\n");
    ExpectHolds(copper, "<g id=\"net--5V_\" class=\"net\"><title>-5V_</title>");
    const std::string top = Bytes(folder.Path("out/board-top.svg"));
    ExpectHolds(top, "<title>Top</title>");
    ExpectHolds(top, "<g id=\"part-R_1\" class=\"part\"><title>R 1</title>\n");
    ExpectHolds(top, "<g id=\"part-R_1.2\" class=\"part\"><title>R_1</title>\n");
}

TEST(Svg, CopperHasItsFinishInTheOpeningsOfTheMask)
{
    const TempFolder folder;
    const std::string board = folder.Save(
        "board.xml", BoardOfLayers(OnLayer("CU", CircleAt("10", "net=\"A\"")) + OnLayer("MASK", CircleAt("10"))));
    EXPECT_EQ(RunProgram({"svg", board, "-o", folder.Path("out")}).status, 0);
    const std::string top = Bytes(folder.Path("out/board-top.svg"));
    const std::string circle = "<path d=\"M11 5A1 1 0 0 1 9 5A1 1 0 0 1 11 5Z\"/>\n";
    ExpectHolds(top, "<g id=\"copper\">\n<g id=\"layer-CU\" class=\"layer\"><title>CU</title>\n"
                     "<g id=\"net-A\" class=\"net\"><title>A</title>\n" +
                         circle);
    ExpectHolds(top, "<mask id=\"openings\">\n<g color=\"#fff\" fill=\"#fff\">\n"
                     "<g id=\"layer-MASK\" class=\"layer\"><title>MASK</title>\n" +
                         circle);
    ExpectHolds(top, "<g mask=\"url(#openings)\">");
    ExpectHolds(top, "<g color=\"#c9a54a\" fill=\"#c9a54a\">\n<use href=\"#copper\"/>");
    EXPECT_EQ(Bytes(folder.Path("out/board-bottom.svg")).find("mask"), std::string::npos);
}

TEST(Svg, DesignatorsStandOnceAndFitTheirParts)
{
    const TempFolder folder;
    const auto labels = [&](const std::string & lines) {
        const std::string board = folder.Save("board.xml", BoardOfLayers(Outlined() + lines));
        EXPECT_EQ(RunProgram({"svg", board, "-o", folder.Path("out")}).status, 0);
        return Bytes(folder.Path("out/board-top.svg"));
    };
    const std::string two = Component("R1", "10", "part=\"A\"") + Component("LONG_1", "20", "part=\"A\"");
    const std::string plain = labels(two);
    // The part is two thousandths of a hundred high, and a text as high as four fifths of that.
    ExpectHolds(plain, "<text font-size=\"8\" dy=\".35em\" x=\"100\" y=\"0\">R1</text>\n");
    ExpectHolds(plain, "<text font-size=\"5.1\" dy=\".35em\" x=\"200\" y=\"0\">LONG_1</text>\n");
    // In characters, not in bytes.
    ExpectHolds(labels(Component("L\xc3\x96NG_1", "20", "part=\"A\"")),
                "<text font-size=\"5.1\" dy=\".35em\" x=\"200\" y=\"0\">L\xc3\x96NG_1</text>\n");
    // The legend says it already.
    const std::string named =
        labels(two + OnLayer("SILK", CircleAt("10", "geometryUsage=\"TEXT\" componentRef=\"R1\"")));
    EXPECT_EQ(Count(named, ">R1</text>"), 0U);
    EXPECT_EQ(Count(named, ">LONG_1</text>"), 1U);
    // As far behind in a file as the legend may stand, on lines as long as they may be.
    const std::string longLine = "<!--" + std::string(1'500'000, 'x') + "-->";
    const std::string farBehind = OnLayer("TOP", longLine + CircleAt("10") + std::string(1'500'000, '\n')) + longLine +
                                  OnLayer("SILK", CircleAt("10", "geometryUsage=\"TEXT\" componentRef=\"R1\""));
    EXPECT_EQ(Count(labels(two + farBehind), ">R1</text>"), 0U);
    // Notes are not in this picture.
    EXPECT_EQ(Count(labels(two + OnLayer("NOTES", CircleAt("10", "geometryUsage=\"TEXT\" componentRef=\"R1\""))),
                    ">R1</text>"),
              1U);
    // What nobody could read, what draws nothing, and what nobody buys has none.
    const std::string hidden = labels(two + Component("NAME_THAT_IS_TOO_LONG_FOR_IT", "30", "part=\"A\"") +
                                      Component("SHIELD", "40", "part=\"\"") +
                                      "<Component refDes=\"X9\" packageRef=\"NONE\" layerRef=\"TOP\" part=\"A\"/>\n");
    EXPECT_EQ(Count(hidden, "</text>"), 2U);
    EXPECT_EQ(Count(labels(Component("R1", "10")), ">R1</text>"), 1U);
}

TEST(Svg, LayersAreChosenByName)
{
    const TempFolder folder;
    const auto draw = [&](const std::vector<std::string> & options) {
        std::vector<std::string> arguments = {"svg"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        arguments.insert(arguments.end(), {ExampleBoard(), "-o", folder.Path("out")});
        return RunProgram(arguments);
    };
    EXPECT_EQ(draw({"--layers", "TOP,DRILL"}), (Result{0, "", ""}));
    EXPECT_EQ(Names(folder.Path("out")), (std::set<std::string>{"layer-TOP.svg", "layer-DRILL.svg"}));
    EXPECT_EQ(draw({"--layers", "CORE", "--layers=TOP"}), (Result{0, "", ""}));
    EXPECT_EQ(Names(folder.Path("out")), (std::set<std::string>{"layer-TOP.svg", "layer-CORE.svg"}));
    EXPECT_EQ(draw({"--layers", "TOP,NONE"}),
              Failure(ExampleBoard() + ": has no layer \"NONE\"; it has SILK_TOP, MASK_TOP, TOP, CORE, BOTTOM, "
                                       "SILK_BOTTOM, DRILL"));
    EXPECT_EQ(draw({"--layers", ""}).status, 1);
}

TEST(Svg, NamesOfChosenLayersMayHaveCommas)
{
    const TempFolder folder;
    std::string layers;
    for (const std::string name : {"A", "A,B", "B", "C,", ",D"}) {
        layers += "<Layer name=\"" + name + "\" layerFunction=\"CONDUCTOR\" side=\"TOP\"/>\n";
    }
    std::string board = SmallBoard();
    const std::string path = folder.Save("b.xml", board.insert(board.find("<Step"), layers));
    const auto drawn = [&](const std::string & names) {
        EXPECT_EQ(RunProgram({"svg", path, "-o", folder.Path("out"), "--layers", names}).status, 0) << names;
        return Names(folder.Path("out"));
    };
    EXPECT_EQ(drawn("A"), (std::set<std::string>{"layer-A.svg"}));
    EXPECT_EQ(drawn("A,B"), (std::set<std::string>{"layer-A_B.svg"}));
    EXPECT_EQ(drawn("B,A"), (std::set<std::string>{"layer-A.svg", "layer-B.svg"}));
    EXPECT_EQ(drawn("C,,,D,A"), (std::set<std::string>{"layer-A.svg", "layer-C_.svg", "layer-_D.svg"}));
    EXPECT_EQ(RunProgram({"svg", path, "-o", folder.Path("out"), "--layers", "B,X,A"}),
              Failure(path + ": has no layer \"X\"; it has A, A,B, B, C,, ,D"));
}

unsigned BigEndianAt(const std::string & bytes, std::size_t at)
{
    unsigned number = 0;
    for (std::size_t i = at; i < at + 4; ++i) {
        number = number << 8U | static_cast<unsigned char>(bytes[i]);
    }
    return number;
}

TEST(Svg, MayBePngOfAnyWidth)
{
    const TempFolder folder;
    const std::string out = folder.Path("out");
    EXPECT_EQ(RunProgram({"svg", ExampleBoard(), "-o", out, "--png", "--width", "420"}), (Result{0, "", ""}));
    EXPECT_EQ(Names(out).size(), 9U);
    for (const std::string & name : Names(out)) {
        EXPECT_TRUE(name.ends_with(".png")) << name;
        const std::string bytes = Bytes(folder.Path("out/" + name));
        EXPECT_TRUE(bytes.starts_with("\x89PNG\r\n\x1a\n")) << name;
        EXPECT_EQ(BigEndianAt(bytes, 16), 420U) << name;
        EXPECT_NEAR(BigEndianAt(bytes, 20), 318, 3) << name;
        EXPECT_GT(bytes.size(), 1000U) << name;
    }
    EXPECT_EQ(RunProgram({"svg", ExampleBoard(), "-o", out, "--png", "--layers", "TOP"}).status, 0);
    EXPECT_EQ(BigEndianAt(Bytes(folder.Path("out/layer-TOP.png")), 16), 2000U);
    EXPECT_EQ(RunProgram({"svg", ExampleBoard(), "-o", out, "--width", "420"}), WrongUsage("--width requires --png"));
    EXPECT_EQ(RunProgram({"svg", ExampleBoard(), "-o", out, "--png", "--width", "0"}).status, 2);
}

TEST(Svg, StalePicturesOfThisProgramGo)
{
    const TempFolder folder;
    const std::string out = folder.Path("out");
    EXPECT_EQ(RunProgram({"svg", ExampleBoard(), "-o", out}).status, 0);
    folder.Save("out/layer-MINE.svg", "<svg/>");
    fs::copy_file(folder.Path("out/layer-CORE.svg"), folder.Path("out/kept.svg"));
    EXPECT_EQ(RunProgram({"svg", ExampleBoard(), "-o", out, "--png", "--layers", "TOP"}).status, 0);
    EXPECT_EQ(Names(out), (std::set<std::string>{"kept.svg", "layer-MINE.svg", "layer-TOP.png"}));
    EXPECT_EQ(RunProgram({"svg", folder.Save("b.xml", BoardOfLayers("")), "-o", out}).status, 0);
    EXPECT_EQ(Names(out),
              (std::set<std::string>{"kept.svg", "layer-MINE.svg", "board-top.svg", "board-bottom.svg", "layer-CU.svg",
                                     "layer-MASK.svg", "layer-NOTES.svg", "layer-SILK.svg"}));
}

TEST(Svg, ReplacesOnlyItsOwnPicturesWithoutForce)
{
    const TempFolder folder;
    const std::string out = folder.Path("out");
    EXPECT_EQ(RunProgram({"svg", ExampleBoard(), "-o", out}).status, 0);
    EXPECT_EQ(RunProgram({"svg", ExampleBoard(), "-o", out}), (Result{0, "", ""}));
    const std::string mine = folder.Save("out/layer-TOP.svg", "mine");
    fs::remove(folder.Path("out/board-top.svg"));
    EXPECT_EQ(RunProgram({"svg", ExampleBoard(), "-o", out}),
              Failure(mine + ": is there already; --force replaces it"));
    EXPECT_EQ(Bytes(mine), "mine");
    EXPECT_FALSE(fs::exists(folder.Path("out/board-top.svg")));
    EXPECT_EQ(RunProgram({"svg", ExampleBoard(), "-o", out, "--force"}), (Result{0, "", ""}));
    EXPECT_NE(Bytes(mine), "mine");
}

TEST(Svg, DesignatorsAreEscaped)
{
    const TempFolder folder;
    const std::string board = folder.Save(
        "board.xml", SmallBoard(Outlined() + "<Component refDes=\"R&amp;1\" packageRef=\"P\" layerRef=\"TOP\">\n"
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
    EXPECT_EQ(RunProgram({"svg", ExampleBoard(), "-o", folder.Path("out"), "--force"}, {.fileLimit = 5000}),
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
