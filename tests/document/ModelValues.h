#ifndef IPC2581_TESTS_DOCUMENT_MODELVALUES_H
#define IPC2581_TESTS_DOCUMENT_MODELVALUES_H

#include <array>
#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "ipc2581/fields.h"
#include "tests/support/Files.h"

namespace ipc2581::tests {

// What a model holds beside what a new one does, a line a value: "Layer[0].name = TOP". An element of a list that holds
// nothing of its own stands there by its name alone, and a shape by the first line that it writes. A part that a
// document has once stands by its own name, wherever it is; a contour and its points stand in the name of what has
// them.
class ModelValues {
public:
    explicit ModelValues(const CIPC2581_Parser & root) { AddMembers("", root, CIPC2581_Parser()); }

    [[nodiscard]] const std::vector<std::string> & Lines() const { return m_lines; }

private:
    using Path = std::string;

    void Line(const Path & path, const std::string & value)
    {
        m_lines.push_back(path + (value.empty() ? " =" : " = ") + value);
    }

    template <typename Object>
    void AddMembers(const Path & path, const Object & object, const Object & unset)
    {
        ForEachMember(object, [&](const auto & member, const auto & value) {
            using Type = std::remove_cvref_t<decltype(value)>;
            if constexpr (KindOf<Type>() == FieldKind::HostPointer) {
                return;
            }
            else if constexpr (std::is_pointer_v<Type>) {
                Add(path, member, *value, *(unset.*member.pointer));
            }
            else {
                Add(path, member, value, unset.*member.pointer);
            }
        });
    }

    template <typename Member, typename Type>
    void Add(const Path & path, const Member & member, const Type & value, const Type & unset)
    {
        constexpr FieldKind kind = KindOf<Type>();
        if constexpr (kind == FieldKind::Part) {
            AddMembers(PathOfPart<Type>(path, member), value, unset);
        }
        else if constexpr (kind == FieldKind::List) {
            const bool isOfContour = std::is_same_v<Type, CIPC2581_PolyStepArray>;
            AddElements(IsOnce(path) && !isOfContour ? Name(member) : path + "." + Name(member), value);
        }
        else if constexpr (kind == FieldKind::Point) {
            const Path at = member.name == "Point" ? path : Inside(path, member);
            AddNumber(at + ".X", value.X, unset.X);
            AddNumber(at + ".Y", value.Y, unset.Y);
        }
        else if constexpr (kind == FieldKind::Texts) {
            for (std::int64_t i = 0; i < value.GetSize(); ++i) {
                Line(Inside(path, member) + "[" + std::to_string(i) + "]", Str(value[i]));
            }
        }
        else if constexpr (kind == FieldKind::Text) {
            if (value != unset) {
                Line(Inside(path, member), Str(value));
            }
        }
        else {
            AddNumber(Inside(path, member), static_cast<double>(value), static_cast<double>(unset));
        }
    }

    template <typename List>
    void AddElements(const Path & path, const List & elements)
    {
        using Element = typename List::Element;
        for (std::int64_t i = 0; i < elements.GetSize(); ++i) {
            const Path at = path + "[" + std::to_string(i) + "]";
            const std::size_t before = m_lines.size();
            if constexpr (std::is_same_v<Element, CIPC2581_DrawObj>) {
                const std::string written = Written(*elements.GetAt(i), -1);
                Line(at, written.substr(0, written.find('\n')));
            }
            else {
                AddMembers(at, *elements.GetAt(i), Element());
            }
            if (m_lines.size() == before) {
                m_lines.push_back(at);
            }
        }
    }

    void AddNumber(const Path & path, double value, double unset)
    {
        if (value == unset) {
            return;
        }
        std::array<char, 32> digits = {};
        const std::to_chars_result end = std::to_chars(digits.data(), digits.data() + digits.size(), value);
        Line(path, std::string(digits.data(), end.ptr));
    }

    // Outside of the elements of lists.
    static bool IsOnce(const Path & path) { return path.find('[') == Path::npos; }

    // The element that the member is read from, or its own name; that of a list without the word for one.
    template <typename Member>
    static std::string Name(const Member & member)
    {
        constexpr std::string_view list = "Array";
        std::string_view name = member.element.empty() ? member.name : member.element;
        if (name.ends_with(list)) {
            name.remove_suffix(list.size());
        }
        return std::string(name);
    }

    template <typename Member>
    static Path Inside(const Path & path, const Member & member)
    {
        return path.empty() ? std::string(member.name) : path + "." + std::string(member.name);
    }

    template <typename Part, typename Member>
    static Path PathOfPart(const Path & path, const Member & member)
    {
        if constexpr (std::is_same_v<Part, CIPC2581_Content>) {
            return "";
        }
        else if constexpr (std::is_same_v<Part, CIPC2581_Polygon>) {
            return path;
        }
        else if constexpr (std::is_same_v<Part, CIPC2581_Point>) {
            return path + "." + std::string(member.name);
        }
        else {
            return IsOnce(path) ? Name(member) : path + "." + Name(member);
        }
    }

    std::vector<std::string> m_lines;
};

}  // namespace ipc2581::tests

#endif
