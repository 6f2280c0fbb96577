#ifndef IPC2581_BASE_CODES_H
#define IPC2581_BASE_CODES_H

#include <array>
#include <string_view>

// The numbers that the classes of the model have for kinds, in members of type int. Hosts compare them, gaps included.
namespace ipc2581 {

// CIPC2581_DrawObj::DrawType of a new object.
namespace DrawTypes {
enum : int {
    Butterfly = 1,
    Circle,
    Contour,
    Diamond,
    Donut,
    Ellipse,
    Hexagon,
    Moire,
    Octagon,
    Oval,
    RectCenter,
    RectCham,
    RectCorner,
    RectRound,
    Thermal,
    Triangle,
    Plain,  // of the base, and of arcs and texts
    Line,
    Outline,
    PolyLine,
    Polygon = 22,
    Cutout,
    CutoutArray,
    // A contour in a CIPC2581_Ecad_CadData_Step_Package_SilkScreen_Target, whatever else has the number.
    SilkScreenContour = 5
};
}  // namespace DrawTypes

// CIPC2581_DictionaryDrawObj::DrawType.
namespace DictionaryDrawTypes {
enum : int { Plain, Polygon, Cutout };
}  // namespace DictionaryDrawTypes

// CIPC2581_Ecad_CadData_Step_LayerFeature_Set::Kind: which of its parts a set is about, and writes.
namespace SetKinds {
enum : int { Features, Pad, Hole };
}  // namespace SetKinds

// The Type of a CIPC2581_PolyStep and a CIPC2581_Pt.
namespace StepTypes {
enum : int { Segment, Curve };
}  // namespace StepTypes

// The Shape of a butterfly, a donut and a thermal.
namespace OuterForms {
enum : int { Unknown = -1, Round, Square, Hexagon, Octagon };
}  // namespace OuterForms

// The words of the outer forms in a file, in the order of their codes.
inline constexpr std::array<std::string_view, 4> OuterFormWords = {"ROUND", "SQUARE", "HEXAGON", "OCTAGON"};

}  // namespace ipc2581

#endif
