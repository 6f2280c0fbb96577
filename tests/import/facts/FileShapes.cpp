#include "tests/import/facts/FileShapes.h"

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <string_view>

#include "ipc2581/base/Codes.h"
#include "tests/import/facts/Shapes.h"

namespace ipc2581::facts {
namespace {

// A user shape that names itself must end somewhere.
constexpr int DeepestUserShape = 16;

int FormOf(pugi::xml_node node)
{
    const std::string word = TextOf(node, "shape");
    const auto found = std::find(OuterFormWords.begin(), OuterFormWords.end(), word);
    return found == OuterFormWords.end() ? OuterForms::Unknown : static_cast<int>(found - OuterFormWords.begin());
}

Corners CornersOf(pugi::xml_node node)
{
    const std::array<const char *, 4> names = {"upperRight", "upperLeft", "lowerLeft", "lowerRight"};
    if (std::none_of(names.begin(), names.end(), [&](const char * name) { return node.attribute(name); })) {
        return {};
    }
    return {FlagOf(node, names[0]), FlagOf(node, names[1]), FlagOf(node, names[2]), FlagOf(node, names[3])};
}

std::vector<Number> NumbersOf(pugi::xml_node node, std::initializer_list<const char *> names)
{
    std::vector<Number> numbers;
    for (const char * const name : names) {
        numbers.push_back({name, NumberOf(node, name)});
    }
    return numbers;
}

Shape ContourOf(pugi::xml_node node)
{
    Shape contour;
    for (const pugi::xml_node polygon : node.children("Polygon")) {
        contour.outlines.push_back(PathOf(polygon));
    }
    for (const pugi::xml_node cutout : node.children("Cutout")) {
        contour.cutouts.push_back(PathOf(cutout));
    }
    return contour;
}

Shape ButterflyOf(pugi::xml_node node)
{
    return ButterflyShape(FormOf(node), std::max(NumberOf(node, "diameter"), NumberOf(node, "side")));
}

Shape MoireOf(pugi::xml_node node)
{
    return MoireShape(NumberOf(node, "diameter"),
                      NumbersOf(node, {"ringWidth", "ringGap", "ringNumber", "lineWidth", "lineLength", "lineAngle"}));
}

Shape ThermalOf(pugi::xml_node node)
{
    return ThermalShape(FormOf(node), NumberOf(node, "outerDiameter"), NumberOf(node, "innerDiameter"),
                        NumbersOf(node, {"spokeCount", "gap", "spokeStartAngle"}));
}

using MakeShape = std::function<Shape(pugi::xml_node)>;

MakeShape OfSize(Shape (*make)(double, double))
{
    return [make](pugi::xml_node node) { return make(NumberOf(node, "width"), NumberOf(node, "height")); };
}

MakeShape OfLength(Shape (*make)(double))
{
    return [make](pugi::xml_node node) { return make(NumberOf(node, "length")); };
}

MakeShape OfCutRectangle(Shape (*make)(double, double, double, const Corners &), const char * cut)
{
    return [make, cut](pugi::xml_node node) {
        return make(NumberOf(node, "width"), NumberOf(node, "height"), NumberOf(node, cut), CornersOf(node));
    };
}

const std::map<std::string_view, MakeShape> & ShapeMakers()
{
    static const std::map<std::string_view, MakeShape> makers = {
        {"Butterfly", ButterflyOf},
        {"Circle", [](pugi::xml_node node) { return CircleShape(NumberOf(node, "diameter")); }},
        {"Contour", ContourOf},
        {"Diamond", OfSize(DiamondShape)},
        {"Donut",
         [](pugi::xml_node node) {
             return DonutShape(FormOf(node), NumberOf(node, "outerDiameter"), NumberOf(node, "innerDiameter"));
         }},
        {"Ellipse", OfSize(EllipseShape)},
        {"Hexagon", OfLength(HexagonShape)},
        {"Moire", MoireOf},
        {"Octagon", OfLength(OctagonShape)},
        {"Oval", OfSize(OvalShape)},
        {"Polygon", [](pugi::xml_node node) { return Shape{.outlines = {PathOf(node)}}; }},
        {"RectCenter", OfSize(CenteredRectangle)},
        {"RectCham", OfCutRectangle(ChamferedRectangle, "chamfer")},
        {"RectCorner",
         [](pugi::xml_node node) {
             return RectangleShape(PointOf(node, "lowerLeftX", "lowerLeftY"),
                                   PointOf(node, "upperRightX", "upperRightY"));
         }},
        {"RectRound", OfCutRectangle(RoundedRectangle, "radius")},
        {"Thermal", ThermalOf},
        {"Triangle",
         [](pugi::xml_node node) { return TriangleShape(NumberOf(node, "base"), NumberOf(node, "height")); }},
    };
    return makers;
}

Path LineOf(pugi::xml_node node)
{
    return {PointOf(node, "startX", "startY"), {{.end = PointOf(node, "endX", "endY")}}};
}

Path ArcOf(pugi::xml_node node)
{
    return {PointOf(node, "startX", "startY"),
            {{.end = PointOf(node, "endX", "endY"),
              .isCurve = true,
              .center = PointOf(node, "centerX", "centerY"),
              .isClockwise = FlagOf(node, "clockwise")}}};
}

Label LabelOf(pugi::xml_node node, const Frame & outer)
{
    const Frame frame = FrameIn(node, outer);
    const pugi::xml_node box = node.child("BoundingBox");
    return {TextOf(node, "textString"), NumberOf(node, "fontSize") * frame.unit * frame.scale,
            frame.transform.Of(PointOf(box, "lowerLeftX", "lowerLeftY")),
            frame.transform.Of(PointOf(box, "upperRightX", "upperRightY"))};
}

Frame Inside(const DictionaryEntry & entry, const Frame & frame)
{
    return {frame.transform.Of(Scaled(entry.unit / frame.unit)), entry.unit, frame.scale};
}

}  // namespace

Frame FrameIn(pugi::xml_node node, const Frame & outer)
{
    const Xform xform = XformOf(node);
    return {outer.transform.Of(Moved(LocationOf(node))).Of(TransformOf(xform)), outer.unit, outer.scale * xform.scale};
}

Path PathOf(pugi::xml_node node)
{
    Path path{PointOf(node.child("PolyBegin")), {}};
    for (const pugi::xml_node step : node.children()) {
        const std::string_view name = step.name();
        if (name == "PolyStepSegment") {
            path.steps.push_back({.end = PointOf(step)});
        }
        else if (name == "PolyStepCurve") {
            path.steps.push_back({.end = PointOf(step),
                                  .isCurve = true,
                                  .center = PointOf(step, "centerX", "centerY"),
                                  .isClockwise = FlagOf(step, "clockwise")});
        }
    }
    return Placed(path, TransformOf(XformOf(node)));
}

Shape FileShapes::ShapeOf(pugi::xml_node node)
{
    const auto maker = ShapeMakers().find(node.name());
    if (maker == ShapeMakers().end()) {
        return {};
    }
    // The Xform of a polygon is in its path already.
    const bool isPath = maker->first == "Polygon";
    return isPath ? maker->second(node) : Placed(maker->second(node), TransformOf(XformOf(node)));
}

Shape FileShapes::Resolved(pugi::xml_node shape) const
{
    Drawing drawing;
    Draw(shape, {}, 0, drawing);
    Shape all = Joined(drawing.areas);
    // A hollow shape still is as large as it is.
    for (const Stroke & stroke : drawing.strokes) {
        all.outlines.push_back(stroke.path);
    }
    return all;
}

Shape FileShapes::ShapeIn(pugi::xml_node holder) const
{
    for (const pugi::xml_node child : holder.children()) {
        Shape shape = Resolved(child);
        if (!shape.outlines.empty()) {
            return shape;
        }
    }
    return {};
}

Shape FileShapes::PlacedShapeIn(pugi::xml_node holder) const
{
    return Placed(ShapeIn(holder), FrameIn(holder).transform);
}

Drawing FileShapes::DrawingIn(pugi::xml_node holder, const Frame & frame) const
{
    Drawing drawing;
    for (const pugi::xml_node child : holder.children()) {
        Draw(child, frame, 0, drawing);
    }
    return drawing;
}

Stroke FileShapes::OutlineIn(pugi::xml_node holder) const
{
    const pugi::xml_node outline = holder.child("Outline");
    const pugi::xml_node polygon = outline.child("Polygon");
    const bool hasOwnLine = outline.child("LineDesc") || outline.child("LineDescRef");
    return StrokeAlong(Closed(PathOf(polygon)), hasOwnLine ? outline : polygon, {});
}

void FileShapes::Draw(pugi::xml_node node, const Frame & frame, int depth, Drawing & drawing) const
{
    const std::string_view name = node.name();
    if (depth > DeepestUserShape) {
        return;
    }
    if (name == "Line" || name == "Arc" || name == "Polyline") {
        const Path path = name == "Line" ? LineOf(node) : name == "Arc" ? ArcOf(node) : PathOf(node);
        drawing.strokes.push_back(StrokeAlong(path, node, frame));
    }
    else if (name == "Outline") {
        const Path path = Closed(PathOf(node.child("Polygon")));
        drawing.strokes.push_back(StrokeAlong(path, node, FrameIn(node, frame)));
    }
    else if (name == "Text") {
        drawing.labels.push_back(LabelOf(node, frame));
    }
    else if (name == "UserSpecial") {
        DrawEntry({node, frame.unit}, frame, depth + 1, drawing);
    }
    else if (name == "UserPrimitiveRef" || name == "StandardPrimitiveRef") {
        const DictionaryEntry entry =
            m_file.Entry(name == "UserPrimitiveRef" ? "User" : "Standard", TextOf(node, "id"));
        DrawEntry(entry, Inside(entry, frame), depth + 1, drawing);
    }
    else {
        DrawShape(node, frame, drawing);
    }
}

void FileShapes::DrawEntry(const DictionaryEntry & entry, const Frame & frame, int depth, Drawing & drawing) const
{
    for (const pugi::xml_node child : entry.node.children()) {
        Draw(child, frame, depth, drawing);
    }
}

void FileShapes::DrawShape(pugi::xml_node node, const Frame & frame, Drawing & drawing) const
{
    const Shape shape = Placed(ShapeOf(node), frame.transform);
    const pugi::xml_node polygon = node.child("Polygon");
    const pugi::xml_node styled = polygon ? polygon : node;
    const std::string fill = FillOf(styled);
    if (fill == "HOLLOW") {
        for (const std::vector<Path> & paths : {shape.outlines, shape.cutouts}) {
            for (const Path & path : paths) {
                Stroke stroke = StrokeAlong({}, styled, FrameIn(styled, frame));
                stroke.path = Closed(path);
                drawing.strokes.push_back(stroke);
            }
        }
    }
    else if (fill != "VOID" && !shape.outlines.empty()) {
        drawing.areas.push_back(shape);
    }
}

Stroke FileShapes::StrokeAlong(const Path & path, pugi::xml_node styled, const Frame & frame) const
{
    pugi::xml_node line = styled.child("LineDesc");
    double unit = frame.unit;
    if (!line) {
        const DictionaryEntry entry = m_file.Entry("LineDesc", TextOf(styled.child("LineDescRef"), "id"));
        line = entry.node.child("LineDesc");
        unit = entry.unit;
    }
    const std::string end = TextOf(line, "lineEnd");
    return {Placed(path, frame.transform), NumberOf(line, "lineWidth") * unit * frame.scale,
            end.empty() ? "ROUND" : end};
}

std::string FileShapes::FillOf(pugi::xml_node styled) const
{
    pugi::xml_node fill = styled.child("FillDesc");
    if (!fill) {
        fill = m_file.Entry("FillDesc", TextOf(styled.child("FillDescRef"), "id")).node.child("FillDesc");
    }
    return TextOf(fill, "fillProperty");
}

}  // namespace ipc2581::facts
