#include "hosts/ipc2581/check/LossTable.h"

#include <algorithm>
#include <array>
#include <string>

#include "hosts/ipc2581/text/Text.h"

namespace ipc2581::host {
namespace {

using enum Written;

// What does not come back as it was read. Nothing of an element without an attribute here is written, nor of what
// stands in it. All else is kept.
struct Loss {
    std::string_view in;  // empty for any place
    std::string_view element;
    std::string_view attribute;
    Written written;
};

constexpr std::array Losses = std::to_array<Loss>({
    {"Content", "StepRef", "", Never},
    {"Content", "LayerRef", "", Never},
    {"Content", "BomRef", "", Never},
    {"Content", "DictionaryUser", "", Never},
    // The unit of the standard dictionary is written in its place.
    {"Content", "DictionaryColor", "units", Changed},
    {"EntryColor", "Color", "id", Never},
    // The wrong word sets a corner, and all corners are written.
    {"", "RectCham", "upperRight", Changed},
    {"", "RectCham", "upperLeft", Changed},
    {"", "RectCham", "lowerLeft", Changed},
    {"", "RectCham", "lowerRight", Changed},
    {"", "RectRound", "upperRight", Changed},
    {"", "RectRound", "upperLeft", Changed},
    {"", "RectRound", "lowerLeft", Changed},
    {"", "RectRound", "lowerRight", Changed},
    // It tells which of its two sizes is written, under the name of that size.
    {"", "Butterfly", "shape", Changed},
    // Written as a diamond.
    {"", "Donut", "shape", Changed},
    {"", "Donut", "outerDiameter", Changed},
    {"", "Donut", "innerDiameter", Changed},
    // Written with the line length as its diameter, and with zeros.
    {"", "Moire", "diameter", Always},
    {"", "Moire", "ringWidth", Always},
    {"", "Moire", "ringGap", Always},
    {"", "Moire", "ringNumber", Always},
    {"", "Moire", "lineWidth", Always},
    {"", "Moire", "lineLength", Changed},
    {"", "Moire", "lineAngle", Always},
    // Always 4.
    {"", "Thermal", "spokeCount", Always},
    // Turned round.
    {"", "PolyStepCurve", "clockwise", Changed},
    {"", "LogisticHeader", "", Never},
    {"", "HistoryRecord", "", Never},
    {"", "Bom", "", Never},
    {"CadData", "Stackup", "", Never},
    {"Step", "PadStack", "", Never},
    {"Pin", "Xform", "", Never},
    {"Pin", "Outline", "", Never},
    // Always 0.
    {"Step", "Component", "height", Always},
    {"Component", "Xform", "mirror", Never},
    {"PhyNet", "PhyNetPoint", "test", Never},
});

Written WrittenOf(std::string_view in, std::string_view element, std::string_view attribute)
{
    const auto * const found = std::find_if(Losses.begin(), Losses.end(), [&](const Loss & loss) {
        return loss.element == element && loss.attribute == attribute && (loss.in.empty() || loss.in == in);
    });
    return found == Losses.end() ? Kept : found->written;
}

bool EqualIgnoringCase(std::string_view left, std::string_view right)
{
    return LowerCase(std::string(left)) == LowerCase(std::string(right));
}

const std::vector<ClassInfo> & Classes()
{
    static const std::vector<ClassInfo> classes = DescribeClasses();
    return classes;
}

const ClassInfo * FindClass(std::string_view name)
{
    const auto found =
        std::find_if(Classes().begin(), Classes().end(), [&](const ClassInfo & info) { return info.name == name; });
    return found == Classes().end() ? nullptr : &*found;
}

template <typename... Shapes>
std::vector<std::string_view> NamesOf(ClassList<Shapes...> /*shapes*/)
{
    return {Fields<Shapes>::Name...};
}

// The classes of shapes are named after their elements.
const ClassInfo * FindShape(std::string_view element)
{
    static const std::vector<std::string_view> shapes = NamesOf(ShapeClasses());
    for (const std::string_view prefix : {"CIPC2581_", "CIPC2581_DicDraw_"}) {
        const std::string name = std::string(prefix).append(element);
        const auto found = std::find_if(shapes.begin(), shapes.end(),
                                        [&](std::string_view shape) { return EqualIgnoringCase(shape, name); });
        if (found != shapes.end()) {
            return FindClass(*found);
        }
    }
    return nullptr;
}

// Of a part without an element of its own, such as the outline of an assembly drawing, the lines are those of its
// owner.
const FieldInfo * FindMember(const ClassInfo & owner, std::string_view element)
{
    for (const FieldInfo & member : owner.members) {
        if (member.element == element) {
            return &member;
        }
    }
    for (const FieldInfo & member : owner.members) {
        const bool isPart = member.element.empty() && member.kind == FieldKind::Part;
        if (const FieldInfo * const inner = isPart ? FindMember(*FindClass(member.className), element) : nullptr) {
            return inner;
        }
    }
    return nullptr;
}

bool HasAttributesOf(const ClassInfo & info, std::string_view element)
{
    return std::any_of(info.attributes.begin(), info.attributes.end(),
                       [&](const AttributeInfo & attribute) { return attribute.element == element; });
}

// Whether a list of the class, which has no element for all of its objects, may hold the element.
bool HoldsShape(const ClassInfo & info, std::string_view element)
{
    return std::any_of(info.members.begin(), info.members.end(), [&](const FieldInfo & member) {
        if (member.kind != FieldKind::List || !member.element.empty()) {
            return false;
        }
        return HasAttributesOf(*FindClass(member.className), element) || FindShape(element) != nullptr;
    });
}

// The class that takes attributes of the element.
const ClassInfo * FindTaker(const ClassInfo * likely, std::string_view element)
{
    if (likely != nullptr && HasAttributesOf(*likely, element)) {
        return likely;
    }
    const auto found = std::find_if(Classes().begin(), Classes().end(),
                                    [&](const ClassInfo & info) { return HasAttributesOf(info, element); });
    return found == Classes().end() ? nullptr : &*found;
}

std::vector<AttributeLoss> AttributesOf(const ClassInfo & taker, std::string_view in, std::string_view element)
{
    std::vector<AttributeLoss> attributes;
    for (const AttributeInfo & attribute : taker.attributes) {
        if (attribute.element == element) {
            const std::string_view name = attribute.word.substr(0, attribute.word.find('='));
            attributes.push_back({name, attribute.reading, WrittenOf(in, element, name)});
        }
    }
    return attributes;
}

}  // namespace

ElementLoss::ElementLoss() : m_class(FindClass(Fields<CIPC2581_Parser>::Name)) {}

ElementLoss::ElementLoss(const ElementLoss & parent, std::string_view name)
    : m_name(name), m_class(FindShape(name)), m_isLost(parent.m_isLost || WrittenOf(parent.m_name, name, "") == Never)
{
    const ClassInfo * const owner = parent.m_class;
    const FieldInfo * const member = owner == nullptr ? nullptr : FindMember(*owner, name);
    if (member != nullptr) {
        const bool isShape = member->className == Fields<CIPC2581_DrawObj>::Name;
        m_class = isShape ? m_class : FindClass(member->className);
        m_isPart = member->kind == FieldKind::Part;
        m_isObject = member->kind == FieldKind::List || member->kind == FieldKind::Texts;
    }
    else if (owner != nullptr && HasAttributesOf(*owner, name)) {
        m_class = owner;
    }
    else {
        m_isObject = true;
    }
    if (const ClassInfo * const taker = FindTaker(m_class, name)) {
        m_attributes = AttributesOf(*taker, parent.m_name, name);
    }
}

const AttributeLoss * ElementLoss::Find(std::string_view attribute) const
{
    const auto found = std::find_if(m_attributes.begin(), m_attributes.end(),
                                    [&](const AttributeLoss & loss) { return loss.name == attribute; });
    return found == m_attributes.end() ? nullptr : &*found;
}

bool ElementLoss::HoldsObjects() const
{
    return m_class != nullptr && std::any_of(m_class->members.begin(), m_class->members.end(),
                                             [](const FieldInfo & member) { return !member.className.empty(); });
}

bool ElementLoss::Knows(std::string_view name) const
{
    if (m_class == nullptr || name == m_name) {
        return false;
    }
    return FindMember(*m_class, name) != nullptr || HasAttributesOf(*m_class, name) || HoldsShape(*m_class, name);
}

ElementLoss & ElementLoss::Inner(std::string_view name)
{
    const auto found =
        std::find_if(m_inner.begin(), m_inner.end(), [&](const auto & inner) { return inner->m_name == name; });
    return found != m_inner.end() ? **found : *m_inner.emplace_back(std::make_unique<ElementLoss>(*this, name));
}

bool ReadsAsSet(Reading reading, std::string_view text)
{
    switch (reading) {
    case Reading::Flag:
        return text.find("TRUE") != std::string_view::npos;
    case Reading::CornerFlag:
        return text.find("TURE") != std::string_view::npos;
    case Reading::ControlFlag:
        return text == "\x01";
    default:
        return false;
    }
}

bool MeansSet(std::string_view text)
{
    return text == "1" || EqualIgnoringCase(text, "true");
}

bool IsSetUnread(std::string_view text)
{
    return MeansSet(text) && !ReadsAsSet(Reading::Flag, text);
}

}  // namespace ipc2581::host
