#include "import/shapes/PlacedShape.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

#include "import/shapes/AddTo.h"
#include "import/shapes/ShapePaths.h"
#include "ipc2581/each.h"
#include "ipc2581/fields.h"

namespace ipc2581 {
namespace {

using detail::AddTo;

void Set(CIPC2581_Point & point, const Vertex & to)
{
    point.Point->SetData(to.X, to.Y);
}

void Place(CIPC2581_Point & point, const Placement & placement)
{
    Set(point, placement.Of(*point.Point));
}

void Place(CIPC2581_Point & begin, CIPC2581_PolyStepArray & steps, const Placement & placement)
{
    Place(begin, placement);
    for (CIPC2581_PolyStep * const step : Each(steps)) {
        Place(*step->EndPoint, placement);
        if (step->Type != StepTypes::Segment) {
            Place(*step->CenterPoint, placement);
            step->ClockWise = IsDrawnClockwise(*step) != placement.isMirrored ? 0 : 1;
        }
    }
}

// The shapes that have the form of what is left of them, whatever the transform.

bool Place(CIPC2581_Polygon & shape, const Placement & placement)
{
    Place(*shape.PolyBegin, *shape.PolyStepArray, placement);
    return true;
}

bool Place(CIPC2581_Cutout & shape, const Placement & placement)
{
    Place(*shape.PolyBegin, *shape.PolyStepArray, placement);
    return true;
}

bool Place(CIPC2581_PolyLine & shape, const Placement & placement)
{
    Place(*shape.PolyBegin, *shape.PolyStepArray, placement);
    shape.LineDesc->LineWidth *= placement.scale;
    return true;
}

bool Place(CIPC2581_Line & shape, const Placement & placement)
{
    Place(*shape.StartPoint, placement);
    Place(*shape.EndPoint, placement);
    shape.LineDesc->LineWidth *= placement.scale;
    return true;
}

bool Place(CIPC2581_Outline & shape, const Placement & placement)
{
    shape.LineDesc->LineWidth *= placement.scale;
    return Place(*shape.Polygon, placement);
}

bool Place(CIPC2581_DicDraw_Contour & shape, const Placement & placement)
{
    for (CIPC2581_DrawObj * const part : Each(shape.DicDrawObjArray)) {
        if (auto * const polygon = dynamic_cast<CIPC2581_Polygon *>(part)) {
            Place(*polygon, placement);
        }
        else if (auto * const cutout = dynamic_cast<CIPC2581_Cutout *>(part)) {
            Place(*cutout, placement);
        }
    }
    return true;
}

bool Place(CIPC2581_Text & shape, const Placement & placement)
{
    CIPC2581_Xform & own = *shape.Xform;
    const Placement placed = placement.Of(
        Placement{{own.XOffset, own.YOffset}, own.Rotation, own.Mirror != 0, own.Scale == 0.0 ? 1.0 : own.Scale});
    own.XOffset = placed.location.X;
    own.YOffset = placed.location.Y;
    own.Rotation = placed.rotation;
    own.Mirror = placed.isMirrored ? 1 : 0;
    own.Scale = placed.scale == 1.0 ? own.Scale : placed.scale;
    return true;
}

bool Place(CIPC2581_DicDraw_Circle & shape, const Placement & placement)
{
    const Vertex middle = placement.Of({shape.OffsetX, shape.OffsetY});
    shape.OffsetX = middle.X;
    shape.OffsetY = middle.Y;
    shape.Diameter *= placement.scale;
    return true;
}

// Those that stay of their class only where they are, or in some directions. False for a place that they have no form
// for; they are as before then.

bool IsAtOrigin(const Placement & placement)
{
    return placement.location == Vertex();
}

// True if a form that looks the same again after each turn by the angle is the same after the turn of the placement.
bool IsTurnedInto(const Placement & placement, double angle)
{
    return std::fmod(placement.rotation, angle) == 0.0;
}

template <typename Shape>
void Resize(Shape & shape, const Placement & placement)
{
    shape.Width *= placement.scale;
    shape.Height *= placement.scale;
    if (placement.Quarters() % 2 == 1) {
        std::swap(shape.Width, shape.Height);
    }
}

template <typename Shape>
bool PlaceUpright(Shape & shape, const Placement & placement)
{
    if (!IsAtOrigin(placement) || placement.Quarters() < 0) {
        return false;
    }
    Resize(shape, placement);
    return true;
}

bool Place(CIPC2581_DicDraw_RectCenter & shape, const Placement & placement)
{
    return PlaceUpright(shape, placement);
}
bool Place(CIPC2581_DicDraw_Oval & shape, const Placement & placement)
{
    return PlaceUpright(shape, placement);
}
bool Place(CIPC2581_DicDraw_Ellipse & shape, const Placement & placement)
{
    return PlaceUpright(shape, placement);
}
bool Place(CIPC2581_DicDraw_Diamond & shape, const Placement & placement)
{
    return PlaceUpright(shape, placement);
}

// The corners against the clock.
template <typename Shape>
std::array<int *, 4> CornersOf(Shape & shape)
{
    return {&shape.UpperRight, &shape.UpperLeft, &shape.LowerLeft, &shape.LowerRight};
}

template <typename Shape>
bool PlaceCorners(Shape & shape, double & cut, const Placement & placement)
{
    if (!PlaceUpright(shape, placement)) {
        return false;
    }
    cut *= placement.scale;
    const std::array<int *, 4> corners = CornersOf(shape);
    std::array<int, 4> before = {*corners[0], *corners[1], *corners[2], *corners[3]};
    std::rotate(before.begin(), before.begin() + (4 - placement.Quarters()) % 4, before.end());
    if (placement.isMirrored) {
        std::swap(before[0], before[1]);
        std::swap(before[2], before[3]);
    }
    for (std::size_t i = 0; i < corners.size(); ++i) {
        *corners[i] = before[i];
    }
    return true;
}

bool Place(CIPC2581_DicDraw_RectRound & shape, const Placement & placement)
{
    return PlaceCorners(shape, shape.Radius, placement);
}
bool Place(CIPC2581_DicDraw_RectCham & shape, const Placement & placement)
{
    return PlaceCorners(shape, shape.Chamfer, placement);
}

bool Place(CIPC2581_DicDraw_RectCorner & shape, const Placement & placement)
{
    if (placement.Quarters() < 0) {
        return false;
    }
    const Vertex first = placement.Of({shape.Lower_LeftX, shape.Lower_LeftY});
    const Vertex second = placement.Of({shape.Upper_RightX, shape.Upper_RightY});
    shape.Lower_LeftX = std::min(first.X, second.X);
    shape.Lower_LeftY = std::min(first.Y, second.Y);
    shape.Upper_RightX = std::max(first.X, second.X);
    shape.Upper_RightY = std::max(first.Y, second.Y);
    return true;
}

template <typename Shape>
bool PlaceRegular(Shape & shape, double angle, const Placement & placement)
{
    if (!IsAtOrigin(placement) || !IsTurnedInto(placement, angle)) {
        return false;
    }
    shape.Length *= placement.scale;
    return true;
}

bool Place(CIPC2581_DicDraw_Hexagon & shape, const Placement & placement)
{
    return PlaceRegular(shape, 60, placement);
}
bool Place(CIPC2581_DicDraw_Octagon & shape, const Placement & placement)
{
    return PlaceRegular(shape, 45, placement);
}

// False if an outer form looks different behind the turn.
bool KeepsForm(int form, const Placement & placement)
{
    switch (form) {
    case OuterForms::Square:
        return IsTurnedInto(placement, 90);
    case OuterForms::Hexagon:
        return IsTurnedInto(placement, 60);
    case OuterForms::Octagon:
        return IsTurnedInto(placement, 45);
    default:
        return true;
    }
}

bool Place(CIPC2581_DicDraw_Donut & shape, const Placement & placement)
{
    if (!IsAtOrigin(placement) || !KeepsForm(shape.Shape, placement)) {
        return false;
    }
    shape.OuterDiameter *= placement.scale;
    shape.InnerDiameter *= placement.scale;
    return true;
}

// An angle from the x axis.
double Turned(double angle, const Placement & placement)
{
    const double turned = angle + placement.rotation;
    return placement.isMirrored ? 180 - turned : turned;
}

bool Place(CIPC2581_DicDraw_Thermal & shape, const Placement & placement)
{
    if (!IsAtOrigin(placement) || !KeepsForm(shape.Shape, placement)) {
        return false;
    }
    shape.OuterDiameter *= placement.scale;
    shape.InnerDiameter *= placement.scale;
    shape.Gap *= placement.scale;
    shape.SpokeStartAngle = Turned(shape.SpokeStartAngle, placement);
    return true;
}

bool Place(CIPC2581_DicDraw_Moire & shape, const Placement & placement)
{
    if (!IsAtOrigin(placement)) {
        return false;
    }
    for (double * const length :
         {&shape.Diameter, &shape.RingWidth, &shape.RingGap, &shape.LineWidth, &shape.LineLength}) {
        *length *= placement.scale;
    }
    shape.LineAngle = Turned(shape.LineAngle, placement);
    return true;
}

bool Place(CIPC2581_DicDraw_Butterfly & shape, const Placement & placement)
{
    // Its wings change places with what is between them by a quarter, and by a mirror.
    const bool isSame = placement.Quarters() >= 0 && (placement.Quarters() % 2 == 1) == placement.isMirrored;
    if (!IsAtOrigin(placement) || !isSame) {
        return false;
    }
    shape.Size *= placement.scale;
    return true;
}

bool Place(CIPC2581_DicDraw_Triangle & shape, const Placement & placement)
{
    if (!IsAtOrigin(placement) || placement.Quarters() != 0) {
        return false;
    }
    shape.Base *= placement.scale;
    shape.Height *= placement.scale;
    return true;
}

// A plain shape has nothing to place.
bool Place(CIPC2581_DrawObj & /*shape*/, const Placement & /*placement*/)
{
    return true;
}
bool Place(CIPC2581_Arc & shape, const Placement & placement)
{
    Place(*shape.StartPoint, placement);
    Place(*shape.EndPoint, placement);
    Place(*shape.CenterPoint, placement);
    shape.Clockwise = (shape.Clockwise != 0) != placement.isMirrored ? 1 : 0;
    shape.LineDesc->LineWidth *= placement.scale;
    return true;
}

// Contours of a path, one by one, each from its begin to its end.
std::vector<Path> ContoursOf(const Path & path)
{
    std::vector<Path> contours;
    for (const PathStep & step : path.steps) {
        if (step.kind == StepKind::Move || step.kind == StepKind::Ellipse || contours.empty()) {
            contours.emplace_back();
        }
        contours.back().steps.push_back(step);
    }
    return contours;
}

struct Box {
    Vertex low = {1e300, 1e300};
    Vertex high = {-1e300, -1e300};

