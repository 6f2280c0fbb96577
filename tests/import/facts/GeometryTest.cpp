#include "tests/import/facts/Geometry.h"

#include <cmath>
#include <map>
#include <numbers>
#include <string>

#include <gtest/gtest.h>

#include "ipc2581/base/Codes.h"
#include "tests/import/facts/Shapes.h"
#include "tests/import/facts/Values.h"

namespace ipc2581::facts {
namespace {

constexpr double Pi = std::numbers::pi;

std::map<std::string, double> ByName(const std::vector<Number> & numbers)
{
    std::map<std::string, double> named;
    for (const Number & number : numbers) {
        named.emplace(number.name, number.value);
    }
    return named;
}

void ExpectAt(Point point, double x, double y)
{
    EXPECT_NEAR(point.x, x, 1e-9);
    EXPECT_NEAR(point.y, y, 1e-9);
}

Path Curve(Point begin, Point end, Point center, bool isClockwise)
{
    return {begin, {{.end = end, .isCurve = true, .center = center, .isClockwise = isClockwise}}};
}

TEST(Transform, TurnsThenMirrorsThenMoves)
{
    const Transform transform = TransformOf({.rotation = 90, .mirror = true, .xOffset = 10, .yOffset = 20, .scale = 2});
    ExpectAt(transform.Of(Point{1, 0}), 10, 22);
    ExpectAt(transform.Of(Point{0, 1}), 12, 20);
    EXPECT_TRUE(transform.Mirrors());
    ExpectAt(Moved({1, 1}).Of(transform).Of(Point{0, 0}), 11, 21);
}

TEST(Stroke, HasAPointOnEachCurve)
{
    const auto over = [](bool isClockwise) {
        return ByName(StrokeNumbers(Curve({1, 0}, {-1, 0}, {0, 0}, isClockwise)));
    };
    EXPECT_NEAR(over(false)["overY"], 1, 1e-9);
    EXPECT_NEAR(over(true)["overY"], -1, 1e-9);
}

TEST(Stroke, KeepsItsCurvesWhereTheyAreWhenMirrored)
{
    const Path mirrored = Placed(Curve({1, 0}, {0, 1}, {0, 0}, false), TransformOf({.mirror = true}));
    auto numbers = ByName(StrokeNumbers(mirrored));
    EXPECT_NEAR(numbers["x"], -1, 1e-9);
    EXPECT_NEAR(numbers["overX"], -std::sqrt(0.5), 1e-9);
    EXPECT_NEAR(numbers["overY"], std::sqrt(0.5), 1e-9);
}

TEST(Stroke, ThatIsClosedIsTheSameInAllPieces)
{
    const Path whole = Curve({3, 0}, {3, 0}, {2, 0}, true);
    Path halves = Curve({2, 1}, {2, -1}, {2, 0}, false);
    halves.steps.push_back({.end = {2, 1}, .isCurve = true, .center = {2, 0}});
    const auto expected = ByName(StrokeNumbers(whole));
    for (const auto & [name, value] : ByName(StrokeNumbers(halves))) {
        EXPECT_NEAR(value, expected.at(name), 1e-9) << name;
    }
    EXPECT_NEAR(expected.at("area"), Pi, 1e-9);
    EXPECT_NEAR(expected.at("left"), 1, 1e-9);
}

TEST(Shape, MeasuresHalfADisc)
{
    auto numbers = ByName(ShapeNumbers({.outlines = {Curve({2, 0}, {-2, 0}, {0, 0}, false)}}));
    EXPECT_NEAR(numbers["area"], 2 * Pi, 1e-9);
    EXPECT_NEAR(numbers["centroidX"], 0, 1e-9);
    EXPECT_NEAR(numbers["centroidY"], 8 / (3 * Pi), 1e-9);
    EXPECT_NEAR(numbers["top"], 2, 1e-9);
    EXPECT_NEAR(numbers["bottom"], 0, 1e-9);
    EXPECT_NEAR(numbers["length"], 2 * Pi + 4, 1e-9);
}

// The longer way round: three quarters of a disc around a corner.
TEST(Shape, MeasuresALongCurve)
{
    Path path = Curve({1, 0}, {0, 1}, {0, 0}, true);
    path.steps.push_back({.end = {0, 0}});
    auto numbers = ByName(ShapeNumbers({.outlines = {path}}));
    EXPECT_NEAR(numbers["area"], Pi * 3 / 4, 1e-9);
    EXPECT_NEAR(numbers["left"], -1, 1e-9);
    EXPECT_NEAR(numbers["right"], 1, 1e-9);
    EXPECT_NEAR(numbers["centroidX"], -4 / (9 * Pi), 1e-9);
}

TEST(Shape, LosesItsCutoutsWhateverTheirDirection)
{
    for (const bool isClockwise : {false, true}) {
        const Shape shape{.outlines = {RectangleShape({0, 0}, {4, 4}).outlines},
                          .cutouts = {Curve({2, 1}, {2, 1}, {1, 1}, isClockwise)}};
        auto numbers = ByName(ShapeNumbers(shape));
        EXPECT_NEAR(numbers["area"], 16 - Pi, 1e-9);
        EXPECT_NEAR(numbers["centroidX"], (32 - Pi) / (16 - Pi), 1e-9);
    }
}

// Rounded as in files: the ends of the curve have two distances from its centre.
TEST(Shape, TakesARoundedCentreOnTheBisector)
{
    auto numbers =
        ByName(ShapeNumbers({.outlines = {Curve({0.0354, 0.0118}, {0.0354, -0.0118}, {0.035433, 0}, true)}}));
    EXPECT_NEAR(numbers["right"], 0.0354 + 0.0118, 4e-5);
    EXPECT_NEAR(numbers["area"], Pi * 0.0118 * 0.0118 / 2, 1e-6);
}

TEST(Shapes, HaveTheirAreas)
{
    const auto area = [](const Shape & shape) { return ByName(ShapeNumbers(shape))["area"]; };
    EXPECT_NEAR(area(ButterflyShape(OuterForms::Round, 2)), Pi / 2, 1e-9);
    EXPECT_NEAR(area(ChamferedRectangle(4, 2, 0.5, {.lowerLeft = false})), 8 - 3 * 0.125, 1e-9);
    EXPECT_NEAR(area(CircleShape(2, {5, 5})), Pi, 1e-9);
    EXPECT_NEAR(area(DiamondShape(4, 2)), 4, 1e-9);
    EXPECT_NEAR(area(DonutShape(OuterForms::Square, 4, 2)), 12, 1e-9);
    EXPECT_NEAR(area(EllipseShape(4, 2)), 2 * Pi, 1e-3);
    EXPECT_NEAR(area(HexagonShape(2)), 1.5 * std::sqrt(3.0), 1e-9);
    EXPECT_NEAR(area(OctagonShape(2)), 8 * (std::sqrt(2.0) - 1), 1e-9);
    EXPECT_NEAR(area(OvalShape(4, 2)), 4 + Pi, 1e-9);
    EXPECT_NEAR(area(OvalShape(2, 4)), 4 + Pi, 1e-9);
    EXPECT_NEAR(area(RoundedRectangle(4, 2, 0.5, {})), 8 - 1 + Pi / 4, 1e-9);
    EXPECT_NEAR(area(TriangleShape(4, 2)), 4, 1e-9);
}

TEST(Values, AreThoseOfXml)
{
    EXPECT_EQ(NumberOf(" +1.5E1\n"), 15.0);
    EXPECT_EQ(NumberOf("-.5"), -0.5);
    EXPECT_EQ(NumberOf(""), 0.0);
    EXPECT_EQ(Turn(-90), 270.0);
    EXPECT_EQ(Turn(720), 0.0);
    EXPECT_EQ(UnitFactor("MICRON", "MILLIMETER"), 0.001);
    EXPECT_EQ(UnitFactor("INCH", "MILLIMETER"), 25.4);
    EXPECT_EQ(UnitFactor("", "INCH"), 1.0);
}

}  // namespace
}  // namespace ipc2581::facts
