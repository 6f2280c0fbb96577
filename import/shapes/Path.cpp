#include "import/shapes/Path.h"

namespace ipc2581 {

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

}  // namespace ipc2581