    void Add(const Vertex & point)
    {
        low = {std::min(low.X, point.X), std::min(low.Y, point.Y)};
        high = {std::max(high.X, point.X), std::max(high.Y, point.Y)};
    }
    [[nodiscard]] bool Holds(const Box & other) const
    {
        return low.X < other.low.X && low.Y < other.low.Y && high.X > other.high.X && high.Y > other.high.Y;
    }
};

Box BoxOf(const Path & contour)
{
    Box box;
    for (const PathStep & step : contour.steps) {
        if (step.kind == StepKind::Ellipse) {
            box.Add({step.center.X - step.end.X, step.center.Y - step.end.Y});
            box.Add({step.center.X + step.end.X, step.center.Y + step.end.Y});
        }
        else if (step.kind != StepKind::Close) {
            box.Add(step.end);
        }
    }
    return box;
}

void AddStep(CIPC2581_PolyStepArray & steps, const Vertex & end)
{
    auto step = std::make_unique<CIPC2581_PolyStep>();
    Set(*step->EndPoint, end);
    AddTo(steps, std::move(step));
}

void AddCurve(CIPC2581_PolyStepArray & steps, const Vertex & end, const Vertex & center, bool isClockwise)
{
    auto step = std::make_unique<CIPC2581_PolyStep>();
    step->Type = StepTypes::Curve;
    Set(*step->EndPoint, end);
    Set(*step->CenterPoint, center);
    step->ClockWise = isClockwise ? 0 : 1;
    AddTo(steps, std::move(step));
}

// A circle as two halves; an ellipse, which no curve is, as a polygon.
void FillEllipse(const PathStep & ellipse, CIPC2581_Point & begin, CIPC2581_PolyStepArray & steps)
{
    if (ellipse.end.X == ellipse.end.Y) {
        const Vertex right(ellipse.center.X + ellipse.end.X, ellipse.center.Y);
        const Vertex left(ellipse.center.X - ellipse.end.X, ellipse.center.Y);
        Set(begin, right);
        AddCurve(steps, left, ellipse.center, false);
        AddCurve(steps, right, ellipse.center, false);
        return;
    }
    // Placed by a turn that is none but for being no quarter, so that it becomes a polygon.
    Path own;
    own.steps.push_back(ellipse);
    constexpr double leastTurn = 1e-300;
    const Path polygon = Placed(own, {.rotation = leastTurn});
    Set(begin, polygon.steps.front().end);
    for (std::size_t i = 1; i + 1 < polygon.steps.size(); ++i) {
        AddStep(steps, polygon.steps[i].end);
    }
    AddStep(steps, polygon.steps.front().end);
}

// Begin and steps of one contour of a path.
void Fill(const Path & contour, CIPC2581_Point & begin, CIPC2581_PolyStepArray & steps)
{
    const PathStep & first = contour.steps.front();
    if (first.kind == StepKind::Ellipse) {
        FillEllipse(first, begin, steps);
        return;
    }
    Set(begin, first.end);
    Vertex at = first.end;
    for (std::size_t i = 1; i < contour.steps.size(); ++i) {
        const PathStep & step = contour.steps[i];
        if (step.kind == StepKind::Close) {
            if (at != first.end) {
                AddStep(steps, first.end);
            }
            continue;
        }
        step.kind == StepKind::Line ? AddStep(steps, step.end)
                                    : AddCurve(steps, step.end, step.center, step.kind == StepKind::ClockwiseArc);
        at = step.end;
    }
}

template <typename Shape>
std::unique_ptr<Shape> ContourShapeOf(const Path & contour)
{
    auto shape = std::make_unique<Shape>();
    Fill(contour, *shape->PolyBegin, *shape->PolyStepArray);
    return shape;
}

// Copies all members, by the table of the class: an assignment of the model keeps what hosts rely on, which is less.
template <typename Object>
void CopyMembers(const Object & from, Object & to);

template <typename Value>
void CopyValue(const Value & from, Value & to)
{
    if constexpr (KindOf<Value>() == FieldKind::List) {
        for (const auto * const element : Each(from)) {
            using Element = std::remove_cvref_t<decltype(*element)>;
            if constexpr (std::is_same_v<Element, CIPC2581_DrawObj>) {
                AddTo(to, CopyOf(*element));
            }
            else {
                auto copy = std::make_unique<Element>();
                CopyMembers(*element, *copy);
                AddTo(to, std::move(copy));
            }
        }
    }
    else if constexpr (KindOf<Value>() == FieldKind::Part) {
        CopyMembers(from, to);
    }
    else {
        to = from;
    }
}

template <typename Object>
void CopyMembers(const Object & from, Object & to)
{
    ForEachMember(to, [&](const auto & member, auto & value) {
        if constexpr (std::is_pointer_v<std::remove_cvref_t<decltype(value)>>) {
            CopyValue(*(from.*member.pointer), *value);
        }
        else {
            CopyValue(from.*member.pointer, value);
        }
    });
}

// The shape, or the contours that are left of it, placed.
template <typename Shape>
void AddPlacedOf(Shape & shape, std::unique_ptr<CIPC2581_DrawObj> owner, const Placement & placement, Shapes & placed)
{
    if (Place(shape, placement)) {
        placed.push_back(std::move(owner));
        return;
    }
    for (const Path & path : FilledPaths(shape)) {
        AddContours(Placed(path, placement), placed);
    }
}

}  // namespace

std::unique_ptr<CIPC2581_DrawObj> CopyOf(const CIPC2581_DrawObj & shape)
{
    std::unique_ptr<CIPC2581_DrawObj> copy;
    VisitShape(shape, [&](const auto & own) {
        auto made = std::make_unique<std::remove_cvref_t<decltype(own)>>();
        CopyMembers(own, *made);
        copy = std::move(made);
    });
    return copy;
}

std::size_t PointsOf(const CIPC2581_DrawObj & shape)
{
    std::size_t points = 1;
    VisitShape(shape, [&](const auto & own) {
        using Shape = std::remove_cvref_t<decltype(own)>;
        if constexpr (std::is_same_v<Shape, CIPC2581_Outline>) {
            points += Count(*own.Polygon->PolyStepArray);
        }
        else if constexpr (std::is_same_v<Shape, CIPC2581_DicDraw_Contour>) {
            for (const CIPC2581_DrawObj * const part : Each(own.DicDrawObjArray)) {
                points += PointsOf(*part);
            }
        }
        else if constexpr (requires { own.PolyStepArray; }) {
            points += Count(*own.PolyStepArray);
        }
    });
    return points;
}

void AddPlaced(std::unique_ptr<CIPC2581_DrawObj> shape, const Placement & placement, Shapes & placed)
{
    if (placement.IsNothing()) {
        placed.push_back(std::move(shape));
        return;
    }
    CIPC2581_DrawObj & own = *shape;
    VisitShape(own, [&](const auto & typed) {
        using Shape = std::remove_cvref_t<decltype(typed)>;
        AddPlacedOf(const_cast<Shape &>(typed), std::move(shape), placement, placed);
    });
}

void AddContours(const Path & path, Shapes & contours)
{
    const std::vector<Path> parts = ContoursOf(path);
    std::vector<Box> boxes;
    boxes.reserve(parts.size());
    std::transform(parts.begin(), parts.end(), std::back_inserter(boxes), BoxOf);
    const auto depthOf = [&](const Box & box) {
        return std::count_if(boxes.begin(), boxes.end(), [&](const Box & other) { return other.Holds(box); });
    };
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const auto depth = depthOf(boxes[i]);
        if (depth % 2 != 0) {
            continue;
        }
        auto contour = std::make_unique<CIPC2581_DicDraw_Contour>();
        AddTo(contour->DicDrawObjArray, ContourShapeOf<CIPC2581_Polygon>(parts[i]));
        for (std::size_t inner = 0; inner < parts.size(); ++inner) {
            if (boxes[i].Holds(boxes[inner]) && depthOf(boxes[inner]) == depth + 1) {
                AddTo(contour->DicDrawObjArray, ContourShapeOf<CIPC2581_Cutout>(parts[inner]));
            }
        }
        contours.push_back(std::move(contour));
    }
}

