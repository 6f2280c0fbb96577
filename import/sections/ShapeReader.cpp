#include "import/sections/ShapeReader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>
#include <utility>

#include "import/shapes/ShapePaths.h"
#include "import/shapes/Units.h"
#include "ipc2581/base/Codes.h"
#include "ipc2581/each.h"

namespace ipc2581::detail {
namespace {

constexpr std::string_view HollowWord = "HOLLOW";
constexpr std::string_view FilledWord = "FILL";
constexpr std::string_view VoidWord = "VOID";

}  // namespace

bool IsShapeName(Word name)
{
    switch (name) {
    case W("StandardPrimitiveRef"):
    case W("UserPrimitiveRef"):
    case W("Arc"):
    case W("Butterfly"):
    case W("Circle"):
    case W("Contour"):
    case W("Diamond"):
    case W("Donut"):
    case W("Ellipse"):
    case W("Hexagon"):
    case W("Line"):
    case W("Moire"):
    case W("Octagon"):
    case W("Outline"):
    case W("Oval"):
    case W("Polyline"):
    case W("RectCenter"):
    case W("RectCham"):
    case W("RectCorner"):
    case W("RectRound"):
    case W("Text"):
    case W("Thermal"):
    case W("Triangle"):
    case W("UserSpecial"):
        return true;
    default:
        return false;
    }
}

void Figures::BeginLineDescs(std::string_view units)
{
    m_lineDescUnits = m_lineDescUnits.empty() ? std::string(units) : m_lineDescUnits;
    m_lineDescScale = UnitScale(units, m_lineDescUnits);
}

// What nobody refers to is lost, and so is all of a second entry of the same name.
void Figures::AddLineDesc(const XmlElement & entry)
{
    const auto [place, isNew] = m_lineDescs.try_emplace(std::string(entry.Value(W("id"))));
    if (!isNew) {
        return;
    }
    LineDescEntry & added = place->second;
    added.hold = m_context.losses.NewHold();
    entry.Hold(added.hold, {W("id")});
    const auto child = FirstOf(entry, W("LineDesc"));
    if (!child.has_value()) {
        return;
    }
    child->Hold(added.hold, {W("lineEnd")});
    TakeText(child->Value(W("lineEnd")), added.lineDesc.LineEnd, m_context.blocks);
    if (TakeNumber(child->Value(W("lineWidth")), added.lineDesc.LineWidth)) {
        child->Hold(added.hold, {W("lineWidth")});
    }
    added.lineDesc.LineWidth *= m_lineDescScale;
}

void Figures::AddFillDesc(const XmlElement & entry)
{
    const auto [place, isNew] = m_fills.try_emplace(std::string(entry.Value(W("id"))));
    if (!isNew) {
        return;
    }
    FillEntry & added = place->second;
    added.hold = m_context.losses.NewHold();
    entry.Hold(added.hold, {W("id")});
    const auto child = FirstOf(entry, W("FillDesc"));
    if (child.has_value()) {
        child->Hold(added.hold, {W("fillProperty")});
        added.fill = child->Value(W("fillProperty"));
    }
}

void Figures::AddUser(std::string_view id, CIPC2581_Content_DictionaryUser_EntryUser & entry)
{
    m_users.try_emplace(std::string(id), &entry);
}

void Figures::AddStandard(std::string_view id, CIPC2581_Content_DictionaryStandard_EntryStandard & entry)
{
    m_standards.try_emplace(std::string(id), &entry);
}

const CIPC2581_LineDesc * Figures::LineDesc(std::string_view id)
{
    LineDescEntry * const entry = FindIn(m_lineDescs, id);
    if (entry == nullptr) {
        return nullptr;
    }
    m_context.losses.Refer(entry->hold);
    return &entry->lineDesc;
}

const std::string * Figures::Fill(std::string_view id)
{
    FillEntry * const entry = FindIn(m_fills, id);
    if (entry == nullptr) {
        return nullptr;
    }
    m_context.losses.Refer(entry->hold);
    return &entry->fill;
}

CIPC2581_Content_DictionaryUser_EntryUser * Figures::User(std::string_view id) const
{
    const auto found = m_users.find(id);
    return found == m_users.end() ? nullptr : found->second;
}

CIPC2581_Content_DictionaryStandard_EntryStandard * Figures::Standard(std::string_view id) const
{
    const auto found = m_standards.find(id);
    return found == m_standards.end() ? nullptr : found->second;
}

bool Figures::IsSymmetricStandard(std::string_view id)
{
    const bool * const known = FindIn(m_areSymmetric, id);
    if (known != nullptr) {
        return *known;
    }
    const auto * const entry = Standard(id);
    const auto shapes = entry == nullptr ? decltype(Each(entry->DrawArray))() : Each(entry->DrawArray);
    const bool areAll =
        std::all_of(shapes.begin(), shapes.end(), [](const auto * shape) { return IsSymmetric(*shape); });
    m_areSymmetric.emplace(id, areAll);
    return areAll;
}

bool Figures::KnowsReferencesIn(const XmlElement & element) const
{
    const auto isKnown = [&](const XmlElement & child) {
        switch (child.Name()) {
        case W("LineDescRef"):
            return m_lineDescs.contains(child.Value(W("id")));
        case W("FillDescRef"):
            return m_fills.contains(child.Value(W("id")));
        default:
            return KnowsReferencesIn(child);
        }
    };
    return std::all_of(element.begin(), element.end(), isKnown);
}

void Figures::AddHollow(std::string_view id, const CIPC2581_LineDesc & lineDesc)
{
    m_hollows.try_emplace(std::string(id), lineDesc);
}

const CIPC2581_LineDesc * Figures::Hollow(std::string_view id) const
{
    const auto found = m_hollows.find(id);
    return found == m_hollows.end() ? nullptr : &found->second;
}

void ShapeReader::SetUnits(std::string_view units)
{
    m_units = units;
    m_lineDescScale = UnitScale(m_figures.LineDescUnits(), units);
}

Placement ShapeReader::ReadXform(const XmlElement & element)
{
    Placement placement;
    element.Take();
    TakeNumberOf(element, W("xOffset"), placement.location.X);
    TakeNumberOf(element, W("yOffset"), placement.location.Y);
    TakeNumberOf(element, W("rotation"), placement.rotation);
    TakeNumberOf(element, W("scale"), placement.scale);
    element.TakeAttributes([&](Word name, std::string_view value) {
        return name == W("mirror") && TakeTruth(value, placement.isMirrored);
    });
    return placement;
}

// Keeps what stands in a shape beside its form. A transform is taken at once, the rest waits for who needs it.
void ShapeReader::AddStyle(const XmlElement & child, Style & style)
{
    switch (child.Name()) {
    case W("LineDesc"):
    case W("LineDescRef"):
        style.lineDesc = child;
        break;
    case W("FillDesc"):
    case W("FillDescRef"):
        style.fill = child;
        break;
    case W("Xform"):
        if (!std::exchange(style.hasPlacement, true)) {
            style.placement = ReadXform(child);
        }
        break;
    default:
        break;
    }
}

ShapeReader::Style ShapeReader::StyleOf(const XmlElement & element)
{
    Style style;
    for (const XmlElement child : element) {
        AddStyle(child, style);
    }
    return style;
}

void ShapeReader::TakeLineDesc(const XmlElement & element, CIPC2581_LineDesc & lineDesc)
{
    if (element.Name() == W("LineDesc")) {
        TakeFields<Fields<CIPC2581_LineDesc>::LineDesc>(element, lineDesc, m_context.blocks);
        return;
    }
    const CIPC2581_LineDesc * const entry = m_figures.LineDesc(element.Value(W("id")));
    if (entry == nullptr) {
        m_context.TellDangling(element.Line(), "line description", element.Value(W("id")));
        return;
    }
    element.Take();
    static_cast<void>(element.TakeValue(W("id")));
    lineDesc.LineWidth = entry->LineWidth * m_lineDescScale;
    lineDesc.LineEnd.Assign(entry->LineEnd, &m_context.blocks);
}

// The same without taking it.
CIPC2581_LineDesc ShapeReader::LineDescOf(const XmlElement & element)
{
    CIPC2581_LineDesc lineDesc;
    if (element.Name() == W("LineDesc")) {
        TakeNumber(element.Value(W("lineWidth")), lineDesc.LineWidth);
        TakeText(element.Value(W("lineEnd")), lineDesc.LineEnd, m_context.blocks);
        return lineDesc;
    }
    const CIPC2581_LineDesc * const entry = m_figures.LineDesc(element.Value(W("id")));
    if (entry != nullptr) {
        lineDesc = *entry;
        lineDesc.LineWidth *= m_lineDescScale;
    }
    return lineDesc;
}

std::optional<CIPC2581_LineDesc> ShapeReader::HollowLineOf(const XmlElement & element)
{
    CIPC2581_LineDesc lineDesc;
    double scale = 1.0;
    bool isHollow = false;
    for (const XmlElement child : element) {
        switch (child.Name()) {
        case W("Xform"):
            if (child.Has(W("scale"))) {
                TakeNumber(child.Value(W("scale")), scale);
            }
            break;
        case W("LineDesc"):
        case W("LineDescRef"):
            lineDesc = LineDescOf(child);
            break;
        case W("FillDesc"):
        case W("FillDescRef"):
            isHollow = FillWord(child) == HollowWord;
            break;
        case W("Polygon"):
            return HollowLineOf(child);
        default:
            break;
        }
    }
    lineDesc.LineWidth *= scale;
    return isHollow ? std::optional(lineDesc) : std::nullopt;
}

// True for a shape that takes away what others have drawn.
bool ShapeReader::IsVoid(const XmlElement & element)
{
    return std::any_of(element.begin(), element.end(), [&](const XmlElement & child) {
        const bool isFill = child.Name() == W("FillDesc") || child.Name() == W("FillDescRef");
        return isFill ? FillWord(child) == VoidWord : child.Name() == W("Polygon") && IsVoid(child);
    });
}

// The word of a fill, or of the entry that it refers to.
std::string_view ShapeReader::FillWord(const XmlElement & element)
{
    if (element.Name() == W("FillDesc")) {
        return element.Value(W("fillProperty"));
    }
    const std::string * const entry = m_figures.Fill(element.Value(W("id")));
    return entry == nullptr ? std::string_view() : std::string_view(*entry);
}

// Takes a fill that the model has by what it is, and tells of one that is not in the file.
void ShapeReader::TakeFill(const std::optional<XmlElement> & element, std::string_view wanted)
{
    if (!element.has_value()) {
        return;
    }
    const bool isReference = element->Name() == W("FillDescRef");
    if (FillWord(*element) == wanted) {
        element->Take();
        static_cast<void>(element->TakeValue(isReference ? W("id") : W("fillProperty")));
    }
    else if (isReference && m_figures.Fill(element->Value(W("id"))) == nullptr) {
        m_context.TellDangling(element->Line(), "fill description", element->Value(W("id")));
    }
}

// The points of a contour, and what else stands there.
ShapeReader::Style ShapeReader::ReadSteps(const XmlElement & element, CIPC2581_Point & begin,
                                          CIPC2581_PolyStepArray & steps)
{
    Style style;
    bool hasBegin = false;
    for (const XmlElement child : element) {
        switch (child.Name()) {
        case W("PolyBegin"):
            if (!std::exchange(hasBegin, true)) {
                TakeFields<Fields<CIPC2581_Point>::PolyBegin>(child, begin, m_context.blocks);
            }
            break;
        case W("PolyStepSegment"):
            TakeFields<Fields<CIPC2581_PolyStep>::PolyStepSegment>(
                child, AddTo(steps, m_context.Make<CIPC2581_PolyStep>()), m_context.blocks);
            break;
        case W("PolyStepCurve"): {
            CIPC2581_PolyStep & step = AddTo(steps, m_context.Make<CIPC2581_PolyStep>());
            step.Type = StepTypes::Curve;
            TakeFields<Fields<CIPC2581_PolyStep>::PolyStepCurve>(child, step, m_context.blocks);
            break;
        }
        default:
            AddStyle(child, style);
            break;
        }
    }
    return style;
}

template <typename Shape>
std::unique_ptr<CIPC2581_DrawObj> ShapeReader::ReadContourShape(const XmlElement & element, Style & style)
{
    element.Take();
    auto shape = m_context.Make<Shape>();
    style = ReadSteps(element, *shape->PolyBegin, *shape->PolyStepArray);
    if (style.placement.IsNothing()) {
        return shape;
    }
    // A contour stays one shape wherever it is placed.
    Shapes placed;
    AddPlaced(std::move(shape), style.placement, placed);
    return std::move(placed.front());
}

void ShapeReader::ReadPolygon(const XmlElement & element, CIPC2581_Polygon & polygon)
{
    Style style;
    polygon = static_cast<CIPC2581_Polygon &>(*ReadContourShape<CIPC2581_Polygon>(element, style));
    TakeFill(style.fill, FilledWord);
}

void ShapeReader::ReadCutout(const XmlElement & element, CIPC2581_Cutout & cutout)
{
    Style style;
    cutout = static_cast<CIPC2581_Cutout &>(*ReadContourShape<CIPC2581_Cutout>(element, style));
    TakeFill(style.fill, FilledWord);
}

// An outline is hollow; one that says that it is filled loses that.
void ShapeReader::ReadOutline(const XmlElement & element, CIPC2581_Polygon & polygon, CIPC2581_LineDesc & lineDesc)
{
    element.Take();
    bool hasPolygon = false;
    bool hasLineDesc = false;
    for (const XmlElement child : element) {
        const bool isLineDesc = child.Name() == W("LineDesc") || child.Name() == W("LineDescRef");
        if (child.Name() == W("Polygon") && !std::exchange(hasPolygon, true)) {
            Style style;
            polygon = static_cast<CIPC2581_Polygon &>(*ReadContourShape<CIPC2581_Polygon>(child, style));
            TakeFill(style.fill, HollowWord);
        }
        else if (isLineDesc && !std::exchange(hasLineDesc, true)) {
            TakeLineDesc(child, lineDesc);
        }
    }
}

std::unique_ptr<CIPC2581_DrawObj> ShapeReader::ReadOutlineArea(const XmlElement & element)
{
    element.Take();
    auto contour = m_context.Make<CIPC2581_DicDraw_Contour>();
    for (const XmlElement child : element) {
        if (child.Name() == W("Polygon")) {
            Style style;
            AddTo(*contour->DicDrawObjArray, ReadContourShape<CIPC2581_Polygon>(child, style));
            TakeFill(style.fill, FilledWord);
        }
    }
    return contour;
}

void ShapeReader::ReadPlaced(const XmlElement & element, Hollow hollow, Outlines outlines, CPointD & location,
                             CIPC2581_DrawObjArray & list)
{
    element.Take();
    Placement placement;
    bool hasPlacement = false;
    bool hasLocation = false;
    for (const XmlElement child : element) {
        if (child.Name() == W("Xform") && !std::exchange(hasPlacement, true)) {
            placement = ReadXform(child);
        }
        else if (child.Name() == W("Location") && !std::exchange(hasLocation, true)) {
            child.Take();
            TakeNumberOf(child, W("x"), location.X);
            TakeNumberOf(child, W("y"), location.Y);
        }
    }
    for (const XmlElement child : element) {
        if (child.Name() == W("Outline") && outlines == Outlines::Areas) {
            AddPlaced(ReadOutlineArea(child), placement, m_placed);
        }
        else {
            Read(child, placement, hollow, m_placed);
        }
    }
    for (auto & shape : m_placed) {
        AddTo(list, std::move(shape));
    }
    m_placed.clear();
}

template <typename Shape, const auto & table>
std::unique_ptr<CIPC2581_DrawObj> ShapeReader::ReadPrimitive(const XmlElement & element)
{
    auto shape = m_context.Make<Shape>();
    TakeFields<table>(element, *shape, m_context.blocks);
    return shape;
}

// A rectangle whose corners are cut where its flags say so. They are true unless the file says that they are not.
template <typename Shape, const auto & table>
std::unique_ptr<CIPC2581_DrawObj> ShapeReader::ReadCornered(const XmlElement & element)
{
    auto shape = m_context.Make<Shape>();
    shape->UpperRight = shape->UpperLeft = shape->LowerLeft = shape->LowerRight = 1;
    TakeFields<table>(element, *shape, m_context.blocks);
    if (shape->UpperRight + shape->UpperLeft + shape->LowerLeft + shape->LowerRight != 0) {
        return shape;
    }
    // In the model no flag at all means that all corners are cut.
    auto rect = m_context.Make<CIPC2581_DicDraw_RectCenter>();
    rect->Width = shape->Width;
    rect->Height = shape->Height;
    return rect;
}

// A square one is measured by its side, a round one by its diameter; the other measure is lost.
std::unique_ptr<CIPC2581_DrawObj> ShapeReader::ReadButterfly(const XmlElement & element)
{
    auto shape = m_context.Make<CIPC2581_DicDraw_Butterfly>();
    element.Take();
    element.TakeAttributes(
        [&](Word name, std::string_view value) { return name == W("shape") && TakeForm(value, shape->Shape); });
    const bool isBySide = element.Has(W("side")) && (shape->Shape == OuterForms::Square || !element.Has(W("diameter")));
    TakeNumberOf(element, isBySide ? W("side") : W("diameter"), shape->Size);
    return shape;
}

std::unique_ptr<CIPC2581_DrawObj> ShapeReader::MakePrimitive(const XmlElement & element)
{
    switch (element.Name()) {
    case W("Butterfly"):
        return ReadButterfly(element);
    case W("Circle"):
        return ReadPrimitive<CIPC2581_DicDraw_Circle, Fields<CIPC2581_DicDraw_Circle>::Circle>(element);
    case W("Diamond"):
        return ReadPrimitive<CIPC2581_DicDraw_Diamond, Fields<CIPC2581_DicDraw_Diamond>::Diamond>(element);
    case W("Donut"):
        return ReadPrimitive<CIPC2581_DicDraw_Donut, Fields<CIPC2581_DicDraw_Donut>::Donut>(element);
    case W("Ellipse"):
        return ReadPrimitive<CIPC2581_DicDraw_Ellipse, Fields<CIPC2581_DicDraw_Ellipse>::Ellipse>(element);
    case W("Hexagon"):
        return ReadPrimitive<CIPC2581_DicDraw_Hexagon, Fields<CIPC2581_DicDraw_Hexagon>::Hexagon>(element);
    case W("Moire"):
        return ReadPrimitive<CIPC2581_DicDraw_Moire, Fields<CIPC2581_DicDraw_Moire>::Moire>(element);
    case W("Octagon"):
        return ReadPrimitive<CIPC2581_DicDraw_Octagon, Fields<CIPC2581_DicDraw_Octagon>::Octagon>(element);
    case W("Oval"):
        return ReadPrimitive<CIPC2581_DicDraw_Oval, Fields<CIPC2581_DicDraw_Oval>::Oval>(element);
    case W("RectCenter"):
        return ReadPrimitive<CIPC2581_DicDraw_RectCenter, Fields<CIPC2581_DicDraw_RectCenter>::RectCenter>(element);
    case W("RectCham"):
        return ReadCornered<CIPC2581_DicDraw_RectCham, Fields<CIPC2581_DicDraw_RectCham>::RectCham>(element);
    case W("RectCorner"):
        return ReadPrimitive<CIPC2581_DicDraw_RectCorner, Fields<CIPC2581_DicDraw_RectCorner>::RectCorner>(element);
    case W("RectRound"):
        return ReadCornered<CIPC2581_DicDraw_RectRound, Fields<CIPC2581_DicDraw_RectRound>::RectRound>(element);
    case W("Thermal"):
        return ReadPrimitive<CIPC2581_DicDraw_Thermal, Fields<CIPC2581_DicDraw_Thermal>::Thermal>(element);
    case W("Triangle"):
        return ReadPrimitive<CIPC2581_DicDraw_Triangle, Fields<CIPC2581_DicDraw_Triangle>::Triangle>(element);
    default:
        return nullptr;
    }
}

bool ShapeReader::Read(const XmlElement & element, const Placement & placement, Hollow hollow, Shapes & shapes)
{
    // As an area it would be wrong, so all of it is lost.
    if (IsVoid(element)) {
        return IsShapeName(element.Name());
    }
    switch (element.Name()) {
    case W("Contour"):
        ReadContour(element, placement, hollow, shapes);
        return true;
    case W("Polyline"):
        ReadPolyline(element, placement, shapes);
        return true;
    case W("Line"):
        ReadLine(element, placement, shapes);
        return true;
    case W("Arc"):
        ReadArc(element, placement, shapes);
        return true;
    case W("Outline"): {
        auto outline = m_context.Make<CIPC2581_Outline>();
        ReadOutline(element, *outline->Polygon, *outline->LineDesc);
        AddPlaced(std::move(outline), placement, shapes);
        return true;
    }
    case W("Text"):
        ReadText(element, placement, shapes);
        return true;
    case W("UserSpecial"):
        ReadUserSpecial(element, placement, hollow, shapes);
        return true;
    case W("UserPrimitiveRef"):
        ReadUserRef(element, placement, shapes);
        return true;
    case W("StandardPrimitiveRef"):
        ReadStandardRef(element, placement, shapes);
        return true;
    default:
        break;
    }
    std::unique_ptr<CIPC2581_DrawObj> shape = MakePrimitive(element);
    if (shape == nullptr) {
        return false;
    }
    Style style = StyleOf(element);
    Finish(std::move(shape), style, placement, hollow, shapes);
    return true;
}

// Puts an area into the list, or the lines around it if it is hollow.
void ShapeReader::Finish(std::unique_ptr<CIPC2581_DrawObj> shape, Style & style, const Placement & placement,
                         Hollow hollow, Shapes & shapes)
{
    const Placement placed = placement.Of(style.placement);
    const bool isHollow = style.fill.has_value() && FillWord(*style.fill) == HollowWord;
    if (!isHollow || hollow == Hollow::Areas) {
        TakeFill(style.fill, FilledWord);
        AddPlaced(std::move(shape), placed, shapes);
        return;
    }
    TakeFill(style.fill, HollowWord);
    CIPC2581_LineDesc lineDesc;
    if (style.lineDesc.has_value()) {
        TakeLineDesc(*style.lineDesc, lineDesc);
    }
    lineDesc.LineWidth *= placed.scale;
    for (const Path & path : FilledPaths(*shape)) {
        AddStrokes(Placed(path, placed), lineDesc, shapes);
    }
}

// A polygon and its cutouts. How it is filled stands in the polygon.
void ShapeReader::ReadContour(const XmlElement & element, const Placement & placement, Hollow hollow, Shapes & shapes)
{
    element.Take();
    auto contour = m_context.Make<CIPC2581_DicDraw_Contour>();
    Style style;
    for (const XmlElement child : element) {
        if (child.Name() == W("Polygon")) {
            AddTo(*contour->DicDrawObjArray, ReadContourShape<CIPC2581_Polygon>(child, style));
        }
        else if (child.Name() == W("Cutout")) {
            Style own;
            AddTo(*contour->DicDrawObjArray, ReadContourShape<CIPC2581_Cutout>(child, own));
            TakeFill(own.fill, FilledWord);
        }
    }
    // The polygon is placed by its own transform already.
    style.placement = StyleOf(element).placement;
    Finish(std::move(contour), style, placement, hollow, shapes);
}

void ShapeReader::ReadLine(const XmlElement & element, const Placement & placement, Shapes & shapes)
{
    auto line = m_context.Make<CIPC2581_Line>();
    TakeFields<Fields<CIPC2581_Line>::Line>(element, *line, m_context.blocks);
    const Style style = StyleOf(element);
    if (style.lineDesc.has_value()) {
        TakeLineDesc(*style.lineDesc, *line->LineDesc);
    }
    AddPlaced(std::move(line), placement.Of(style.placement), shapes);
}

void ShapeReader::ReadPolyline(const XmlElement & element, const Placement & placement, Shapes & shapes)
{
    element.Take();
    auto line = m_context.Make<CIPC2581_PolyLine>();
    const Style style = ReadSteps(element, *line->PolyBegin, *line->PolyStepArray);
    if (style.lineDesc.has_value()) {
        TakeLineDesc(*style.lineDesc, *line->LineDesc);
    }
    AddPlaced(std::move(line), placement.Of(style.placement), shapes);
}

// An arc is a line with one curve: a class of its own is in the model, but nothing there writes or draws it.
void ShapeReader::ReadArc(const XmlElement & element, const Placement & placement, Shapes & shapes)
{
    element.Take();
    auto line = m_context.Make<CIPC2581_PolyLine>();
    CPointD & begin = *line->PolyBegin->Point;
    CIPC2581_PolyStep & step = AddTo(*line->PolyStepArray, m_context.Make<CIPC2581_PolyStep>());
    step.Type = StepTypes::Curve;
    const std::array<std::pair<Word, double *>, 6> numbers = {{{W("startX"), &begin.X},
                                                               {W("startY"), &begin.Y},
                                                               {W("endX"), &step.EndPoint->Point->X},
                                                               {W("endY"), &step.EndPoint->Point->Y},
                                                               {W("centerX"), &step.CenterPoint->Point->X},
                                                               {W("centerY"), &step.CenterPoint->Point->Y}}};
    for (const auto & [name, number] : numbers) {
        TakeNumberOf(element, name, *number);
    }
    element.TakeAttributes([&](Word name, std::string_view value) {
        bool isClockwise = false;
        const bool isTaken = name == W("clockwise") && TakeTruth(value, isClockwise);
        step.ClockWise = isTaken ? (isClockwise ? 0 : 1) : step.ClockWise;
        return isTaken;
    });
    const Style style = StyleOf(element);
    if (style.lineDesc.has_value()) {
        TakeLineDesc(*style.lineDesc, *line->LineDesc);
    }
    AddPlaced(std::move(line), placement.Of(style.placement), shapes);
}

void ShapeReader::ReadText(const XmlElement & element, const Placement & placement, Shapes & shapes)
{
    element.Take();
    auto text = m_context.Make<CIPC2581_Text>();
    TakeTextOf(element, W("textString"), text->TextString, m_context.blocks);
    TakeNumberOf(element, W("fontSize"), text->FontSize);
    ForFirsts(element, [&](const XmlElement & child) {
        switch (child.Name()) {
        case W("Xform"):
            TakeXform(child, *text->Xform);
            break;
        case W("BoundingBox"):
            child.Take();
            TakeNumberOf(child, W("lowerLeftX"), text->BoundingBox_LowLeftX);
            TakeNumberOf(child, W("lowerLeftY"), text->BoundingBox_LowLeftY);
            TakeNumberOf(child, W("upperRightX"), text->BoundingBox_UppRightX);
            TakeNumberOf(child, W("upperRightY"), text->BoundingBox_UppRightY);
            break;
        case W("FontRef"):
            child.Take();
            TakeTextOf(child, W("id"), text->FontRefID, m_context.blocks);
            break;
        case W("ColorRef"):
            child.Take();
            TakeTextOf(child, W("id"), text->ColorGroupID, m_context.blocks);
            m_context.references.Await(NameKind::Color, child.Value(W("id")), child.Line());
            break;
        default:
            break;
        }
    });
    AddPlaced(std::move(text), placement, shapes);
}

void ShapeReader::ReadUserSpecial(const XmlElement & element, const Placement & placement, Hollow hollow,
                                  Shapes & shapes)
{
    element.Take();
    const Placement placed = placement.Of(StyleOf(element).placement);
    for (const XmlElement child : element) {
        Read(child, placed, hollow, shapes);
    }
}

void ShapeReader::AddCopies(const XmlElement & element, const CIPC2581_DrawObjArray & list, const Placement & placed,
                            Shapes & shapes)
{
    for (const CIPC2581_DrawObj * const shape : Each(list)) {
        m_context.CountCopies(element.Line(), PointsOf(*shape));
        AddPlaced(CopyOf(*shape), placed, shapes);
    }
}

void ShapeReader::TellNoFigure(std::size_t line, std::string_view id)
{
    if (m_context.references.Has(NameKind::Figure, id)) {
        m_context.Note(NoteKind::DanglingReference, line, "figure \"" + std::string(id) + "\" refers to itself");
    }
    else {
        m_context.TellDangling(line, "figure", id);
    }
}

void ShapeReader::ReadUserRef(const XmlElement & element, const Placement & placement, Shapes & shapes)
{
    const auto * const entry = m_figures.User(element.Value(W("id")));
    if (entry == nullptr) {
        TellNoFigure(element.Line(), element.Value(W("id")));
        return;
    }
    element.Take();
    static_cast<void>(element.TakeValue(W("id")));
    const double scale = UnitScale(m_context.board.m_Content.DictionaryUser->Unit, m_units);
    AddCopies(element, *entry->DrawObjArray, placement.Of({.scale = scale}), shapes);
}

void ShapeReader::ReadStandardRef(const XmlElement & element, const Placement & placement, Shapes & shapes)
{
    const auto * const entry = m_figures.Standard(element.Value(W("id")));
    if (entry == nullptr) {
        m_context.TellDangling(element.Line(), "primitive", element.Value(W("id")));
        return;
    }
    element.Take();
    static_cast<void>(element.TakeValue(W("id")));
    const double scale = UnitScale(m_context.board.m_Content.DictionaryStandard->Unit, m_units);
    const CIPC2581_LineDesc * const hollow = m_figures.Hollow(element.Value(W("id")));
    const Placement placed = placement.Of({.scale = scale});
    if (hollow == nullptr) {
        AddCopies(element, *entry->DrawArray, placed, shapes);
        return;
    }
    CIPC2581_LineDesc lineDesc = *hollow;
    lineDesc.LineWidth *= placed.scale;
    for (const CIPC2581_DrawObj * const shape : Each(entry->DrawArray)) {
        m_context.CountCopies(element.Line(), PointsOf(*shape));
        for (const Path & path : FilledPaths(*shape)) {
            AddStrokes(Placed(path, placed), lineDesc, shapes);
        }
    }
}

}  // namespace ipc2581::detail
