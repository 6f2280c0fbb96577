#include "hosts/ipc2581/svg/SvgPath.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>
#include <string_view>

namespace ipc2581::host {
namespace {

// A file may hold any number, and a picture none that is not finite.
double Tame(double number)
{
    constexpr double limit = 1e9;
    return std::isfinite(number) ? std::clamp(number, -limit, limit) : 0.0;
}

// How far a curve turns, more than 0 and up to a full turn.
double TurnOf(double from, double to, bool isClockwise)
{
    const double turn = isClockwise ? from - to : to - from;
    return turn > 0 ? turn : turn + 2 * std::numbers::pi;
}

}  // namespace

void AppendNumber(std::string & text, double number, int decimals)
{
    std::array<char, 32> digits;
    const auto [end, error] =
        std::to_chars(digits.data(), digits.data() + digits.size(), Tame(number), std::chars_format::fixed, decimals);
    std::string_view shown(digits.data(), static_cast<std::size_t>(end - digits.data()));
    if (shown.find('.') != std::string_view::npos) {
        shown.remove_suffix(shown.size() - 1 - shown.find_last_not_of('0'));
        shown.remove_suffix(shown.ends_with('.') ? 1 : 0);
    }
    const bool isNegative = shown.starts_with('-');
    shown.remove_prefix(isNegative ? 1 : 0);
    if (isNegative && shown != "0") {
        text += '-';
    }
    else if (!text.empty() && text.back() >= '0' && text.back() <= '9') {
        text += ' ';
    }
    shown.remove_prefix(shown.starts_with("0.") ? 1 : 0);
    text += shown;
}

std::string SvgNumber(double number, int decimals)
{
    std::string text;
    AppendNumber(text, number, decimals);
    return text;
}

CPointD SvgPath::Placed(const CPointD & point) const
{
    return {Tame(point.X * m_frame.scale + m_frame.offset.X), Tame(point.Y * m_frame.scale + m_frame.offset.Y)};
}

void SvgPath::AppendPoint(char command, const CPointD & placed)
{
    m_data += command;
    AppendNumber(m_data, placed.X, m_frame.decimals);
    AppendNumber(m_data, placed.Y, m_frame.decimals);
    m_box.Add(placed);
    m_at = placed;
}

void SvgPath::MoveTo(const CPointD & point)
{
    AppendPoint('M', Placed(point));
}

void SvgPath::LineTo(const CPointD & point)
{
    const CPointD end = Placed(point);
    constexpr double rounding = 1e-9;
    const bool isUpright = std::abs(end.X - m_at.X) < rounding;
    if (isUpright == (std::abs(end.Y - m_at.Y) < rounding)) {
        AppendPoint('L', end);
        return;
    }
    m_data += isUpright ? 'V' : 'H';
    AppendNumber(m_data, isUpright ? end.Y : end.X, m_frame.decimals);
    m_box.Add(end);
    m_at = end;
}

void SvgPath::AppendArc(double radiusX, double radiusY, bool isLarge, bool isClockwise, const CPointD & placed)
{
    m_data += 'A';
    AppendNumber(m_data, radiusX, m_frame.decimals);
    AppendNumber(m_data, radiusY, m_frame.decimals);
    m_data += isLarge ? " 0 1" : " 0 0";
    m_data += isClockwise ? " 0" : " 1";
    AppendNumber(m_data, placed.X, m_frame.decimals);
    AppendNumber(m_data, placed.Y, m_frame.decimals);
    m_at = placed;
}

void SvgPath::ArcTo(const CPointD & end, const CPointD & center, bool isClockwise)
{
    const CPointD start = m_at;
    const CPointD to = Placed(end);
    const CPointD middle = Placed(center);
    const double radius = std::hypot(start.X - middle.X, start.Y - middle.Y);
    if (SvgNumber(radius, m_frame.decimals) == "0") {
        AppendPoint('L', to);
        return;
    }
    m_box.AddArc(start, to, middle, isClockwise);
    const double from = std::atan2(start.Y - middle.Y, start.X - middle.X);
    const double turn = TurnOf(from, std::atan2(to.Y - middle.Y, to.X - middle.X), isClockwise);
    // Two arcs where the ends are so near each other that rounding could turn a circle into nothing.
    const bool isNearlyRound = turn > 1.5 * std::numbers::pi;
    if (isNearlyRound) {
        const double half = isClockwise ? from - turn / 2 : from + turn / 2;
        AppendArc(radius, radius, false, isClockwise,
                  {middle.X + radius * std::cos(half), middle.Y + radius * std::sin(half)});
    }
    AppendArc(radius, radius, !isNearlyRound && turn > std::numbers::pi, isClockwise, to);
}

void SvgPath::Close()
{
    m_data += 'Z';
}

void SvgPath::AddEllipse(const CPointD & center, double radiusX, double radiusY)
{
    const CPointD middle = Placed(center);
    const double x = std::abs(Tame(radiusX * m_frame.scale));
    const double y = std::abs(Tame(radiusY * m_frame.scale));
    AppendPoint('M', {middle.X + x, middle.Y});
    AppendArc(x, y, false, false, {middle.X - x, middle.Y});
    AppendArc(x, y, false, false, {middle.X + x, middle.Y});
    Close();
    m_box.Add({middle.X - x, middle.Y - y});
    m_box.Add({middle.X + x, middle.Y + y});
}

void SvgPath::AddSteps(const CIPC2581_Point & begin, const CIPC2581_PolyStepArray & steps)
{
    if (steps.GetSize() == 0) {
        return;
    }
    MoveTo(*begin.Point);
    for (const CIPC2581_PolyStep * const step : Each(steps)) {
        if (step->Type == 0) {
            LineTo(*step->EndPoint->Point);
        }
        else {
            // The reader keeps no trace of a missing direction: such a curve stands there as a file's "FALSE" does,
            // and is drawn like it.
            ArcTo(*step->EndPoint->Point, *step->CenterPoint->Point, IsDrawnClockwise(*step));
        }
    }
}

void SvgPath::AddContour(const CIPC2581_Point & begin, const CIPC2581_PolyStepArray & steps)
{
    if (steps.GetSize() != 0) {
        AddSteps(begin, steps);
        Close();
    }
}

}  // namespace ipc2581::host
