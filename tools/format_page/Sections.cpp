#include "tools/format_page/Sections.h"

#include <algorithm>
#include <set>
#include <utility>

#include "hosts/ipc2581/board/ShapeElements.h"

namespace ipc2581::format_page {
namespace {

constexpr std::string_view RootElement = "IPC-2581";

struct ShapeElement {
    std::string_view className;
    std::string element;
};

template <typename Class>
ShapeElement ElementOfShape()
{
    ShapeElement shape = {Fields<Class>::Name, {}};
    host::VisitShape(Class(), [&](int /*place*/, const char * name) {
        shape.element = shape.element.empty() ? name : shape.element;
    });
    return shape;
}

template <typename... Classes>
std::vector<ShapeElement> ElementsOf(ClassList<Classes...> /*classes*/)
{
    return {ElementOfShape<Classes>()...};
}

const std::vector<ShapeElement> & ShapeElements()
{
    static const std::vector<ShapeElement> elements = ElementsOf(ShapeClasses());
    return elements;
}

const ClassInfo & FindClass(const std::vector<ClassInfo> & classes, std::string_view name)
{
    return *std::find_if(classes.begin(), classes.end(), [&](const ClassInfo & info) { return info.name == name; });
}

std::optional<Path> PlaceInside(const Path & place, std::string_view element)
{
    Path inside = place;
    inside.push_back(element);
    return WrittenBack(inside, {}).empty() ? std::nullopt : std::optional(inside);
}

bool IsFilledByOwner(const ClassInfo & owner, const FieldInfo & member)
{
    const std::string begin = std::string(member.name) + ".";
    return std::any_of(owner.attributes.begin(), owner.attributes.end(),
                       [&](const AttributeInfo & attribute) { return attribute.member.starts_with(begin); });
}

bool TakesFromPlace(const ClassInfo & info, const Path & place)
{
    return std::any_of(info.attributes.begin(), info.attributes.end(),
                       [&](const AttributeInfo & attribute) { return PlaceInside(place, attribute.element); }) ||
           std::any_of(info.members.begin(), info.members.end(), [&](const FieldInfo & member) {
               return !member.element.empty() && PlaceInside(place, member.element);
           });
}

class Finder {
public:
    explicit Finder(const std::vector<ClassInfo> & classes) : m_classes(classes) {}

    void Visit(const ClassInfo & info, const Path & place)
    {
        Section & section = SectionOf(info);
        if (std::find(section.places.begin(), section.places.end(), place) != section.places.end()) {
            return;
        }
        section.places.push_back(place);
        for (const FieldInfo & member : info.members) {
            for (const Child & child : ChildrenOf(m_classes, info, member, place)) {
                AddName(*child.info, child.element);
                Visit(*child.info, child.place);
            }
        }
    }

    std::vector<Section> TakeSections()
    {
        for (const ClassInfo & info : m_classes) {
            SectionOf(info);
        }
        std::set<std::string> taken;
        for (Section & section : m_sections) {
            SetTitle(section);
            if (!taken.insert(section.title).second) {
                const Path & place = section.places.front();
                section.title += " in " + std::string(place[place.size() - 2]);
            }
        }
        return std::move(m_sections);
    }

private:
    const std::vector<ClassInfo> & m_classes;
    std::vector<Section> m_sections;

    Section & SectionOf(const ClassInfo & info)
    {
        const auto found = std::find_if(m_sections.begin(), m_sections.end(),
                                        [&](const Section & section) { return section.info == &info; });
        return found == m_sections.end() ? m_sections.emplace_back(Section{&info, {}, {}}) : *found;
    }

    void AddName(const ClassInfo & info, std::string_view name)
    {
        std::string & title = SectionOf(info).title;
        if (!name.empty() && (", " + title + ",").find(", " + std::string(name) + ",") == std::string::npos) {
            title += (title.empty() ? "" : ", ") + std::string(name);
        }
    }

    void SetTitle(Section & section)
    {
        if (section.places.empty()) {
            section.title = section.info->name;
            return;
        }
        if (section.places.front().empty()) {
            section.title = RootElement;
        }
        if (section.title.empty()) {
            for (const AttributeInfo & attribute : section.info->attributes) {
                AddName(*section.info, attribute.element);
            }
        }
    }
};

}  // namespace

std::optional<Path> PlaceOfElement(const Path & place, std::string_view element)
{
    if (!place.empty() && place.back() == element) {
        return place;
    }
    if (std::optional<Path> inside = PlaceInside(place, element)) {
        return inside;
    }
    if (place.empty()) {
        return {};
    }
    // The colour dictionary stands beside the standard dictionary, to which it gives its unit.
    return PlaceInside(Path(place.begin(), place.end() - 1), element);
}

std::vector<Child> ChildrenOf(const std::vector<ClassInfo> & classes, const ClassInfo & owner, const FieldInfo & member,
                              const Path & place)
{
    if (member.className.empty() || IsFilledByOwner(owner, member)) {
        return {};
    }
    std::vector<Child> children;
    if (member.className == Fields<CIPC2581_DrawObj>::Name) {
        for (const ShapeElement & shape : ShapeElements()) {
            const bool isTaken = member.element.empty() || member.element == shape.element;
            const std::optional<Path> inside = isTaken ? PlaceInside(place, shape.element) : std::nullopt;
            if (inside) {
                children.push_back({&FindClass(classes, shape.className), shape.element, *inside});
            }
        }
        return children;
    }
    const ClassInfo & info = FindClass(classes, member.className);
    if (member.element.empty()) {
        if (TakesFromPlace(info, place)) {
            children.push_back({&info, {}, place});
        }
        return children;
    }
    if (const std::optional<Path> inside = PlaceInside(place, member.element)) {
        children.push_back({&info, member.element, *inside});
    }
    return children;
}

std::vector<Section> FindSections(const std::vector<ClassInfo> & classes)
{
    Finder finder(classes);
    finder.Visit(FindClass(classes, Fields<CIPC2581_Parser>::Name), {});
    return finder.TakeSections();
}

}  // namespace ipc2581::format_page
