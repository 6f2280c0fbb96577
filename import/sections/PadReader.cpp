#include "import/sections/PadReader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "import/shapes/Units.h"
#include "ipc2581/each.h"

namespace ipc2581::detail {
namespace {

// Where a shape is put that may be turned alone; what is left is done to the shape.
Placement WithoutTurn(const Placement & placement)
{
    return {.isMirrored = placement.isMirrored, .scale = placement.scale};
}

// A turn in front of a mirror is the turn the other way behind it.
double TurnBehind(const Placement & placement)
{
    return placement.isMirrored && placement.rotation != 0.0 ? -placement.rotation : placement.rotation;
}

void AddTo(Vertex & location, const XmlElement & element, Word nameOfX, Word nameOfY)
{
    Vertex own;
    TakeNumber(element.Value(nameOfX), own.X);
    TakeNumber(element.Value(nameOfY), own.Y);
    location = {location.X + own.X, location.Y + own.Y};
}

// A number that no other one is written as.
std::string AllDigits(double number)
{
    std::array<char, 40> digits;
    const char * const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    return {digits.data(), static_cast<std::size_t>(end - digits.data())};
}

// What of a shape that stands in place makes it equal to another one; empty for one that has more in it.
std::string KeyOf(const XmlElement & element)
{
    std::string key;
    if (!element.IsEmpty()) {
        return key;
    }
    key = std::to_string(element.Name());
    element.ForEachAttribute([&](Word name, std::string_view value) {
        key.append(" ").append(std::to_string(name)).append("=").append(value);
    });
    return key;
}

}  // namespace

// The definitions themselves stay lost facts, so what is kept is a copy.
void PadReader::KeepPadStackDef(const Tree & tree, const XmlElement & definition)
{
    Stack & stack = m_stacks[std::string(definition.Value(W("name")))];
    for (const XmlElement child : definition) {
        if (child.Name() != W("PadstackPadDef") || child.Value(W("padUse")) == "ANTIPAD" ||
            child.Value(W("padUse")) == "THERMAL") {
            continue;
        }
        PadOfStack pad;
        pad.layer = child.Value(W("layerRef"));
        for (const XmlElement inner : child) {
            if (inner.Name() == W("Location")) {
                AddTo(pad.placement.location, inner, W("x"), W("y"));
            }
            else if (inner.Name() == W("Xform")) {
                AddTo(pad.placement.location, inner, W("xOffset"), W("yOffset"));
                TakeNumber(inner.Value(W("rotation")), pad.placement.rotation);
                if (inner.Has(W("scale"))) {
                    TakeNumber(inner.Value(W("scale")), pad.placement.scale);
                }
                pad.placement.isMirrored = IsTrue(inner.Value(W("mirror")));
            }
            else if (IsShapeName(inner.Name())) {
                pad.shape = inner.Place();
            }
        }
        stack.pads.push_back(std::move(pad));
    }
    stack.tree = tree;
}

void PadReader::Read(const XmlElement & element, std::string_view layer, CIPC2581_Ecad_CadData_Step_Pad & pad)
{
    Placement placement;
    std::optional<XmlElement> shape;
    bool hasLocation = false;
    bool hasPlacement = false;
    for (const XmlElement child : element) {
        switch (child.Name()) {
        case W("Location"):
            if (!std::exchange(hasLocation, true)) {
                TakeFields<Fields<CIPC2581_Ecad_CadData_Step_Pad>::Location>(child, pad, m_context.blocks);
            }
            break;
        case W("Xform"):
            if (!std::exchange(hasPlacement, true)) {
                placement = m_shapes.ReadXform(child);
            }
            break;
        case W("PinRef"):
            TakePin(child, pad);
            break;
        default:
            if (!shape.has_value() && IsShapeName(child.Name())) {
                shape = child;
            }
            break;
        }
    }
    pad.Rotation = TurnBehind(placement);
    pad.Location.X += placement.location.X;
    pad.Location.Y += placement.location.Y;
    if (shape.has_value()) {
        TakePlacedShape(*shape, placement, pad);
    }
    else {
        TakeFromStack(element, layer, placement, pad);
    }
}

// The pin as it is written: component and pin with a point between them. Of several the first is taken.
void PadReader::TakePin(const XmlElement & element, CIPC2581_Ecad_CadData_Step_Pad & pad)
{
    if (!pad.Pin.IsEmpty()) {
        return;
    }
    element.Take();
    const std::string_view component = element.TakeValue(W("componentRef"));
    const std::string_view pin = element.TakeValue(W("pin"));
    std::string name(component);
    name.append(component.empty() ? "" : ".").append(pin);
    TakeText(name, pad.Pin, m_context.blocks);
}

void PadReader::TakePlacedShape(const XmlElement & element, const Placement & placement,
                                CIPC2581_Ecad_CadData_Step_Pad & pad)
{
    if (element.Name() == W("StandardPrimitiveRef")) {
        TakeStandardRef(element, placement, pad);
        return;
    }
    const Placement left = WithoutTurn(placement);
    if (left.IsNothing()) {
        TakeShape(element, pad.StandardPrimitiveRefId);
        return;
    }
    Shapes shapes;
    m_shapes.Read(element, left, ShapeReader::Hollow::Areas, shapes);
    if (shapes.empty()) {
        KeepReference(element, pad.StandardPrimitiveRefId);
        return;
    }
    TakeText(MakeEntry("PLACED", std::move(shapes)), pad.StandardPrimitiveRefId, m_context.blocks);
}

void PadReader::TakeStandardRef(const XmlElement & element, const Placement & placement,
                                CIPC2581_Ecad_CadData_Step_Pad & pad)
{
    const std::string_view id = element.Value(W("id"));
    TakeFields<Fields<CIPC2581_Ecad_CadData_Step_Pad>::StandardPrimitiveRef>(element, pad, m_context.blocks);
    const auto * const entry = m_figures.Standard(id);
    const Placement left = WithoutTurn(placement);
    if (entry == nullptr) {
        m_context.TellDangling(element.Line(), "primitive", id);
        return;
    }
    if (left.IsNothing()) {
        return;
    }
    if (left.scale == 1.0 && m_figures.IsSymmetricStandard(id)) {
        return;
    }
    const std::string base = std::string(id) + (left.isMirrored ? "-MIRRORED" : "-SCALED");
    const std::string key = base + " " + AllDigits(left.scale);
    if (const Made * const made = FindIn(m_made, key); made != nullptr) {
        TakeText(made->name, pad.StandardPrimitiveRefId, m_context.blocks);
        return;
    }
    const double scale = UnitScale(m_context.board.m_Content.DictionaryStandard->Unit, m_shapes.Units());
    Shapes shapes;
    for (const CIPC2581_DrawObj * const shape : Each(entry->DrawArray)) {
        m_context.CountCopies(element.Line(), PointsOf(*shape));
        AddPlaced(CopyOf(*shape), left.Of({.scale = scale}), shapes);
    }
    const std::string name = MakeEntry(base, std::move(shapes));
    m_made.emplace(key, Made{name, {}});
    TakeText(name, pad.StandardPrimitiveRefId, m_context.blocks);
}

void PadReader::TakeShape(const XmlElement & element, CString & id)
{
    if (element.Name() == W("StandardPrimitiveRef")) {
        element.Take();
        TakeTextOf(element, W("id"), id, m_context.blocks);
        if (m_figures.Standard(element.Value(W("id"))) == nullptr) {
            m_context.TellDangling(element.Line(), "primitive", element.Value(W("id")));
        }
        return;
    }
    const bool isReference = element.Name() == W("UserPrimitiveRef");
    const std::string key = KeyOf(element);
    if (const Made * const made = key.empty() ? nullptr : FindIn(m_made, key); made != nullptr) {
        TakeAsMade(element, *made, id);
        return;
    }
    const std::string base(isReference ? element.Value(W("id")) : "SHAPE");
    Shapes shapes;
    m_shapes.Read(element, {}, isReference ? ShapeReader::Hollow::Strokes : ShapeReader::Hollow::Areas, shapes);
    if (shapes.empty()) {
        KeepReference(element, id);
        return;
    }
    const std::string name = MakeEntry(base, std::move(shapes));
    if (!key.empty()) {
        m_made.emplace(key, Made{name, element.Untaken()});
    }
    TakeText(name, id, m_context.blocks);
}

// A figure that is not there is kept by its name; a shape that takes away what others draw is none.
void PadReader::KeepReference(const XmlElement & element, CString & id)
{
    if (element.Name() == W("UserPrimitiveRef")) {
        element.Take();
        TakeTextOf(element, W("id"), id, m_context.blocks);
    }
}

// Takes of a shape what was taken of the equal one that the entry was made of.
void PadReader::TakeAsMade(const XmlElement & element, const Made & made, CString & id)
{
    element.Take();
    element.TakeAttributes([&](Word name, std::string_view /*value*/) {
        return std::find(made.lost.begin(), made.lost.end(), name) == made.lost.end();
    });
    TakeText(made.name, id, m_context.blocks);
}

std::string PadReader::MakeEntry(std::string_view base, Shapes shapes)
{
    CIPC2581_Content_DictionaryStandard & dictionary = *m_context.board.m_Content.DictionaryStandard;
    if (dictionary.Unit.IsEmpty()) {
        dictionary.Unit = m_context.board.m_Ecad.m_CadHeader.units;
    }
    std::string name(base);
    while (m_figures.Standard(name) != nullptr) {
        name = std::string(base) + "-" + std::to_string(++m_numbered);
    }
    auto & entry = AddTo(dictionary.EntryArray, m_context.Make<CIPC2581_Content_DictionaryStandard_EntryStandard>());
    TakeText(name, entry.EntryStandardId, m_context.blocks);
    const double scale = UnitScale(m_shapes.Units(), dictionary.Unit);
    Shapes scaled;
    for (auto & shape : shapes) {
        AddPlaced(std::move(shape), {.scale = scale}, scaled);
    }
    for (auto & shape : scaled) {
        AddTo(entry.DrawArray, std::move(shape));
    }
    m_figures.AddStandard(name, entry);
    return name;
}

// A pad without a shape has that of its pad stack on its layer.
void PadReader::TakeFromStack(const XmlElement & element, std::string_view layer, const Placement & placement,
                              CIPC2581_Ecad_CadData_Step_Pad & pad)
{
    const std::string_view name = element.Value(W("padstackDefRef"));
    if (name.empty()) {
        return;
    }
    const auto found = m_stacks.find(name);
    if (found == m_stacks.end()) {
        m_context.TellDangling(element.Line(), "pad stack", name);
        return;
    }
    Stack & stack = found->second;
    const auto own = std::find_if(stack.pads.begin(), stack.pads.end(),
                                  [&](const PadOfStack & any) { return any.layer == layer && any.shape != 0; });
    if (own == stack.pads.end()) {
        return;
    }
    const Placement placed =
        Placement{{}, placement.rotation, placement.isMirrored, placement.scale}.Of(own->placement);
    pad.Location.X += placed.location.X;
    pad.Location.Y += placed.location.Y;
    pad.Rotation = TurnBehind(placed);
    TakePlacedShape(stack.tree.ElementAt(own->shape), placed, pad);
}

}  // namespace ipc2581::detail
