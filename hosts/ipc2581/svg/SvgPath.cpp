#include "hosts/ipc2581/svg/SvgPath.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <numbers>

namespace ipc2581::host {
namespace {

// A file may hold any number, and a picture none that is not finite.
double Tame(double number)
{
    constexpr double limit = 1e9;
    return std::isfinite(number) ? std::clamp(number, -limit, limit) : 0.0;
}

Vertex Tame(const Vertex & point)
{
    return {Tame(point.X), Tame(point.Y)};
}

// How far a curve turns, more than 0 and up to a full turn.
double TurnOf(double from, double to, bool isClockwise)
{
    const double turn = isClockwise ? from - to : to - from;
    return turn > 0 ? turn : turn + 2 * std::numbers::pi;
}

// With zeros in front, up to so many digits.
void AppendDigits(std::string & text, std::int64_t number, std::size_t least)
{
    std::array<char, 20> digits;
    const char * const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    const auto count = static_cast<std::size_t>(end - digits.data());
    text.append(least > count ? least - count : 0, '0').append(digits.data(), count);
}

}  // namespace

void AppendNumber(std::string & text, double number, int decimals)
{
    // As a whole number of units of the last decimal, since a picture has more numbers than anything else.
    constexpr std::array<std::int64_t, 10> units = {1,       10,        100,        1'000,       10'000,
                                                    100'000, 1'000'000, 10'000'000, 100'000'000, 1'000'000'000};
    const auto places = static_cast<std::size_t>(std::clamp(decimals, 0, static_cast<int>(units.size()) - 1));
    const std::int64_t unit = units[places];
    const std::int64_t shown = std::llround(Tame(number) * static_cast<double>(unit));
    if (shown < 0) {
        text += '-';
    }
    else if (!text.empty() && text.back() >= '0' && text.back() <= '9') {
        text += ' ';
    }
    const std::int64_t size = std::abs(shown);
    if (size >= unit || size == 0) {
        AppendDigits(text, size / unit, 1);
    }
    if (size % unit != 0) {
        text += '.';
        AppendDigits(text, size % unit, places);
        text.resize(text.find_last_not_of('0') + 1);
    }
}

std::string SvgNumber(double number, int decimals)
{
    std::string text;
    AppendNumber(text, number, decimals);
    return text;
}

SvgPath::SvgPath(const Path & path, int decimals) : m_decimals(decimals)
{
    for (const PathStep & step : path.steps) {
        Add(step);
    }
}

void SvgPath::Add(const PathStep & step)
{
    switch (step.kind) {
    case StepKind::Move:
        AppendPoint('M', Tame(step.end));
        break;
    case StepKind::Line:
        LineTo(Tame(step.end));
        break;
    case StepKind::Arc:
    case StepKind::ClockwiseArc:
        ArcTo(Tame(step.end), Tame(step.center), step.kind == StepKind::ClockwiseArc);
        break;
    case StepKind::Ellipse:
        AddEllipse(Tame(step.center), Tame(step.end));
        break;
    case StepKind::Close:
        m_data += 'Z';
        break;
    }
}

void SvgPath::AppendPoint(char command, const Vertex & point)
{
    m_data += command;
    AppendNumber(m_data, point.X, m_decimals);
    AppendNumber(m_data, point.Y, m_decimals);
    m_box.Add(point);
    m_at = point;
}

void SvgPath::LineTo(const Vertex & end)
{
    constexpr double rounding = 1e-9;
    const bool isUpright = std::abs(end.X - m_at.X) < rounding;
    if (isUpright == (std::abs(end.Y - m_at.Y) < rounding)) {
        AppendPoint('L', end);
        return;
    }
    m_data += isUpright ? 'V' : 'H';
    AppendNumber(m_data, isUpright ? end.Y : end.X, m_decimals);
    m_box.Add(end);
    m_at = end;
}

void SvgPath::AppendArc(double radiusX, double radiusY, bool isLarge, bool isClockwise, const Vertex & end)
{
    m_data += 'A';
    AppendNumber(m_data, radiusX, m_decimals);
    AppendNumber(m_data, radiusY, m_decimals);
    m_data += isLarge ? " 0 1" : " 0 0";
    m_data += isClockwise ? " 0" : " 1";
    AppendNumber(m_data, end.X, m_decimals);
    AppendNumber(m_data, end.Y, m_decimals);
    m_at = end;
}

void SvgPath::ArcTo(const Vertex & end, const Vertex & center, bool isClockwise)
{
    const Vertex start = m_at;
    const double radius = std::hypot(start.X - center.X, start.Y - center.Y);
    if (SvgNumber(radius, m_decimals) == "0") {
        AppendPoint('L', end);
        return;
    }
    m_box.AddArc(start, end, center, isClockwise);
    const double from = std::atan2(start.Y - center.Y, start.X - center.X);
    const double turn = TurnOf(from, std::atan2(end.Y - center.Y, end.X - center.X), isClockwise);
    // Two arcs where the ends are so near each other that rounding could turn a circle into nothing.
    const bool isNearlyRound = turn > 1.5 * std::numbers::pi;
    if (isNearlyRound) {
        const double half = isClockwise ? from - turn / 2 : from + turn / 2;
        AppendArc(radius, radius, false, isClockwise,
                  {center.X + radius * std::cos(half), center.Y + radius * std::sin(half)});
    }
    AppendArc(radius, radius, !isNearlyRound && turn > std::numbers::pi, isClockwise, end);
}

void SvgPath::AddEllipse(const Vertex & center, const Vertex & radii)
{
    const double x = std::abs(radii.X);
    const double y = std::abs(radii.Y);
    AppendPoint('M', {center.X + x, center.Y});
    AppendArc(x, y, false, false, {center.X - x, center.Y});
    AppendArc(x, y, false, false, {center.X + x, center.Y});
    m_data += 'Z';
    m_box.Add(Vertex(center.X - x, center.Y - y));
    m_box.Add(Vertex(center.X + x, center.Y + y));
}

}  // namespace ipc2581::host
