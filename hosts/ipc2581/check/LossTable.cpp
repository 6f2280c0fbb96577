#include "hosts/ipc2581/check/LossTable.h"

#include <algorithm>

namespace ipc2581::host {
namespace {

using enum Value;
using enum Written;

AttributeLoss Num(std::string_view name, Written written = Kept)
{
    return {name, Number, written};
}

AttributeLoss WideNum(std::string_view name, Written written = Kept)
{
    return {name, Number, written, true};
}

AttributeLoss Wide(std::string_view name, Written written = Kept)
{
    return {name, Text, written, true};
}

AttributeLoss Lost(std::string_view name, Value value = Text)
{
    return {name, value, Never};
}

// The same element of a part that is never written.
ElementLoss NeverWritten(ElementLoss element)
{
    element.written = Never;
    for (AttributeLoss & attribute : element.attributes) {
        attribute.written = Never;
    }
    return element;
}

ElementLoss AlwaysWritten(ElementLoss element)
{
    element.written = Always;
    return element;
}

Reader NeverWritten(Reader reader)
{
    std::transform(reader.elements.begin(), reader.elements.end(), reader.elements.begin(),
                   [](const ElementLoss & element) { return NeverWritten(element); });
    return reader;
}

ElementLoss LineDesc(Test test)
{
    return {.name = "LineDesc", .test = test, .written = Always, .attributes = {{"lineEnd"}, Num("lineWidth")}};
}

ElementLoss Location()
{
    return {.name = "Location", .written = Always, .attributes = {Num("x"), Num("y")}};
}

ElementLoss PrimitiveRef(Test test)
{
    return {.name = "StandardPrimitiveRef", .test = test, .written = Always, .attributes = {{"id"}}};
}

const ElementLoss SkippedXform = {.name = "Xform", .test = Test::Skips, .written = Never};

// Begin point and steps, with an end of their own.
Reader Contour(std::string_view end)
{
    const ElementLoss begin = {
        .name = "PolyBegin", .test = Test::Holds, .written = Always, .attributes = {Num("x"), Num("y")}};
    const ElementLoss segment = {
        .name = "PolyStepSegment", .test = Test::Holds, .attributes = {Num("x"), Num("y")}, .isObject = true};
    const ElementLoss curve = {
        .name = "PolyStepCurve",
        .test = Test::Holds,
        .attributes = {Num("x"), Num("y"), Num("centerX"), Num("centerY"), {"clockwise", Direction, Changed}},
        .isObject = true};
    return {.elements = {begin, segment, curve}, .ends = {end}};
}

const Reader PolygonReader = Contour("/Polygon");
const Reader CutoutReader = Contour("/Cutout");
const Reader LostPolygonReader = NeverWritten(PolygonReader);

Reader MakePolylineReader()
{
    Reader reader = Contour("/Polyline");
    reader.elements.push_back(LineDesc(Test::Holds));
    return reader;
}

const Reader PolylineReader = MakePolylineReader();
const Reader LineReader = {.elements = {LineDesc(Test::Holds)}, .ends = {"/Line"}};

const Reader ContourReader = {.elements = {{.name = "Polygon", .inner = &PolygonReader, .isObject = true},
                                           {.name = "Cutout", .inner = &CutoutReader, .isObject = true}},
                              .ends = {"/Contour"}};

const ElementLoss ContourElement = {.name = "Contour", .inner = &ContourReader, .isObject = true};

const Reader OutlineReader = {
    .elements = {LineDesc(Test::Opens), {.name = "Polygon", .test = Test::Holds, .inner = &PolygonReader}},
    .ends = {"/Outline"}};

const Reader LostOutlineReader = {
    .elements = {NeverWritten(LineDesc(Test::Opens)),
                 {.name = "Polygon", .test = Test::Holds, .written = Never, .inner = &LostPolygonReader}},
    .ends = {"/Outline"}};

// The outline in an assembly drawing is read in the place of the drawing, up to its end.
const Reader AssemblyDrawingReader = {.elements = {LineDesc(Test::Opens),
                                                   {.name = "Polygon", .test = Test::Holds, .inner = &PolygonReader},
                                                   {.name = "Outline", .test = Test::None}},
                                      .ends = {"/Outline"}};

ElementLoss Shape(std::string_view name, std::vector<AttributeLoss> attributes, Written written = Kept)
{
    return {
        .name = name, .test = Test::Holds, .written = written, .attributes = std::move(attributes), .isObject = true};
}

ElementLoss CornerShape(std::string_view name, std::string_view size)
{
    ElementLoss shape = Shape(name, {WideNum("width"), WideNum("height"), WideNum(size)});
    for (const std::string_view corner : {"upperRight", "upperLeft", "lowerLeft", "lowerRight"}) {
        shape.attributes.push_back({corner, MisspeltFlag, Changed, true});
    }
    return shape;
}

const Reader EntryStandardReader = {
    .form = LineForm::WholeLine,
    .elements = {Shape("Butterfly", {{"shape", Word, Changed, true}, WideNum("diameter"), WideNum("side")}),
                 Shape("Circle", {WideNum("diameter")}), ContourElement,
                 Shape("Diamond", {WideNum("width"), WideNum("height")}),
                 Shape("Donut",
                       {{"shape", Word, Changed, true},
                        WideNum("outerDiameter", Changed),
                        WideNum("innerDiameter", Changed)},
                       Changed),
                 Shape("Ellipse", {WideNum("width"), WideNum("height")}), Shape("Hexagon", {WideNum("length")}),
                 Shape("Moire", {WideNum("diameter", Always), WideNum("ringWidth", Always), WideNum("ringGap", Always),
                                 WideNum("ringNumber", Always), WideNum("lineWidth", Always),
                                 WideNum("lineLength", Changed), WideNum("lineAngle", Always)}),
                 Shape("Octagon", {WideNum("length")}), Shape("Oval", {WideNum("width"), WideNum("height")}),
                 Shape("RectCenter", {WideNum("width"), WideNum("height")}), CornerShape("RectCham", "chamfer"),
                 Shape("RectCorner",
                       {WideNum("lowerLeftX"), WideNum("lowerLeftY"), WideNum("upperRightX"), WideNum("upperRightY")}),
                 CornerShape("RectRound", "radius"),
                 Shape("Thermal", {{"shape", Word, Kept, true},
                                   WideNum("outerDiameter"),
                                   WideNum("innerDiameter"),
                                   WideNum("spokeCount", Always),
                                   WideNum("gap"),
                                   WideNum("spokeStartAngle")}),
                 Shape("Triangle", {WideNum("base"), WideNum("height")})},
    .ends = {"/EntryStandard"}};

const Reader DictionaryStandardReader = {.form = LineForm::Trimmed,
                                         .elements = {{.name = "EntryStandard",
                                                       .attributes = {Wide("id")},
                                                       .inner = &EntryStandardReader,
                                                       .isObject = true}},
                                         .ends = {"/DictionaryStandard"}};

const Reader DictionaryUserReader = {.form = LineForm::Trimmed, .elements = {}, .ends = {"/DictionaryUser"}};

const Reader EntryColorReader = {
    .elements = {{.name = "Color", .written = Always, .attributes = {Num("r"), Num("g"), Num("b"), Lost("id")}}},
    .ends = {"/EntryColor"}};

const Reader DictionaryColorReader = {
    .elements = {{.name = "EntryColor", .attributes = {Wide("id")}, .inner = &EntryColorReader, .isObject = true}},
    .ends = {"/DictionaryColor"}};

// Of a reference the text is read, and no attribute.
ElementLoss Reference(std::string_view name)
{
    return {.name = name, .test = Test::Holds, .written = Never, .isObject = true};
}

const Reader ContentReader = {.form = LineForm::Content,
                              .elements = {{.name = "FunctionMode",
                                            .test = Test::Holds,
                                            .written = Always,
                                            .attributes = {Wide("mode"), Wide("level")}},
                                           Reference("StepRef"),
                                           Reference("LayerRef"),
                                           Reference("BomRef"),
                                           {.name = "DictionaryStandard",
                                            .test = Test::Holds,
                                            .attributes = {Wide("units")},
                                            .inner = &DictionaryStandardReader},
                                           {.name = "DictionaryUser",
                                            .test = Test::Holds,
                                            .written = Never,
                                            .attributes = {Wide("units", Never)},
                                            .inner = &DictionaryUserReader},
                                           {.name = "DictionaryColor",
                                            .test = Test::Holds,
                                            .written = Always,
                                            .attributes = {Wide("units", Changed)},
                                            .inner = &DictionaryColorReader}},
                              .ends = {"/Content"}};

const Reader LogisticHeaderReader = {
    .elements = {{.name = "Role", .test = Test::Holds, .written = Never, .attributes = {Wide("name", Never)}},
                 {.name = "Person", .test = Test::Holds, .written = Never, .attributes = {Wide("name", Never)}}},
    .ends = {"/LogisticHeader"}};

const Reader BomItemReader = {.elements = {{.name = "RefDes",
                                            .written = Never,
                                            .attributes = {Lost("name"), Lost("populate", Flag)},
                                            .isObject = true}},
                              .ends = {"/BomItem"}};

const Reader BomReader = {
    .elements = {{.name = "BomHeader", .test = Test::Holds, .written = Never, .attributes = {Wide("assembly", Never)}},
                 {.name = "BomItem",
                  .test = Test::Holds,
                  .written = Never,
                  .attributes = {Wide("quantity", Never), Wide("numberIO", Never), Wide("category", Never),
                                 Wide("internalPartNumber", Never), Wide("description", Never),
                                 Wide("packageRef", Never)},
                  .inner = &BomItemReader,
                  .isObject = true}},
    .ends = {"/Bom"}};

const Reader StackupGroupReader = {
    .elements = {{.name = "StackupLayer",
                  .written = Never,
                  .attributes = {Lost("layerOrGroupRef"), Lost("materialType"), Lost("thickness", Number)},
                  .isObject = true}},
    .ends = {"/StackupGroup"}};

const Reader StackupReader = {.elements = {{.name = "StackupGroup",
                                            .written = Never,
                                            .attributes = {Lost("name"), Lost("thickness", Number),
                                                           Lost("tolPlus", Number), Lost("tolMinus", Number)},
                                            .inner = &StackupGroupReader,
                                            .isObject = true}},
                              .ends = {"/Stackup"}};

const std::vector<AttributeLoss> HoleTexts = {{"name"}, {"diameter"}, {"platingStatus"}, {"plusTol"}, {"minusTol"}};
const std::vector<AttributeLoss> HolePlace = {Num("x"), Num("y")};

std::vector<AttributeLoss> Lost(std::vector<AttributeLoss> attributes)
{
    for (AttributeLoss & attribute : attributes) {
        attribute.written = Never;
    }
    return attributes;
}

const Reader LayerHoleReader = {
    .elements = {{.name = "Span", .written = Never, .attributes = {Lost("toLayer"), Lost("fromLayer")}}},
    .ends = {"/Hole", "/LayerHole"}};

const Reader PadReader = {.elements = {{.name = "Xform", .test = Test::Holds, .attributes = {Num("rotation")}},
                                       Location(),
                                       PrimitiveRef(Test::Holds)},
                          .ends = {"/Pad", "/LayerPad"}};

const Reader LostPadReader = NeverWritten(PadReader);

const ElementLoss PadElement = {.name = "Pad", .attributes = {{"pin"}}, .inner = &PadReader, .isObject = true};

const Reader PadStackReader = {.elements = {{.name = "LayerHole",
                                             .written = Never,
                                             .attributes = Lost(HoleTexts),
                                             .inner = &LayerHoleReader,
                                             .second = Lost(HolePlace)},
                                            {.name = "LayerPad",
                                             .written = Never,
                                             .attributes = {Lost("layerRef"), Lost("pin")},
                                             .inner = &LostPadReader,
                                             .isObject = true}},
                               .ends = {"/PadStack"}};

const Reader ProfileReader = {.elements = {{.name = "Polygon", .written = Always, .inner = &PolygonReader},
                                           {.name = "Cutout", .inner = &CutoutReader, .isObject = true}},
                              .ends = {"/Profile"}};

const ElementLoss PolylineElement = {.name = "Polyline", .inner = &PolylineReader, .isObject = true};

const Reader TargetReader = {.elements = {ContourElement, Location(), PolylineElement}, .ends = {"/Target"}};

const Reader SilkScreenReader = {.elements = {{.name = "Target", .inner = &TargetReader, .isObject = true}},
                                 .ends = {"/SilkScreen"}};

const Reader LandPatternReader = {.elements = {PadElement}, .ends = {"/LandPattern"}};

const Reader PinReader = {.elements = {{.name = "Xform",
                                        .written = Never,
                                        .attributes = {Lost("rotation", Number), Lost("mirror", ControlFlag)}},
                                       Location(),
                                       PrimitiveRef(Test::Opens),
                                       {.name = "Outline", .written = Never, .inner = &LostOutlineReader}},
                          .ends = {"/Pin"}};

const Reader PackageReader = {.elements = {{.name = "Outline", .inner = &OutlineReader},
                                           {.name = "AssemblyDrawing", .inner = &AssemblyDrawingReader},
                                           {.name = "LandPattern", .inner = &LandPatternReader},
                                           {.name = "SilkScreen", .written = Always, .inner = &SilkScreenReader},
                                           {.name = "Pin",
                                            .attributes = {{"number"}, {"name"}, {"type"}, {"electricalType"}},
                                            .inner = &PinReader,
                                            .isObject = true}},
                              .ends = {"/Package"}};

const Reader ComponentReader = {.elements = {{.name = "Xform",
                                              .test = Test::Holds,
                                              .written = Always,
                                              .attributes = {Num("rotation"), Lost("mirror", Flag)}},
                                             Location()},
                                .ends = {"/Component"}};

const Reader LogicalNetReader = {
    .elements = {{.name = "LogicalNetPin", .attributes = {{"pin"}, {"componentRef"}}, .isObject = true}},
    .ends = {"/LogicalNet"}};

const Reader PhyNetPointReader = {.elements = {PrimitiveRef(Test::Opens)}, .ends = {"/PhyNetPoint"}};

const Reader PhyNetReader = {
    .elements = {{.name = "PhyNetPoint",
                  .attributes =
                      {Num("x"), Num("y"), {"layerRef"}, {"netNode"}, {"exposure"}, {"via", Flag}, Lost("test", Flag)},
                  .inner = &PhyNetPointReader,
                  .isObject = true}},
    .ends = {"/PhyNet"}};

const Reader PhyNetGroupReader = {
    .elements = {{.name = "PhyNet", .attributes = {{"name"}}, .inner = &PhyNetReader, .isObject = true}},
    .ends = {"/PhyNetGroup"}};

const Reader FeaturesReader = {.elements = {SkippedXform,
                                            Location(),
                                            PolylineElement,
                                            {.name = "Line",
                                             .attributes = {Num("startX"), Num("startY"), Num("endX"), Num("endY")},
                                             .inner = &LineReader,
                                             .isObject = true},
                                            ContourElement,
                                            {.name = "Circle", .attributes = {WideNum("diameter")}, .isObject = true}},
                               .ends = {"/Features"}};

const Reader SetReader = {
    .elements = {SkippedXform,
                 {.name = "ColorRef", .test = Test::Holds, .written = Always, .attributes = {{"id"}}},
                 AlwaysWritten({.name = "Features", .inner = &FeaturesReader}),
                 PadElement,
                 {.name = "Hole", .attributes = HoleTexts, .isObject = true, .second = HolePlace}},
    .ends = {"/Set"}};

const Reader LayerFeatureReader = {
    .elements = {SkippedXform,
                 {.name = "Set",
                  .attributes = {{"net"}, {"testPoint", Flag}, {"plate", Flag}, {"padUsage"}},
                  .inner = &SetReader,
                  .isObject = true}},
    .ends = {"/LayerFeature"}};

const Reader StepReader = {
    .elements =
        {{.name = "PadStack",
          .written = Never,
          .attributes = {Lost("net")},
          .inner = &PadStackReader,
          .isObject = true},
         {.name = "Datum", .written = Always, .attributes = {Num("x"), Num("y")}},
         {.name = "Profile", .written = Always, .inner = &ProfileReader},
         {.name = "Package", .attributes = {{"name"}, {"type"}}, .inner = &PackageReader, .isObject = true},
         {.name = "Component",
          .attributes =
              {{"refDes"}, {"packageRef"}, {"layerRef"}, {"part"}, {"mountType"}, {"standoff"}, Num("height", Always)},
          .inner = &ComponentReader,
          .isObject = true},
         {.name = "LogicalNet", .attributes = {{"name"}}, .inner = &LogicalNetReader, .isObject = true},
         {.name = "PhyNetGroup", .written = Always, .attributes = {{"name"}}, .inner = &PhyNetGroupReader},
         {.name = "LayerFeature", .attributes = {{"layerRef"}}, .inner = &LayerFeatureReader, .isObject = true}},
    .ends = {"/Step"}};

const Reader CadDataReader = {
    .elements = {{.name = "Layer",
                  .attributes = {{"name"}, {"layerFunction"}, {"side"}, {"polarity"}},
                  .isObject = true},
                 {.name = "Stackup",
                  .written = Never,
                  .attributes = {Lost("overallThickness"), Lost("tolPlus"), Lost("tolMinus"), Lost("whereMeasured")},
                  .inner = &StackupReader},
                 {.name = "Step", .written = Always, .attributes = {{"name"}}, .inner = &StepReader}},
    .ends = {"/CadData"}};

const Reader EcadReader = {.elements = {{.name = "CadHeader", .written = Always, .attributes = {{"units"}}},
                                        {.name = "CadData", .written = Always, .inner = &CadDataReader}},
                           .ends = {"/Ecad"}};

const Reader WholeReader = {
    .elements = {
        {.name = "Content", .test = Test::Holds, .written = Always, .inner = &ContentReader},
        {.name = "LogisticHeader", .test = Test::Holds, .written = Never, .inner = &LogisticHeaderReader},
        {.name = "HistoryRecord",
         .test = Test::Holds,
         .written = Never,
         .attributes = {Lost("number", Number), Lost("origination"), Lost("toolRef"), Lost("lastChange")}},
        {.name = "Bom", .test = Test::Holds, .written = Never, .attributes = {Lost("name")}, .inner = &BomReader},
        {.name = "Ecad", .test = Test::Holds, .written = Always, .attributes = {{"name"}}, .inner = &EcadReader},
        {.name = "IPC-2581", .test = Test::None, .written = Always}}};

bool EqualIgnoringCase(std::string_view left, std::string_view right)
{
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [&](char a, char b) { return lower(a) == lower(b); });
}

}  // namespace

const Reader & DocumentReader()
{
    return WholeReader;
}

bool ReadsAsSet(Value value, std::string_view text)
{
    switch (value) {
    case Flag:
        return text.find("TRUE") != std::string_view::npos;
    case MisspeltFlag:
        return text.find("TURE") != std::string_view::npos;
    case ControlFlag:
        return text == "\x01";
    default:
        return false;
    }
}

bool MeansSet(std::string_view text)
{
    return text == "1" || EqualIgnoringCase(text, "true");
}

}  // namespace ipc2581::host
