#include "tests/import/facts/ModelShapes.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

#include "ipc2581/fields.h"
#include "tests/import/facts/Shapes.h"
#include "tests/import/facts/Values.h"

namespace ipc2581::facts {
namespace {

constexpr std::array<std::pair<std::string_view, char>, 4> Entities = {
    {{"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}}};

// Without any flag the model has a rectangle with all corners cut: hosts draw it so.
template <typename Rect>
Corners CornersOf(const Rect & rect)
{
    const Corners corners{rect.UpperRight != 0, rect.UpperLeft != 0, rect.LowerLeft != 0, rect.LowerRight != 0};
    const bool isAny = corners.upperRight || corners.upperLeft || corners.lowerLeft || corners.lowerRight;
    return isAny ? corners : Corners{};
}

// Takes each shape as one of its own class.
class ShapeReader {
public:
    ShapeReader(const Transform & transform, Drawing & drawing) : m_transform(transform), m_drawing(drawing) {}

    void operator()(const CIPC2581_PolyLine & line)
    {
        AddStroke(PathOf(*line.PolyBegin, *line.PolyStepArray), *line.LineDesc);
    }
    void operator()(const CIPC2581_Line & line)
    {
        AddStroke({PointOf(*line.StartPoint->Point), {{.end = PointOf(*line.EndPoint->Point)}}}, *line.LineDesc);
    }
    void operator()(const CIPC2581_Arc & arc)
    {
        AddStroke({PointOf(*arc.StartPoint->Point),
                   {{.end = PointOf(*arc.EndPoint->Point),
                     .isCurve = true,
                     .center = PointOf(*arc.CenterPoint->Point),
                     .isClockwise = arc.Clockwise == 1}}},
                  *arc.LineDesc);
    }
    void operator()(const CIPC2581_Outline & outline) { AddStroke(StrokeOf(outline).path, *outline.LineDesc); }
    void operator()(const CIPC2581_Text & text)
    {
        const Transform place = m_transform.Of(PlaceOf({}, text.Xform));
        const double scale = text.Xform == nullptr ? 1.0 : XformOf(*text.Xform).scale;
        m_drawing.labels.push_back({TextOf(text.TextString), text.FontSize * scale,
                                    place.Of(Point{text.BoundingBox_LowLeftX, text.BoundingBox_LowLeftY}),
                                    place.Of(Point{text.BoundingBox_UppRightX, text.BoundingBox_UppRightY})});
    }
    void operator()(const CIPC2581_Polygon & polygon)
    {
        AddArea({.outlines = {PathOf(*polygon.PolyBegin, *polygon.PolyStepArray)}});
    }
    void operator()(const CIPC2581_DicDraw_Contour & contour)
    {
        Shape area;
        for (const CIPC2581_DrawObj * const part : Each(contour.DicDrawObjArray)) {
            if (const auto * const polygon = dynamic_cast<const CIPC2581_Polygon *>(part)) {
                area.outlines.push_back(PathOf(*polygon->PolyBegin, *polygon->PolyStepArray));
            }
            else if (const auto * const cutout = dynamic_cast<const CIPC2581_Cutout *>(part)) {
                area.cutouts.push_back(PathOf(*cutout->PolyBegin, *cutout->PolyStepArray));
            }
        }
        AddArea(area);
    }
    void operator()(const CIPC2581_DicDraw_Butterfly & shape) { AddArea(ButterflyShape(shape.Shape, shape.Size)); }
    void operator()(const CIPC2581_DicDraw_Circle & shape)
    {
        AddArea(CircleShape(shape.Diameter, {shape.OffsetX, shape.OffsetY}));
    }
    void operator()(const CIPC2581_DicDraw_Diamond & shape) { AddArea(DiamondShape(shape.Width, shape.Height)); }
    void operator()(const CIPC2581_DicDraw_Donut & shape)
    {
        AddArea(DonutShape(shape.Shape, shape.OuterDiameter, shape.InnerDiameter));
    }
    void operator()(const CIPC2581_DicDraw_Ellipse & shape) { AddArea(EllipseShape(shape.Width, shape.Height)); }
    void operator()(const CIPC2581_DicDraw_Hexagon & shape) { AddArea(HexagonShape(shape.Length)); }
    void operator()(const CIPC2581_DicDraw_Moire & shape)
    {
        AddArea(MoireShape(shape.Diameter, {{"ringWidth", shape.RingWidth},
                                            {"ringGap", shape.RingGap},
                                            {"ringNumber", double(shape.RingNumber)},
                                            {"lineWidth", shape.LineWidth},
                                            {"lineLength", shape.LineLength},
                                            {"lineAngle", shape.LineAngle}}));
    }
    void operator()(const CIPC2581_DicDraw_Octagon & shape) { AddArea(OctagonShape(shape.Length)); }
    void operator()(const CIPC2581_DicDraw_Oval & shape) { AddArea(OvalShape(shape.Width, shape.Height)); }
    void operator()(const CIPC2581_DicDraw_RectCenter & shape)
    {
        AddArea(CenteredRectangle(shape.Width, shape.Height));
    }
    void operator()(const CIPC2581_DicDraw_RectCham & shape)
    {
        AddArea(ChamferedRectangle(shape.Width, shape.Height, shape.Chamfer, CornersOf(shape)));
    }
    void operator()(const CIPC2581_DicDraw_RectCorner & shape)
    {
        AddArea(RectangleShape({shape.Lower_LeftX, shape.Lower_LeftY}, {shape.Upper_RightX, shape.Upper_RightY}));
    }
    void operator()(const CIPC2581_DicDraw_RectRound & shape)
    {
        AddArea(RoundedRectangle(shape.Width, shape.Height, shape.Radius, CornersOf(shape)));
    }
    void operator()(const CIPC2581_DicDraw_Thermal & shape)
    {
        AddArea(ThermalShape(shape.Shape, shape.OuterDiameter, shape.InnerDiameter,
                             {{"spokeCount", double(shape.SpokeCount)},
                              {"gap", shape.Gap},
                              {"spokeStartAngle", shape.SpokeStartAngle}}));
    }
    void operator()(const CIPC2581_DicDraw_Triangle & shape) { AddArea(TriangleShape(shape.Base, shape.Height)); }
    // A shape of no known class is an area without extents: no file states it.
    void operator()(const CIPC2581_DrawObj & /*shape*/) { AddArea({.outlines = {Path()}}); }

private:
    void AddStroke(const Path & path, const CIPC2581_LineDesc & line)
    {
        m_drawing.strokes.push_back({Placed(path, m_transform), line.LineWidth, TextOf(line.LineEnd)});
    }
    void AddArea(const Shape & shape) { m_drawing.areas.push_back(Placed(shape, m_transform)); }

    const Transform & m_transform;
    Drawing & m_drawing;
};

}  // namespace

std::string TextOf(const CString & text)
{
    std::string plain;
    bool isEscaped = true;
    std::string_view rest = text;
    while (!rest.empty()) {
        char character = rest.front();
        std::size_t length = 1;
        for (const auto & [entity, meant] : Entities) {
            if (rest.starts_with(entity)) {
                character = meant;
                length = entity.size();
            }
        }
        isEscaped = isEscaped && (length > 1 || std::string_view("&<>\"").find(character) == std::string_view::npos);
        plain += character;
        rest.remove_prefix(length);
    }
    return isEscaped ? plain : plain + " (not escaped)";
}

Point PointOf(const CPointD & point)
{
    return {point.X, point.Y};
}

Xform XformOf(const CIPC2581_Xform & xform)
{
    // A scale that nobody has set is 0 in the model.
    return {xform.Rotation, xform.Mirror != 0, xform.XOffset, xform.YOffset, xform.Scale == 0.0 ? 1.0 : xform.Scale};
}

Transform PlaceOf(const CPointD & location, const CIPC2581_Xform * xform)
{
    const Transform move = Moved(PointOf(location));
    return xform == nullptr ? move : move.Of(TransformOf(XformOf(*xform)));
}

Path PathOf(const CIPC2581_Point & begin, const CIPC2581_PolyStepArray & steps)
{
    Path path{PointOf(*begin.Point), {}};
    for (const CIPC2581_PolyStep * const step : Each(steps)) {
        // The direction of a curve is turned round in the model.
        path.steps.push_back({.end = PointOf(*step->EndPoint->Point),
                              .isCurve = step->Type != StepTypes::Segment,
                              .center = PointOf(*step->CenterPoint->Point),
                              .isClockwise = step->ClockWise != 1});
    }
    return path;
}

Stroke StrokeOf(const CIPC2581_Outline & outline)
{
    const CIPC2581_Polygon & polygon = *outline.Polygon;
    return {Closed(PathOf(*polygon.PolyBegin, *polygon.PolyStepArray)), outline.LineDesc->LineWidth,
            TextOf(outline.LineDesc->LineEnd)};
}

Drawing DrawingOf(const CIPC2581_DrawObjArray * shapes, const Transform & transform)
{
    Drawing drawing;
    for (const CIPC2581_DrawObj * const shape : Each(shapes)) {
        VisitShape(*shape, ShapeReader(transform, drawing));
    }
    return drawing;
}

Shape ShapeOf(const CIPC2581_DrawObjArray * shapes)
{
    return Joined(DrawingOf(shapes, {}).areas);
}

ModelShapes::ModelShapes(const CIPC2581_Parser & board)
{
    const CIPC2581_Content_DictionaryStandard & dictionary = *board.m_Content.DictionaryStandard;
    const double unit = UnitFactor(TextOf(dictionary.Unit), TextOf(board.m_Ecad.m_CadHeader.units));
    for (const auto * const entry : Each(dictionary.EntryArray)) {
        m_shapes.try_emplace(TextOf(entry->EntryStandardId), Placed(ShapeOf(entry->DrawArray), Scaled(unit)));
    }
}

Shape ModelShapes::Named(const CString & id) const
{
    const auto found = m_shapes.find(TextOf(id));
    return found == m_shapes.end() ? Shape() : found->second;
}

}  // namespace ipc2581::facts
