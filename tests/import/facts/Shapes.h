#ifndef IPC2581_TESTS_IMPORT_FACTS_SHAPES_H
#define IPC2581_TESTS_IMPORT_FACTS_SHAPES_H

#include "tests/import/facts/Geometry.h"

namespace ipc2581::facts {

// The standard primitives as outlines, from the numbers that a file or a model has for them.

// Which corners of a rectangle are cut. Where none is named, all are: a cut rectangle without cut corners is none.
struct Corners {
    bool upperRight = true;
    bool upperLeft = true;
    bool lowerLeft = true;
    bool lowerRight = true;
};

Shape ButterflyShape(int form, double size);
Shape ChamferedRectangle(double width, double height, double chamfer, const Corners & corners);
Shape CircleShape(double diameter, Point center = {});
Shape DiamondShape(double width, double height);
Shape DonutShape(int form, double outerDiameter, double innerDiameter);
Shape EllipseShape(double width, double height);
Shape HexagonShape(double length);
Shape MoireShape(double diameter, const std::vector<Number> & more);
Shape OctagonShape(double length);
Shape OvalShape(double width, double height);
Shape RectangleShape(Point lowerLeft, Point upperRight);
Shape CenteredRectangle(double width, double height);
Shape RoundedRectangle(double width, double height, double radius, const Corners & corners);
// A donut, with the numbers of its spokes.
Shape ThermalShape(int form, double outerDiameter, double innerDiameter, const std::vector<Number> & more);
Shape TriangleShape(double base, double height);

}  // namespace ipc2581::facts

#endif
