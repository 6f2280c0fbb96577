#ifndef IPC2581_IMPORT_SHAPES_PATH_H
#define IPC2581_IMPORT_SHAPES_PATH_H

#include <vector>

#include "ipc2581/ipc2581.h"

namespace ipc2581 {

// A point of a drawing. The y axis points up. Unlike the library's point it has no virtual operations, so that a
// drawing can have millions of them.
struct Vertex {
    double X = 0.0;  // to the right
    double Y = 0.0;  // up

    Vertex() = default;
    // The point x, y.
    Vertex(double x, double y) : X(x), Y(y) {}
    // From a point of the model.
    Vertex(const CPointD & point) : X(point.X), Y(point.Y) {}
    // As a point of the model.
    operator CPointD() const { return {X, Y}; }
    bool operator==(const Vertex &) const = default;
};

// What a step of a path is.
enum class StepKind {
    Move,          // begins a contour
    Line,          // straight on to the end
    Arc,           // counterclockwise to the end; a whole circle if it ends where it starts
    ClockwiseArc,  // clockwise to the end
    Ellipse,       // a closed contour of its own, with its axes along x and y
    Close          // back to where the contour began
};

// A step of a path, from where the one before has ended.
struct PathStep {
    StepKind kind = StepKind::Move;  // what to do with the end
    Vertex end = {};                 // the radii of an ellipse
    Vertex center = {};              // of an arc or an ellipse

    bool operator==(const PathStep &) const = default;
};

// The sense in which a curve of the model is drawn. The model has the word of the file turned round: its 1 is a
// "FALSE".
inline bool IsDrawnClockwise(const CIPC2581_PolyStep & curve)
{
    return curve.ClockWise != 1;
}

// Contours, one behind the other. As an area it is filled by the even-odd rule, so that a contour inside another one is
// a hole in it.
struct IPC2581_API Path {
    std::vector<PathStep> steps;  // each contour begins with a Move or is an Ellipse

    // Each adds the step of its name.
    void MoveTo(const Vertex & end);
    // As MoveTo.
    void LineTo(const Vertex & end);
    // An arc from where the step before has ended.
    void ArcTo(const Vertex & end, const Vertex & center, bool isClockwise);
    // As MoveTo.
    void Close();

    // A closed contour with its axes along x and y.
    void AddEllipse(const Vertex & center, double radiusX, double radiusY);
    // A begin point and its steps, left open. One without steps adds nothing.
    void AddSteps(const CIPC2581_Point & begin, const CIPC2581_PolyStepArray & polySteps);
    // The same, closed.
    void AddContour(const CIPC2581_Point & begin, const CIPC2581_PolyStepArray & polySteps);

    // True if there is no step.
    [[nodiscard]] bool IsEmpty() const { return steps.empty(); }
    bool operator==(const Path &) const = default;
};

}  // namespace ipc2581

#endif
