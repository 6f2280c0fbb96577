#include "tools/format_page/Page.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/format_page/Sections.h"

namespace ipc2581::format_page {
namespace {

constexpr std::string_view Intro = R"(# The format, as the library knows it

Which element of a file fills which class, attribute by attribute, and what is written back. This page is made from the
tables that the reader reads with, by `tools/format-page`; a test fails if it does not fit them.
[lines.md](lines.md) tells how a line is found to be one of an element, and how a value is cut out of it.

The sections follow the elements of a file from the root down; [Elements by name](#elements-by-name) leads to them by
the alphabet, and the classes that no file fills come last. Each section is one class and tells where in a file its
objects are read from, then what they take there:

- *word* is how an attribute is found. A narrow one is known by its name with the `=`, so that the end of a longer name
  holds it too. A wide one is known by its name alone, wherever a token holds it, in its value too.
- *value* is how the text becomes a value. Where elements of one name are read in two ways in two places, both stand
  there.
- *written back* is what a file has that is read and written again. *Written*: there is such an element. *Kept*: the
  attribute comes back. *Changed*: it has an effect there, but under another name or with another value. *Always*: it is
  there, whatever the file has had. *Never*: it does not come back. *Not read*: no file gives it to the class.
)";

std::string Code(std::string_view text)
{
    return std::string(1, '`').append(text).append(1, '`');
}

std::string Joined(const std::vector<std::string> & texts, std::string_view between)
{
    std::string joined;
    for (const std::string & text : texts) {
        joined.append(joined.empty() ? "" : between).append(text);
    }
    return joined;
}

void AddOnce(std::vector<std::string> & texts, const std::string & text)
{
    if (std::find(texts.begin(), texts.end(), text) == texts.end()) {
        texts.push_back(text);
    }
}

std::string OuterFormText(std::size_t count)
{
    std::string words;
    for (std::size_t i = 0; i < count; ++i) {
        words.append(words.empty() ? "" : ", ").append(Code(OuterFormWords.at(i)));
    }
    return "code of the word that the token holds: " + words;
}

std::string ReadingText(Reading reading)
{
    switch (reading) {
    case Reading::Text:
        return "text";
    case Reading::Number:
        return "number";
    case Reading::Integer:
        return "whole number";
    case Reading::Flag:
        return "flag: set if the value holds `TRUE`, else cleared";
    case Reading::CornerFlag:
        return "flag: set if the value holds `TURE`, never cleared";
    case Reading::ControlFlag:
        return "flag: set if the value is the character with the code 1, else cleared";
    case Reading::Direction:
        return "direction: 1 if the value holds `FALSE` or `false`, else 0";
    case Reading::OuterForm:
        return OuterFormText(OuterFormWords.size());
    case Reading::RoundOrSquare:
        return OuterFormText(2);
    }
    return {};
}

std::string KindText(FieldKind kind)
{
    switch (kind) {
    case FieldKind::Text:
        return "text";
    case FieldKind::Texts:
        return "list of texts";
    case FieldKind::Number:
        return "number";
    case FieldKind::Integer:
    case FieldKind::LongInteger:
        return "whole number";
    case FieldKind::Flag:
        return "flag";
    case FieldKind::Point:
        return "point";
    case FieldKind::Part:
        return "part";
    case FieldKind::List:
        return "list";
    case FieldKind::HostPointer:
        return "pointer of the host";
    }
    return {};
}

std::string PathText(const Path & path)
{
    std::string text;
    for (const std::string_view name : path) {
        text.append(text.empty() ? "" : "/").append(name);
    }
    return text;
}

bool EndsAlike(const Path & left, const Path & right, std::size_t count)
{
    return left.size() >= count && right.size() >= count &&
           std::equal(left.end() - static_cast<std::ptrdiff_t>(count), left.end(),
                      right.end() - static_cast<std::ptrdiff_t>(count));
}

// The end of a path that none of the others has.
std::string OwnEnd(const Path & path, const std::vector<Path> & others)
{
    std::size_t count = 1;
    while (count < path.size() && std::any_of(others.begin(), others.end(), [&](const Path & other) {
               return other != path && EndsAlike(path, other, count);
           })) {
        ++count;
    }
    return PathText(Path(path.end() - static_cast<std::ptrdiff_t>(count), path.end()));
}

// Of an element of the places, or of its attribute.
std::string WrittenText(const std::vector<Path> & places, std::string_view element, std::string_view attribute)
{
    std::vector<std::pair<std::string_view, std::vector<Path>>> found;
    for (const Path & place : places) {
        const std::optional<Path> path = PlaceOfElement(place, element);
        const std::string_view word = path ? WrittenBack(*path, attribute) : std::string_view();
        if (word.empty()) {
            continue;
        }
        auto same = std::find_if(found.begin(), found.end(), [&](const auto & entry) { return entry.first == word; });
        same = same == found.end() ? found.insert(same, {word, {}}) : same;
        same->second.push_back(place);
    }
    if (found.empty()) {
        return "not read";
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto & a, const auto & b) { return a.second.size() > b.second.size(); });
    std::string text(found.front().first);
    for (std::size_t i = 1; i < found.size(); ++i) {
        std::vector<std::string> ends;
        for (const Path & place : found[i].second) {
            ends.push_back(Code(OwnEnd(place, places)));
        }
        text.append("; ").append(found[i].first).append(" in ").append(Joined(ends, ", "));
    }
    return text;
}

// As GitHub makes it from a heading.
std::string AnchorOf(const std::string & title)
{
    std::string anchor;
    for (const char c : title) {
        if (std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '-' || c == '_') {
            anchor += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        }
        else if (c == ' ') {
            anchor += '-';
        }
    }
    return anchor;
}

std::string LinkTo(const Section & section)
{
    return "[" + section.title + "](#" + AnchorOf(section.title) + ")";
}

std::string_view NameOf(const AttributeInfo & attribute)
{
    return attribute.IsWide() ? attribute.word : attribute.word.substr(0, attribute.word.size() - 1);
}

// A row of a table.
struct Row {
    // Empty for lines that no element of their own opens.
    std::string element;
    std::string attribute;
    std::string word;
    std::string value;
    std::string member;
    std::string written;
    // To the section of what the element is read into, where it has one of its own.
    std::string link = {};
};

class Page {
public:
    explicit Page(std::ostream & out) : m_out(out) {}