void AddStrokes(const Path & path, const CIPC2581_LineDesc & lineDesc, Shapes & strokes)
{
    for (const Path & contour : ContoursOf(path)) {
        auto stroke = ContourShapeOf<CIPC2581_PolyLine>(contour);
        *stroke->LineDesc = lineDesc;
        strokes.push_back(std::move(stroke));
    }
}

bool IsSymmetric(const CIPC2581_DrawObj & shape)
{
    const auto haveEqualCorners = [](const auto & rect) {
        return rect.UpperLeft == rect.UpperRight && rect.LowerLeft == rect.LowerRight;
    };
    bool isSymmetric = false;
    VisitShape(shape, [&](const auto & own) {
        using Shape = std::remove_cvref_t<decltype(own)>;
        if constexpr (std::is_same_v<Shape, CIPC2581_DicDraw_Circle>) {
            isSymmetric = own.OffsetX == 0.0;
        }
        else if constexpr (std::is_same_v<Shape, CIPC2581_DicDraw_RectRound> ||
                           std::is_same_v<Shape, CIPC2581_DicDraw_RectCham>) {
            isSymmetric = haveEqualCorners(own);
        }
        else if constexpr (std::is_same_v<Shape, CIPC2581_DicDraw_RectCorner>) {
            isSymmetric = own.Lower_LeftX == -own.Upper_RightX;
        }
        else {
            isSymmetric =
                std::is_same_v<Shape, CIPC2581_DicDraw_RectCenter> || std::is_same_v<Shape, CIPC2581_DicDraw_Oval> ||
                std::is_same_v<Shape, CIPC2581_DicDraw_Ellipse> || std::is_same_v<Shape, CIPC2581_DicDraw_Diamond> ||
                std::is_same_v<Shape, CIPC2581_DicDraw_Hexagon> || std::is_same_v<Shape, CIPC2581_DicDraw_Octagon> ||
                std::is_same_v<Shape, CIPC2581_DicDraw_Donut> || std::is_same_v<Shape, CIPC2581_DicDraw_Triangle>;
        }
    });
    return isSymmetric;
}

}  // namespace ipc2581
