#include "import/shapes/PlacedShape.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <numbers>
#include <random>
#include <string>
#include <typeinfo>
#include <vector>

#include <gtest/gtest.h>

#include "import/shapes/ShapePaths.h"
#include "ipc2581/fields.h"
#include "tests/document/ModelText.h"
#include "tests/import/support/ShapeText.h"
#include "tests/support/Text.h"

namespace ipc2581::tests {
namespace {

using Polyline = std::vector<Vertex>;

// The contours of a path as corners, close enough to tell inside from outside.
std::vector<Polyline> Flattened(const Path & path)
{
    constexpr int stepsOfCircle = 180;
    std::vector<Polyline> contours;
    Vertex at;
    const auto addArc = [&](const Vertex & center, double from, double sweep, double radiusX, double radiusY) {
        const int count = std::max(1, static_cast<int>(std::abs(sweep) / (2 * std::numbers::pi) * stepsOfCircle));
        for (int i = 1; i <= count; ++i) {
            const double angle = from + sweep * i / count;
            contours.back().push_back({center.X + radiusX * std::cos(angle), center.Y + radiusY * std::sin(angle)});
        }
    };
    for (const PathStep & step : path.steps) {
        switch (step.kind) {
        case StepKind::Move:
            contours.push_back({step.end});
            break;
        case StepKind::Line:
            contours.back().push_back(step.end);
            break;
        case StepKind::Arc:
        case StepKind::ClockwiseArc: {
            const double from = std::atan2(at.Y - step.center.Y, at.X - step.center.X);
            double sweep = std::atan2(step.end.Y - step.center.Y, step.end.X - step.center.X) - from;
            constexpr double rounding = 1e-9;
            if (step.kind == StepKind::Arc) {
                sweep += sweep <= rounding ? 2 * std::numbers::pi : 0;
            }
            else {
                sweep -= sweep >= -rounding ? 2 * std::numbers::pi : 0;
            }
            const double radius = std::hypot(at.X - step.center.X, at.Y - step.center.Y);
            addArc(step.center, from, sweep, radius, radius);
            break;
        }
        case StepKind::Ellipse:
            contours.emplace_back();
            addArc(step.center, 0, 2 * std::numbers::pi, step.end.X, step.end.Y);
            break;
        case StepKind::Close:
            break;
        }
        at = step.end;
    }
    return contours;
}

using Drawing = std::vector<std::vector<Polyline>>;

Drawing Flattened(const std::vector<Path> & paths)
{
    Drawing drawing;
    for (const Path & path : paths) {
        drawing.push_back(Flattened(path));
    }
    return drawing;
}

// Calls look with each edge, from corner to corner.
template <typename Look>
void ForEachEdge(const std::vector<Polyline> & contours, Look look)
{
    for (const Polyline & contour : contours) {
        for (std::size_t i = 0; i < contour.size(); ++i) {
            look(contour[i], contour[(i + 1) % contour.size()]);
        }
    }
}

double DistanceToEdge(const Vertex & point, const Vertex & from, const Vertex & to)
{
    const double dx = to.X - from.X;
    const double dy = to.Y - from.Y;
    const double length = dx * dx + dy * dy;
    const double part =
        length == 0 ? 0 : std::clamp(((point.X - from.X) * dx + (point.Y - from.Y) * dy) / length, 0.0, 1.0);
    return std::hypot(point.X - from.X - part * dx, point.Y - from.Y - part * dy);
}

double DistanceToEdges(const Drawing & drawing, const Vertex & point)
{
    double distance = 1e300;
    for (const auto & contours : drawing) {
        ForEachEdge(contours, [&](const Vertex & from, const Vertex & to) {
            distance = std::min(distance, DistanceToEdge(point, from, to));
        });
    }
    return distance;
}

// Each path is filled by itself, by the even-odd rule.
bool IsFilled(const Drawing & drawing, const Vertex & point)
{
    return std::any_of(drawing.begin(), drawing.end(), [&](const std::vector<Polyline> & contours) {
        bool isInside = false;
        ForEachEdge(contours, [&](const Vertex & from, const Vertex & to) {
            if ((from.Y > point.Y) != (to.Y > point.Y) &&
                point.X < from.X + (point.Y - from.Y) / (to.Y - from.Y) * (to.X - from.X)) {
                isInside = !isInside;
            }
        });
        return isInside;
    });
}

struct Extents {
    Vertex low = {1e300, 1e300};
    Vertex high = {-1e300, -1e300};