    void Write() const
    {
        m_out << Intro;
        for (const Section & section : m_sections) {
            if (!section.places.empty()) {
                m_out << "\n## " << section.title << "\n";
                WriteSection(section);
            }
        }
        WriteElements();
        m_out << "\n## Classes that no file fills\n\n"
              << "Hosts make objects of them; the reader makes none, or leaves them as they are.\n";
        for (const Section & section : m_sections) {
            if (section.places.empty()) {
                m_out << "\n### " << section.title << "\n";
                WriteSection(section);
            }
        }
    }

private:
    std::ostream & m_out;
    const std::vector<ClassInfo> m_classes = DescribeClasses();
    const std::vector<Section> m_sections = FindSections(m_classes);

    [[nodiscard]] const Section & SectionOf(const ClassInfo & info) const
    {
        return *std::find_if(m_sections.begin(), m_sections.end(),
                             [&](const Section & section) { return section.info == &info; });
    }

    // Of the elements that give values to the object itself.
    static std::vector<std::string_view> OwnElements(const ClassInfo & info)
    {
        std::vector<std::string_view> elements;
        for (const AttributeInfo & attribute : info.attributes) {
            if (std::find(elements.begin(), elements.end(), attribute.element) == elements.end()) {
                elements.push_back(attribute.element);
            }
        }
        return elements;
    }

    static void AddAttributeRow(const Section & section, const AttributeInfo & attribute, std::vector<Row> & rows)
    {
        const std::string name = Code(NameOf(attribute));
        const std::string member = Code(attribute.member);
        const std::string value = ReadingText(attribute.reading);
        const std::string word = attribute.IsWide() ? "wide" : "narrow";
        const auto first = std::find_if(rows.begin(), rows.end(), [&](const Row & row) {
            return row.element == attribute.element && row.attribute == name;
        });
        if (first == rows.end()) {
            rows.push_back({std::string(attribute.element), name, word, value, member,
                            WrittenText(section.places, attribute.element, NameOf(attribute))});
        }
        else if (first->member == member) {
            first->value += first->value == value ? "" : "; or " + value;
        }
        else {
            rows.push_back({std::string(attribute.element), name, word, "nothing: the first row with the word takes it",
                            member, "not read"});
        }
    }

    static std::vector<Row> OwnRows(const Section & section)
    {
        std::vector<Row> rows;
        for (const std::string_view element : OwnElements(*section.info)) {
            rows.push_back({std::string(element), "", "", "", "", WrittenText(section.places, element, {})});
            for (const AttributeInfo & attribute : section.info->attributes) {
                if (attribute.element == element) {
                    AddAttributeRow(section, attribute, rows);
                }
            }
        }
        return rows;
    }

