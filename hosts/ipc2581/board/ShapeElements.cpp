#include "hosts/ipc2581/board/ShapeElements.h"

#include <array>
#include <cstddef>

namespace ipc2581::host {
namespace {

// In the order of the draw types. Nobody reads an outline into a list of shapes; the numbers between are those of the
// base and of hosts.
constexpr std::array<const char *, 24> Names = {
    "",         "Butterfly", "Circle", "Contour",    "Diamond",  "Donut",      "Ellipse",   "Hexagon",
    "Moire",    "Octagon",   "Oval",   "RectCenter", "RectCham", "RectCorner", "RectRound", "Thermal",
    "Triangle", "",          "Line",   "Outline",    "Polyline", "",           "Polygon",   "Cutout"};

void VisitSteps(const CIPC2581_PolyStepArray & steps, const ElementVisitor & visit)
{
    constexpr int behindShapes = 100;
    for (const CIPC2581_PolyStep * const step : Each(steps)) {
        visit(behindShapes + (step->Type == StepTypes::Segment ? 0 : 1), ElementOf(*step));
    }
}

}  // namespace

const char * ElementOf(const CIPC2581_DrawObj & shape)
{
    const auto type = static_cast<std::size_t>(shape.DrawType);
    return type < Names.size() ? Names[type] : "";
}

const char * ElementOf(const CIPC2581_PolyStep & step)
{
    return step.Type == StepTypes::Segment ? "PolyStepSegment" : "PolyStepCurve";
}

void VisitShape(const CIPC2581_DrawObj & shape, const ElementVisitor & visit)
{
    visit(shape.DrawType, ElementOf(shape));
    if (const auto * const contour = dynamic_cast<const CIPC2581_DicDraw_Contour *>(&shape)) {
        for (const CIPC2581_DrawObj * const part : Each(contour->DicDrawObjArray)) {
            VisitShape(*part, visit);
        }
    }
    else if (const auto * const polygon = dynamic_cast<const CIPC2581_Polygon *>(&shape)) {
        VisitSteps(*polygon->PolyStepArray, visit);
    }
    else if (const auto * const cutout = dynamic_cast<const CIPC2581_Cutout *>(&shape)) {
        VisitSteps(*cutout->PolyStepArray, visit);
    }
    else if (const auto * const polyline = dynamic_cast<const CIPC2581_PolyLine *>(&shape)) {
        VisitSteps(*polyline->PolyStepArray, visit);
    }
}

}  // namespace ipc2581::host
