#include "hosts/ipc2581/drawing/Path.h"

#include "hosts/ipc2581/geometry/Extents.h"

namespace ipc2581::host {

void Path::MoveTo(const Vertex & end)
{
    steps.push_back({StepKind::Move, end, {}});
}

void Path::LineTo(const Vertex & end)
{
    steps.push_back({StepKind::Line, end, {}});
}

void Path::ArcTo(const Vertex & end, const Vertex & center, bool isClockwise)
{
    steps.push_back({isClockwise ? StepKind::ClockwiseArc : StepKind::Arc, end, center});
}

void Path::Close()
{
    steps.push_back({StepKind::Close, {}, {}});
}

void Path::AddEllipse(const Vertex & center, double radiusX, double radiusY)
{
    steps.push_back({StepKind::Ellipse, {radiusX, radiusY}, center});
}

void Path::AddSteps(const CIPC2581_Point & begin, const CIPC2581_PolyStepArray & polySteps)
{
    if (polySteps.IsEmpty()) {
        return;
    }
    MoveTo(*begin.Point);
    for (const CIPC2581_PolyStep * const step : Each(polySteps)) {
        if (step->Type == StepTypes::Segment) {
            LineTo(*step->EndPoint->Point);
        }
        else {
            // The reader keeps no trace of a missing direction: such a curve stands there as a file's "FALSE" does,
            // and is drawn like it.
            ArcTo(*step->EndPoint->Point, *step->CenterPoint->Point, IsDrawnClockwise(*step));
        }
    }
}

void Path::AddContour(const CIPC2581_Point & begin, const CIPC2581_PolyStepArray & polySteps)
{
    if (!polySteps.IsEmpty()) {
        AddSteps(begin, polySteps);
        Close();
    }
}

Path Path::Moved(double scale, const Vertex & offset) const
{
    const auto place = [&](Vertex & point) { point = {point.X * scale + offset.X, point.Y * scale + offset.Y}; };
    Path moved = *this;
    for (PathStep & step : moved.steps) {
        if (step.kind == StepKind::Ellipse) {
            step.end = {step.end.X * scale, step.end.Y * scale};
        }
        else if (step.kind != StepKind::Close) {
            place(step.end);
        }
        if (step.kind == StepKind::Arc || step.kind == StepKind::ClockwiseArc || step.kind == StepKind::Ellipse) {
            place(step.center);
        }
    }
    return moved;
}

}  // namespace ipc2581::host