    // What a member takes from elements inside those of the object.
    [[nodiscard]] std::vector<Row> RowsInside(const Section & section, const FieldInfo & member) const
    {
        std::vector<Row> rows;
        std::set<std::pair<const ClassInfo *, std::string_view>> found;
        for (const Path & place : section.places) {
            for (const Child & child : ChildrenOf(m_classes, *section.info, member, place)) {
                if (!found.insert({child.info, child.element}).second) {
                    continue;
                }
                const std::string link = LinkTo(SectionOf(*child.info));
                const std::string value = member.kind == FieldKind::List ? "list of " + link : link;
                const std::string written = child.element.empty() ? "" : WrittenText(section.places, child.element, {});
                rows.push_back({std::string(child.element), "", "", value, Code(member.name), written, link});
            }
        }
        if (member.className.empty() && !member.element.empty()) {
            rows.push_back({std::string(member.element), "", "", KindText(member.kind) + ", one for each element",
                            Code(member.name), WrittenText(section.places, member.element, {})});
        }
        return rows;
    }

    static bool IsFilledByAttribute(const ClassInfo & info, const FieldInfo & member)
    {
        return std::any_of(info.attributes.begin(), info.attributes.end(), [&](const AttributeInfo & attribute) {
            return attribute.member.substr(0, attribute.member.find('.')) == member.name;
        });
    }

    [[nodiscard]] std::vector<Row> RowsOf(const Section & section) const
    {
        std::vector<Row> rows = OwnRows(section);
        for (const FieldInfo & member : section.info->members) {
            const std::vector<Row> inside = RowsInside(section, member);
            rows.insert(rows.end(), inside.begin(), inside.end());
        }
        return rows;
    }

    // The members that no row gives anything to, with their kinds.
    [[nodiscard]] std::vector<std::string> UnfilledMembers(const Section & section) const
    {
        std::vector<std::string> unfilled;
        for (const FieldInfo & member : section.info->members) {
            if (!IsFilledByAttribute(*section.info, member) && RowsInside(section, member).empty()) {
                unfilled.push_back(Code(member.name) + " (" + KindText(member.kind) + ")");
            }
        }
        return unfilled;
    }

    void WriteSection(const Section & section) const
    {
        m_out << "\n";
        if (!section.places.empty()) {
            std::vector<std::string> places;
            for (const Path & place : section.places) {
                places.push_back(place.empty() ? "the whole file" : Code(PathText(place)));
            }
            m_out << "Class " << Code(section.info->name) << ", from" << (places.size() == 1 ? " " : "\n")
                  << Joined(places, ",\n") << ".\n\n";
        }
        const std::vector<Row> rows = RowsOf(section);
        const std::vector<std::string> unfilled = UnfilledMembers(section);
        WriteRows(rows);
        if (!unfilled.empty()) {
            m_out << (rows.empty() ? "" : "\n")
                  << "No row of the tables gives these a value; a reader may set them itself:\n"
                  << Joined(unfilled, ",\n") << ".\n";
        }
    }

    void WriteRows(const std::vector<Row> & rows) const
    {
        if (rows.empty()) {
            return;
        }
        m_out << "| element | attribute | word | value | member | written back |\n|---|---|---|---|---|---|\n";
        for (const Row & row : rows) {
            const std::string element = row.element.empty() ? "lines inside" : Code(row.element);
            m_out << "| " << (row.attribute.empty() ? element : "");
            for (const std::string & cell : {row.attribute, row.word, row.value, row.member, row.written}) {
                m_out << " | " << cell;
            }
            m_out << " |\n";
        }
    }

    void WriteElements() const
    {
        std::map<std::string, std::vector<std::string>> elements;
        for (const Section & section : m_sections) {
            for (const Row & row : RowsOf(section)) {
                if (!row.link.empty()) {
                    AddOnce(elements[row.element], row.link);
                }
                AddOnce(elements[row.element], LinkTo(section));
            }
        }
        elements.erase("");
        m_out << "\n## Elements by name\n\n| element | sections |\n|---|---|\n";
        for (const auto & [element, links] : elements) {
            m_out << "| " << Code(element) << " | " << Joined(links, ", ") << " |\n";
        }
    }
};

}  // namespace

void WritePage(std::ostream & out)
{
    Page(out).Write();
}

}  // namespace ipc2581::format_page