    void Add(const Drawing & drawing)
    {
        for (const auto & contours : drawing) {
            ForEachEdge(contours, [&](const Vertex & from, const Vertex & /*to*/) {
                low = {std::min(low.X, from.X), std::min(low.Y, from.Y)};
                high = {std::max(high.X, from.X), std::max(high.Y, from.Y)};
            });
        }
    }
    [[nodiscard]] double Size() const { return std::max(high.X - low.X, high.Y - low.Y); }
};

// Points all over both drawings, but for those that lie on an edge.
void ExpectSameArea(const Drawing & drawn, const Drawing & expected)
{
    Extents extents;
    extents.Add(drawn);
    extents.Add(expected);
    ASSERT_GT(extents.Size(), 0);
    const double tolerance = extents.Size() * 4e-3;
    std::mt19937 random(1);
    std::uniform_real_distribution<double> x(extents.low.X - tolerance, extents.high.X + tolerance);
    std::uniform_real_distribution<double> y(extents.low.Y - tolerance, extents.high.Y + tolerance);
    constexpr int points = 150;
    int filled = 0;
    int compared = 0;
    for (int i = 0; i < points; ++i) {
        const Vertex point(x(random), y(random));
        if (DistanceToEdges(drawn, point) < tolerance || DistanceToEdges(expected, point) < tolerance) {
            continue;
        }
        ++compared;
        filled += IsFilled(expected, point) ? 1 : 0;
        ASSERT_EQ(IsFilled(drawn, point), IsFilled(expected, point)) << "at " << point.X << "," << point.Y;
    }
    EXPECT_GT(compared, points / 2);
    EXPECT_GT(filled, 0);
}

std::vector<Path> FilledPathsOf(const Shapes & shapes)
{
    std::vector<Path> paths;
    for (const auto & shape : shapes) {
        const std::vector<Path> own = FilledPaths(*shape);
        paths.insert(paths.end(), own.begin(), own.end());
    }
    return paths;
}

std::vector<Path> PlacedPathsOf(const CIPC2581_DrawObj & shape, const Placement & placement)
{
    std::vector<Path> paths = FilledPaths(shape);
    std::transform(paths.begin(), paths.end(), paths.begin(),
                   [&](const Path & path) { return Placed(path, placement); });
    return paths;
}

using Shape = std::unique_ptr<CIPC2581_DrawObj>;

template <typename Class, typename Fill>
Shape Make(Fill fill)
{
    auto shape = std::make_unique<Class>();
    fill(*shape);
    return shape;
}

void AddSegment(CIPC2581_PolyStepArray & steps, double x, double y)
{
    auto step = std::make_unique<CIPC2581_PolyStep>();
    step->EndPoint->Point->SetData(x, y);
    steps.Add(step.release());
}

void AddCurve(CIPC2581_PolyStepArray & steps, double x, double y, double centerX, double centerY, bool isClockwise)
{
    auto step = std::make_unique<CIPC2581_PolyStep>();
    step->Type = StepTypes::Curve;
    step->EndPoint->Point->SetData(x, y);
    step->CenterPoint->Point->SetData(centerX, centerY);
    step->ClockWise = isClockwise ? 0 : 1;
    steps.Add(step.release());
}

// A half moon that is its own image in no mirror, with a hole aside.
Shape MakeContour()
{
    return Make<CIPC2581_DicDraw_Contour>([](auto & contour) {
        auto polygon = std::make_unique<CIPC2581_Polygon>();
        polygon->PolyBegin->Point->SetData(-3, -1);
        AddSegment(*polygon->PolyStepArray, 5, -1);
        AddCurve(*polygon->PolyStepArray, 5, 3, 5, 1, false);
        AddCurve(*polygon->PolyStepArray, 1, 3, 3, 3, true);
        AddSegment(*polygon->PolyStepArray, -3, -1);
        contour.DicDrawObjArray->Add(polygon.release());
        auto cutout = std::make_unique<CIPC2581_Cutout>();
        cutout->PolyBegin->Point->SetData(5, 1);
        AddCurve(*cutout->PolyStepArray, 3, 1, 4, 1, true);
        AddCurve(*cutout->PolyStepArray, 5, 1, 4, 1, true);
        contour.DicDrawObjArray->Add(cutout.release());
    });
}

template <typename Rect>
void FillCorners(Rect & rect, int corners)
{
    rect.Width = 6;
    rect.Height = 4;
    rect.UpperRight = corners & 1;
    rect.UpperLeft = (corners >> 1) & 1;
    rect.LowerLeft = (corners >> 2) & 1;
    rect.LowerRight = (corners >> 3) & 1;
}

struct NamedShape {
    std::string name;
    std::function<Shape()> make;
    // As it is drawn, in a mirror that changes left and right.
    bool isSymmetric = false;
};

void PrintTo(const NamedShape & shape, std::ostream * out)
{
    *out << shape.name;
}

template <typename Class>
NamedShape Sized(const std::string & name, double width, double height)
{
    return {name,
            [=] {
                return Make<Class>([&](auto & shape) {
                    shape.Width = width;
                    shape.Height = height;
                });
            },
            true};
}

template <typename Class>
NamedShape Regular(const std::string & name)
{
    return {name, [] { return Make<Class>([](auto & shape) { shape.Length = 4; }); }, true};
}

const std::vector<std::string> FormNames = {"Round", "Square", "Hexagon", "Octagon"};

void AddFormed(std::vector<NamedShape> & shapes)
{
    for (int form = 0; form < 4; ++form) {
        const std::string & word = FormNames[static_cast<std::size_t>(form)];
        shapes.push_back({word + "Donut",
                          [=] {
                              return Make<CIPC2581_DicDraw_Donut>([&](auto & donut) {
                                  donut.Shape = form;
                                  donut.OuterDiameter = 5;
                                  donut.InnerDiameter = 2;
                              });
                          },
                          true});
        for (const int spokes : {0, 1, 2, 3, 4}) {
            const double start = 20;
            shapes.push_back({word + "ThermalOf" + std::to_string(spokes),
                              [=] {
                                  return Make<CIPC2581_DicDraw_Thermal>([&](auto & thermal) {
                                      thermal.Shape = form;
                                      thermal.OuterDiameter = 6;
                                      thermal.InnerDiameter = 3;
                                      thermal.SpokeCount = spokes;
                                      thermal.Gap = 0.7;
                                      thermal.SpokeStartAngle = start;
                                  });
                              },
                              false});
        }
        if (form < 2) {
            shapes.push_back({word + "Butterfly", [=] {
                                  return Make<CIPC2581_DicDraw_Butterfly>([&](auto & butterfly) {
                                      butterfly.Shape = form;
                                      butterfly.Size = 4;
                                  });
                              }});
        }
    }
}

void AddCornered(std::vector<NamedShape> & shapes)
{
    for (int corners = 0; corners < 16; ++corners) {
        const std::string word = std::to_string(corners);
        // No flag at all means all of them.
        const bool isSymmetric = (corners & 1) == ((corners >> 1) & 1) && ((corners >> 2) & 1) == ((corners >> 3) & 1);
        shapes.push_back({"RectRoundAt" + word,
                          [=] {
                              return Make<CIPC2581_DicDraw_RectRound>([&](auto & rect) {
                                  FillCorners(rect, corners);
                                  rect.Radius = 1.5;
                              });
                          },
                          isSymmetric});
        shapes.push_back({"RectChamAt" + word,
                          [=] {
                              return Make<CIPC2581_DicDraw_RectCham>([&](auto & rect) {
                                  FillCorners(rect, corners);
                                  rect.Chamfer = 1.5;
                              });
                          },
                          isSymmetric});
    }
}

std::vector<NamedShape> AllAreas()
{
    std::vector<NamedShape> shapes = {
        {"Contour", MakeContour},
        {"Circle", [] { return Make<CIPC2581_DicDraw_Circle>([](auto & circle) { circle.Diameter = 3; }); }, true},
        {"CircleAside",
         [] {
             return Make<CIPC2581_DicDraw_Circle>([](auto & circle) {
                 circle.Diameter = 3;
                 circle.OffsetX = 1;
                 circle.OffsetY = -2;
             });
         }},
        {"CircleAbove",
         [] {
             return Make<CIPC2581_DicDraw_Circle>([](auto & circle) {
                 circle.Diameter = 3;
                 circle.OffsetY = 2;
             });
         },
         true},
        Sized<CIPC2581_DicDraw_RectCenter>("RectCenter", 5, 2),
        Sized<CIPC2581_DicDraw_Oval>("Oval", 5, 2),
        Sized<CIPC2581_DicDraw_Oval>("OvalUpright", 2, 5),
        Sized<CIPC2581_DicDraw_Ellipse>("Ellipse", 5, 2),
        Sized<CIPC2581_DicDraw_Ellipse>("EllipseThatIsACircle", 3, 3),
        Sized<CIPC2581_DicDraw_Diamond>("Diamond", 5, 2),
        Regular<CIPC2581_DicDraw_Hexagon>("Hexagon"),
        Regular<CIPC2581_DicDraw_Octagon>("Octagon"),
        {"Triangle",
         [] {
             return Make<CIPC2581_DicDraw_Triangle>([](auto & triangle) {
                 triangle.Base = 5;
                 triangle.Height = 3;
             });
         },
         true},
        {"RectCorner",
         [] {
             return Make<CIPC2581_DicDraw_RectCorner>([](auto & rect) {
                 rect.Lower_LeftX = 1;
                 rect.Lower_LeftY = -1;
                 rect.Upper_RightX = 4;
                 rect.Upper_RightY = 1;
             });
         }},
        {"RectCornerInTheMiddle",
         [] {
             return Make<CIPC2581_DicDraw_RectCorner>([](auto & rect) {
                 rect.Lower_LeftX = -2;
                 rect.Lower_LeftY = 1;
                 rect.Upper_RightX = 2;
                 rect.Upper_RightY = 4;
             });
         },
         true},
        {"Moire", [] {
             return Make<CIPC2581_DicDraw_Moire>([](auto & moire) {
                 moire.Diameter = 8;
                 moire.RingWidth = 0.6;
                 moire.RingGap = 0.7;
                 moire.RingNumber = 3;
                 moire.LineWidth = 0.3;
                 moire.LineLength = 9;
                 moire.LineAngle = 25;
             });
         }}};
    AddFormed(shapes);
    AddCornered(shapes);
    return shapes;
}

std::vector<Placement> AllPlacements()
{
    std::vector<Placement> placements;
    for (const double rotation : {0.0, 90.0, 180.0, 270.0, -90.0, 450.0, 45.0, 60.0, 22.5, 30.0, 17.0}) {
        for (const bool isMirrored : {false, true}) {
            placements.push_back({{}, rotation, isMirrored, 1.0});
            placements.push_back({{}, rotation, isMirrored, 2.5});
            placements.push_back({{7, -3}, rotation, isMirrored, 0.5});
        }
    }
    return placements;
}

std::string PlacementText(const Placement & placement)
{
    return PointText(placement.location) + " turned " + NumberText(placement.rotation) +
           (placement.isMirrored ? " mirrored" : "") + " scaled " + NumberText(placement.scale);
}

void ExpectSameClass(const CIPC2581_DrawObj & shape, const CIPC2581_DrawObj & expected)
{
    EXPECT_EQ(typeid(shape), typeid(expected));
}

class PlacedArea : public testing::TestWithParam<NamedShape> {};

TEST_P(PlacedArea, CoversWhatTheShapeCoversWhenPlaced)
{
    for (const Placement & placement : AllPlacements()) {
        SCOPED_TRACE(PlacementText(placement));
        const Shape shape = GetParam().make();
        const Drawing expected = Flattened(PlacedPathsOf(*shape, placement));
        Shapes placed;
        AddPlaced(GetParam().make(), placement, placed);
        ASSERT_FALSE(placed.empty());
        ExpectSameArea(Flattened(FilledPathsOf(placed)), expected);
        if (HasFailure()) {
            return;
        }
    }
}

TEST_P(PlacedArea, StaysAsItIsWhereThePlacementIsNothing)
{
    Shape shape = GetParam().make();
    const std::string before = ShapeText(*shape);
    const CIPC2581_DrawObj * const own = shape.get();
    Shapes placed;
    AddPlaced(std::move(shape), {}, placed);
    ASSERT_EQ(placed.size(), 1U);
    EXPECT_EQ(placed[0].get(), own);
    EXPECT_EQ(ShapeText(*placed[0]), before);
}

class UprightArea : public testing::TestWithParam<NamedShape> {};

TEST_P(UprightArea, KeepsItsClassInAQuarterTurn)
{
    const Shape shape = GetParam().make();
    Shapes placed;
    AddPlaced(GetParam().make(), {.rotation = 90}, placed);
    ASSERT_EQ(placed.size(), 1U);
    EXPECT_EQ(placed[0]->DrawType, shape->DrawType);
    ExpectSameClass(*placed[0], *shape);
}

TEST_P(PlacedArea, IsSymmetricOnlyIfAMirrorLeavesItAsItIs)
{
    const Shape shape = GetParam().make();
    EXPECT_EQ(IsSymmetric(*shape), GetParam().isSymmetric);
    if (IsSymmetric(*shape)) {
        ExpectSameArea(Flattened(FilledPaths(*shape)), Flattened(PlacedPathsOf(*shape, {.isMirrored = true})));
    }
}

// All that a shape holds, number by number.
std::string DumpOf(const CIPC2581_DrawObj & shape)
{
    ModelWriter writer;
    VisitShape(shape, [&](const auto & own) { Walk(own, writer); });
    return writer.Text();
}

TEST_P(PlacedArea, IsCopiedWithAllThatItHas)
{
    const Shape shape = GetParam().make();
    shape->DrawType = 77;
    const std::string before = DumpOf(*shape);
    const Shape copy = CopyOf(*shape);
    ExpectSameClass(*copy, *shape);
    EXPECT_EQ(DumpOf(*copy), before);
    Shapes placed;
    AddPlaced(CopyOf(*shape), {{3, 4}, 17, true, 2}, placed);
    EXPECT_EQ(DumpOf(*shape), before) << "a copy shares something with the shape";
}

std::string ShapeName(const testing::TestParamInfo<NamedShape> & test)
{
    return test.param.name;
}

INSTANTIATE_TEST_SUITE_P(Areas, PlacedArea, testing::ValuesIn(AllAreas()), ShapeName);

// A triangle points upwards, a butterfly spreads its wings, and a hexagon stands on a side.
std::vector<NamedShape> UprightAreas()
{
    std::vector<NamedShape> shapes = AllAreas();
    std::erase_if(shapes, [](const NamedShape & shape) {
        return shape.name == "Triangle" || shape.name.ends_with("Butterfly") || shape.name.starts_with("Hexagon");
    });
    return shapes;
}

INSTANTIATE_TEST_SUITE_P(Areas, UprightArea, testing::ValuesIn(UprightAreas()), ShapeName);

const Placement All = {{10, 20}, 90, true, 2};

Shape MakeLine()
{
    return Make<CIPC2581_Line>([](auto & line) {
        line.StartPoint->Point->SetData(1, 2);
        line.EndPoint->Point->SetData(3, 5);
        line.LineDesc->LineWidth = 0.5;
        line.LineDesc->LineEnd = "SQUARE";
        line.LineDesc->Shape = 3;
    });
}

Shape MakePolyline()
{
    return Make<CIPC2581_PolyLine>([](auto & line) {
        line.PolyBegin->Point->SetData(1, 0);
        AddSegment(*line.PolyStepArray, 2, 0);
        AddCurve(*line.PolyStepArray, 0, 2, 0, 0, false);
        AddCurve(*line.PolyStepArray, 2, 0, 0, 0, true);
        line.LineDesc->LineWidth = 0.5;
        line.LineDesc->LineEnd = "NONE";
    });
}

Shape MakeOutline()
{
    return Make<CIPC2581_Outline>([](auto & outline) {
        outline.Polygon->PolyBegin->Point->SetData(1, 0);
        AddSegment(*outline.Polygon->PolyStepArray, 2, 0);
        AddCurve(*outline.Polygon->PolyStepArray, 1, 0, 1.5, 0, false);
        outline.LineDesc->LineWidth = 0.5;
    });
}

Shape MakeText()
{
    return Make<CIPC2581_Text>([](auto & text) {
        text.TextString = "text";
        text.FontSize = 12;
        text.Xform->XOffset = 1;
        text.Xform->YOffset = 2;
        text.Xform->Rotation = 30;
        text.BoundingBox_LowLeftX = 3;
        text.BoundingBox_LowLeftY = 4;
        text.BoundingBox_UppRightX = 5;
        text.BoundingBox_UppRightY = 6;
        text.FontRefID = "font";
        text.ColorGroupID = "color";
    });
}

std::string PlacedText(Shape shape, const Placement & placement)
{
    Shapes placed;
    AddPlaced(std::move(shape), placement, placed);
    EXPECT_EQ(placed.size(), 1U);
    return ShapeText(*placed.at(0));
}

TEST(PlacedShape, OfALineHasItsPointsPlacedAndItsWidthScaled)
{
    // 1,2 scaled is 2,4, turned -4,2, mirrored 4,2.
    EXPECT_EQ(PlacedText(MakeLine(), All), "Line 14,22 to 20,26 pen 1 SQUARE");
}

TEST(PlacedShape, OfAPolylineTurnsItsCurvesRoundInAMirror)
{
    EXPECT_EQ(PlacedText(MakePolyline(), All),
              "Polyline 10,22 line 10,24 clockwise 14,20 about 10,20 arc 10,24 about 10,20 pen 1 NONE");
    EXPECT_EQ(PlacedText(MakePolyline(), {.rotation = 180}),
              "Polyline -1,0 line -2,0 arc 0,-2 about 0,0 clockwise -2,0 about 0,0 pen 0.5 NONE");
}

TEST(PlacedShape, OfAnOutlineIsAnOutline)
{
    EXPECT_EQ(PlacedText(MakeOutline(), All), "Outline 10,22 line 10,24 clockwise 10,22 about 10,23 pen 1 ROUND");
}

TEST(PlacedShape, OfATextHasATransformThatPutsItThere)
{
    const Placement own = {{1, 2}, 30, false, 1};
    const Placement both = All.Of(own);
    Shapes placed;
    AddPlaced(MakeText(), All, placed);
    const auto & text = dynamic_cast<const CIPC2581_Text &>(*placed.at(0));
    const Placement found = {
        {text.Xform->XOffset, text.Xform->YOffset}, text.Xform->Rotation, text.Xform->Mirror != 0, text.Xform->Scale};
    EXPECT_EQ(PlacementText(found), PlacementText(both));
    for (const Vertex & point : {Vertex(0, 0), Vertex(1, 0), Vertex(0, 1)}) {
        EXPECT_EQ(PointText(found.Of(point)), PointText(All.Of(own.Of(point))));
    }
}

TEST(PlacedShape, OfAPolygonOrACutoutIsOne)
{
    const Shape polygon = Make<CIPC2581_Polygon>([](auto & own) {
        own.PolyBegin->Point->SetData(1, 0);
        AddSegment(*own.PolyStepArray, 2, 0);
    });
    const Shape cutout = Make<CIPC2581_Cutout>([](auto & own) {
        own.PolyBegin->Point->SetData(1, 0);
        AddSegment(*own.PolyStepArray, 2, 0);
    });
    EXPECT_EQ(PlacedText(CopyOf(*polygon), All), "Polygon 10,22 line 10,24");
    EXPECT_EQ(PlacedText(CopyOf(*cutout), All), "Cutout 10,22 line 10,24");
}

TEST(CopyOf, KeepsAllOfStrokesAndTexts)
{
    for (const auto & make : {MakeLine, MakePolyline, MakeOutline, MakeText, MakeContour}) {
        const Shape shape = make();
        shape->DrawType = 77;
        const std::string before = DumpOf(*shape);
        const Shape copy = CopyOf(*shape);
        ExpectSameClass(*copy, *shape);
        EXPECT_EQ(DumpOf(*copy), before);
        Shapes placed;
        AddPlaced(CopyOf(*shape), All, placed);
        EXPECT_EQ(DumpOf(*shape), before) << "a copy shares something with the shape";
    }
}

Path PathOfSquare(double low, double high)
{
    Path path;
    path.MoveTo({low, low});
    path.LineTo({high, low});
    path.LineTo({high, high});
    path.LineTo({low, high});
    path.Close();
    return path;
}

void Append(Path & path, const Path & other)
{
    path.steps.insert(path.steps.end(), other.steps.begin(), other.steps.end());
}

Texts ContourTexts(const Path & path)
{
    Shapes contours;
    AddContours(path, contours);
    Texts texts;
    for (const auto & contour : contours) {
        texts.push_back(ShapeText(*contour));
    }
    return texts;
}

TEST(AddContours, MakesAContourOfEachAreaWithItsHoles)
{
    Path path = PathOfSquare(0, 9);
    Append(path, PathOfSquare(1, 8));
    Append(path, PathOfSquare(2, 7));
    Append(path, PathOfSquare(20, 21));
    EXPECT_EQ(ContourTexts(path),
              (Texts{"Contour 0,0 line 9,0 line 9,9 line 0,9 line 0,0 without 1,1 line 8,1 line 8,8 line 1,8 line 1,1",
                     "Contour 2,2 line 7,2 line 7,7 line 2,7 line 2,2",
                     "Contour 20,20 line 21,20 line 21,21 line 20,21 line 20,20"}));
}

TEST(AddContours, MakesTwoHalvesOfACircle)
{
    Path path;
    path.AddEllipse({1, 2}, 3, 3);
    EXPECT_EQ(ContourTexts(path), (Texts{"Contour 4,2 arc -2,2 about 1,2 arc 4,2 about 1,2"}));
}

TEST(AddContours, OfNothingIsNothing)
{
    EXPECT_EQ(ContourTexts({}), Texts());
}

TEST(AddStrokes, MakesALineOfEachContour)
{
    Path path = PathOfSquare(0, 1);
    path.AddEllipse({0, 0}, 1, 1);
    CIPC2581_LineDesc pen;
    pen.LineWidth = 0.1;
    pen.LineEnd = "NONE";
    Shapes strokes;
    AddStrokes(path, pen, strokes);
    ASSERT_EQ(strokes.size(), 2U);
    EXPECT_EQ(ShapeText(*strokes[0]), "Polyline 0,0 line 1,0 line 1,1 line 0,1 line 0,0 pen 0.1 NONE");
    EXPECT_EQ(ShapeText(*strokes[1]), "Polyline 1,0 arc -1,0 about 0,0 arc 1,0 about 0,0 pen 0.1 NONE");
}

TEST(AddStrokes, GoesAlongAnEllipseCloseToIt)
{
    Path path;
    path.AddEllipse({5, 5}, 4, 2);
    Shapes strokes;
    AddStrokes(path, {}, strokes);
    ASSERT_EQ(strokes.size(), 1U);
    const auto & line = dynamic_cast<const CIPC2581_PolyLine &>(*strokes[0]);
    EXPECT_GE(line.PolyStepArray->GetSize(), 32);
    for (const CIPC2581_PolyStep * const step : Each(line.PolyStepArray)) {
        const double x = (step->EndPoint->Point->X - 5) / 4;
        const double y = (step->EndPoint->Point->Y - 5) / 2;
        EXPECT_NEAR(x * x + y * y, 1, 1e-9);
    }
}

TEST(PointsOf, CountsTheBeginAndTheSteps)
{
    CIPC2581_DicDraw_Circle circle;
    EXPECT_EQ(PointsOf(circle), 1U);
    CIPC2581_PolyLine line;
    line.PolyStepArray->Add(new CIPC2581_PolyStep());
    line.PolyStepArray->Add(new CIPC2581_PolyStep());
    EXPECT_EQ(PointsOf(line), 3U);
    CIPC2581_Outline outline;
    outline.Polygon->PolyStepArray->Add(new CIPC2581_PolyStep());
    EXPECT_EQ(PointsOf(outline), 2U);
    CIPC2581_DicDraw_Contour contour;
    for (int i = 0; i < 2; ++i) {
        auto cutout = std::make_unique<CIPC2581_Cutout>();
        cutout->PolyStepArray->Add(new CIPC2581_PolyStep());
        contour.DicDrawObjArray->Add(cutout.release());
    }
    EXPECT_EQ(PointsOf(contour), 5U);
}

}  // namespace
}  // namespace ipc2581::tests
