#ifndef IPC2581_TESTS_IMPORT_FACTS_GEOMETRY_H
#define IPC2581_TESTS_IMPORT_FACTS_GEOMETRY_H

#include <vector>

#include "tests/import/facts/Fact.h"

namespace ipc2581::facts {

struct Point {
    double x = 0.0;
    double y = 0.0;
};

// What an Xform element states.
struct Xform {
    double rotation = 0.0;
    bool mirror = false;
    double xOffset = 0.0;
    double yOffset = 0.0;
    double scale = 1.0;
};

// A turn, a mirror, a scale and a move, in this order from the inside.
struct Transform {
    double xx = 1.0;
    double xy = 0.0;
    double yx = 0.0;
    double yy = 1.0;
    Point move{};

    [[nodiscard]] Point Of(Point point) const;
    [[nodiscard]] Transform Of(const Transform & inner) const;
    [[nodiscard]] bool Mirrors() const { return xx * yy - xy * yx < 0; }
};

Transform Moved(Point by);
Transform Scaled(double factor);
// Scaled, turned counterclockwise, mirrored from x to -x, moved.
Transform TransformOf(const Xform & xform);

// A way from point to point. A curve that ends where it starts is a whole circle.
struct Step {
    Point end{};
    bool isCurve = false;
    Point center{};
    bool isClockwise = false;
};
struct Path {
    Point begin{};
    std::vector<Step> steps{};
};

Path Placed(const Path & path, const Transform & transform);
bool IsClosed(const Path & path);
// With a last step to its begin, if it ends elsewhere.
Path Closed(Path path);

// What a stroke along the path is known by. A closed one is judged by what it surrounds, wherever it starts and
// whatever pieces it is made of; an open one by its points and one in the middle of each curve.
std::vector<Number> StrokeNumbers(const Path & path);

// What is drawn filled: outlines with cutouts in them, and further numbers that tell apart what looks alike.
struct Shape {
    std::vector<Path> outlines{};
    std::vector<Path> cutouts{};
    std::vector<Number> more{};
};

Shape Placed(const Shape & shape, const Transform & transform);
// All of them in one.
Shape Joined(const std::vector<Shape> & shapes);
// Extents, area and centroid without the cutouts, and the length of all outlines.
std::vector<Number> ShapeNumbers(const Shape & shape);

}  // namespace ipc2581::facts

#endif
