#include "tests/import/support/ShapeText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <type_traits>

#include "import/shapes/Path.h"
#include "ipc2581/each.h"
#include "ipc2581/fields.h"

namespace ipc2581::tests {
namespace {

std::string PenText(const CIPC2581_LineDesc & lineDesc)
{
    return " pen " + NumberText(lineDesc.LineWidth) + " " + Str(lineDesc.LineEnd);
}

std::string TextOf(const CIPC2581_Line & line)
{
    return "Line " + PointText(*line.StartPoint->Point) + " to " + PointText(*line.EndPoint->Point) +
           PenText(*line.LineDesc);
}

std::string TextOf(const CIPC2581_PolyLine & line)
{
    return "Polyline " + StepsText(*line.PolyBegin, *line.PolyStepArray) + PenText(*line.LineDesc);
}

std::string TextOf(const CIPC2581_Polygon & polygon)
{
    return "Polygon " + StepsText(*polygon.PolyBegin, *polygon.PolyStepArray);
}

std::string TextOf(const CIPC2581_Cutout & cutout)
{
    return "Cutout " + StepsText(*cutout.PolyBegin, *cutout.PolyStepArray);
}

std::string TextOf(const CIPC2581_Outline & outline)
{
    return "Outline " + StepsText(*outline.Polygon->PolyBegin, *outline.Polygon->PolyStepArray) +
           PenText(*outline.LineDesc);
}

std::string TextOf(const CIPC2581_DicDraw_Contour & contour)
{
    std::string text = "Contour";
    for (const CIPC2581_DrawObj * const part : Each(contour.DicDrawObjArray)) {
        const std::string own = ShapeText(*part);
        text.append(own.starts_with("Cutout") ? " without" : "").append(own.substr(own.find(' ')));
    }
    return text;
}

std::string TextOf(const CIPC2581_Text & text)
{
    return "Text \"" + Str(text.TextString) + "\" size " + NumberText(text.FontSize) + " at " + XformText(*text.Xform) +
           " in " + NumberText(text.BoundingBox_LowLeftX) + "," + NumberText(text.BoundingBox_LowLeftY) + " to " +
           NumberText(text.BoundingBox_UppRightX) + "," + NumberText(text.BoundingBox_UppRightY) + " font " +
           Str(text.FontRefID) + " color " + Str(text.ColorGroupID);
}

// A shape of plain numbers, those that are not 0.
template <typename Shape>
std::string TextOf(const Shape & shape)
{
    std::string text(Fields<Shape>::Name);
    for (const std::string_view prefix : {"CIPC2581_", "DicDraw_"}) {
        text.erase(0, text.starts_with(prefix) ? prefix.size() : 0);
    }
    ForEachMember(shape, [&](const auto & member, const auto & value) {
        if constexpr (std::is_arithmetic_v<std::remove_cvref_t<decltype(value)>>) {
            if (member.name != "DrawType" && value != 0) {
                text.append(" ").append(member.name).append("=").append(NumberText(static_cast<double>(value)));
            }
        }
    });
    return text;
}

}  // namespace

std::string NumberText(double number)
{
    constexpr double places = 1e9;
    const double rounded = std::round(number * places) / places;
    std::array<char, 32> digits = {};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), rounded == 0.0 ? 0.0 : rounded);
    return {digits.data(), end.ptr};
}

std::string PointText(const CPointD & point)
{
    return NumberText(point.X) + "," + NumberText(point.Y);
}

std::string StepsText(const CIPC2581_Point & begin, const CIPC2581_PolyStepArray & steps)
{
    std::string text = PointText(*begin.Point);
    for (const CIPC2581_PolyStep * const step : Each(steps)) {
        if (step->Type == StepTypes::Segment) {
            text.append(" line ").append(PointText(*step->EndPoint->Point));
        }
        else {
            text.append(IsDrawnClockwise(*step) ? " clockwise " : " arc ");
            text.append(PointText(*step->EndPoint->Point)).append(" about ");
            text.append(PointText(*step->CenterPoint->Point));
        }
    }
    return text;
}

std::string XformText(const CIPC2581_Xform & xform)
{
    return NumberText(xform.XOffset) + "," + NumberText(xform.YOffset) + " turned " + NumberText(xform.Rotation) +
           (xform.Mirror != 0 ? " mirrored" : "") + " scaled " + NumberText(xform.Scale);
}

std::string ShapeText(const CIPC2581_DrawObj & shape)
{
    std::string text;
    VisitShape(shape, [&](const auto & own) { text = TextOf(own); });
    return text;
}

}  // namespace ipc2581::tests
