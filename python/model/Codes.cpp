#include "python/model/Codes.h"

#include <algorithm>
#include <string>

namespace ipc2581::python {
namespace {

constexpr auto DrawTypeCodes = std::to_array<Code>({{"Butterfly", DrawTypes::Butterfly},
                                                    {"Circle", DrawTypes::Circle},
                                                    {"Contour", DrawTypes::Contour},
                                                    {"Diamond", DrawTypes::Diamond},
                                                    {"Donut", DrawTypes::Donut},
                                                    {"Ellipse", DrawTypes::Ellipse},
                                                    {"Hexagon", DrawTypes::Hexagon},
                                                    {"Moire", DrawTypes::Moire},
                                                    {"Octagon", DrawTypes::Octagon},
                                                    {"Oval", DrawTypes::Oval},
                                                    {"RectCenter", DrawTypes::RectCenter},
                                                    {"RectCham", DrawTypes::RectCham},
                                                    {"RectCorner", DrawTypes::RectCorner},
                                                    {"RectRound", DrawTypes::RectRound},
                                                    {"Thermal", DrawTypes::Thermal},
                                                    {"Triangle", DrawTypes::Triangle},
                                                    {"Plain", DrawTypes::Plain},
                                                    {"Line", DrawTypes::Line},
                                                    {"Outline", DrawTypes::Outline},
                                                    {"PolyLine", DrawTypes::PolyLine},
                                                    {"Polygon", DrawTypes::Polygon},
                                                    {"Cutout", DrawTypes::Cutout},
                                                    {"CutoutArray", DrawTypes::CutoutArray}});
constexpr auto DictionaryDrawTypeCodes = std::to_array<Code>({{"Plain", DictionaryDrawTypes::Plain},
                                                              {"Polygon", DictionaryDrawTypes::Polygon},
                                                              {"Cutout", DictionaryDrawTypes::Cutout}});
constexpr auto SetKindCodes =
    std::to_array<Code>({{"Features", SetKinds::Features}, {"Pad", SetKinds::Pad}, {"Hole", SetKinds::Hole}});
constexpr auto StepTypeCodes = std::to_array<Code>({{"Segment", StepTypes::Segment}, {"Curve", StepTypes::Curve}});
constexpr auto OuterFormCodes = std::to_array<Code>({{"Unknown", OuterForms::Unknown},
                                                     {"Round", OuterForms::Round},
                                                     {"Square", OuterForms::Square},
                                                     {"Hexagon", OuterForms::Hexagon},
                                                     {"Octagon", OuterForms::Octagon}});

constexpr std::array<CodeTable, 5> Tables = {
    {{"DrawTypes", "What a shape is.", DrawTypeCodes},
     {"DictionaryDrawTypes", "What a shape of an older dictionary is.", DictionaryDrawTypeCodes},
     {"SetKinds", "Which of its parts a set is about, and writes.", SetKindCodes},
     {"StepTypes", "Whether a step of a contour is straight.", StepTypeCodes},
     {"OuterForms", "The outer form of a butterfly, a donut or a thermal.", OuterFormCodes}}};

const CodeTable * Named(std::string_view name)
{
    return std::find_if(Tables.begin(), Tables.end(), [&](const CodeTable & table) { return table.name == name; });
}

bool IsOfOlderDictionary(std::string_view className)
{
    return className == Fields<CIPC2581_DictionaryDrawObj>::Name ||
           className == Fields<CIPC2581_DicDraw_Polygon>::Name || className == Fields<CIPC2581_DicDraw_Cutout>::Name;
}

bool HasSteps(std::string_view className)
{
    return className == Fields<CIPC2581_PolyStep>::Name || className == Fields<CIPC2581_Pt>::Name;
}

}  // namespace

std::span<const CodeTable> CodeTables()
{
    return Tables;
}

const CodeTable * CodesOf(std::string_view className, std::string_view member, bool isOuterForm)
{
    if (isOuterForm) {
        return Named("OuterForms");
    }
    if (member == "DrawType") {
        return Named(IsOfOlderDictionary(className) ? "DictionaryDrawTypes" : "DrawTypes");
    }
    if (member == "Kind" && className == Fields<CIPC2581_Ecad_CadData_Step_LayerFeature_Set>::Name) {
        return Named("SetKinds");
    }
    return member == "Type" && HasSteps(className) ? Named("StepTypes") : nullptr;
}

}  // namespace ipc2581::python
