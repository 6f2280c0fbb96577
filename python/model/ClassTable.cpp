#include "python/model/ClassTable.h"

#include <algorithm>
#include <cstddef>
#include <new>
#include <type_traits>
#include <utility>

namespace ipc2581::python {
namespace {

template <typename Class, typename... Own>
constexpr std::size_t IndexIn(ClassList<Own...> /*classes*/)
{
    std::size_t index = 0;
    std::size_t found = sizeof...(Own);
    ((found = std::is_same_v<Class, Own> ? index : found, ++index), ...);
    return found;
}

// Points come behind the classes of the model.
template <typename Class>
const ClassRow & RowOf()
{
    return Classes()[IndexIn<Class>(ModelClasses())];
}

template <typename List>
Found At(void * list, std::int64_t index)
{
    using Element = typename List::Element;
    Element * const element = static_cast<List *>(list)->GetAt(index);
    Found found;
    if (element == nullptr) {
        return found;
    }
    const auto take = [&]<typename Own>(const Own & own) { found = {const_cast<Own *>(&own), &RowOf<Own>()}; };
    if constexpr (std::is_same_v<Element, CIPC2581_DrawObj>) {
        VisitShape(*element, take);
    }
    else {
        take(*element);
    }
    return found;
}

template <typename Element>
void * AsElement(const Found & object)
{
    if constexpr (std::is_same_v<Element, CIPC2581_DrawObj>) {
        return object.type->asShape == nullptr ? nullptr : object.type->asShape(object.object);
    }
    else {
        return object.type == &RowOf<Element>() ? object.object : nullptr;
    }
}

template <typename List>
const ListRow & RowOfList()
{
    using Element = typename List::Element;
    static const ListRow row = {&RowOf<Element>,
                                [](const void * list) { return static_cast<const List *>(list)->GetSize(); },
                                &At<List>,
                                &AsElement<Element>,
                                [](void * list, std::int64_t index, void * element) {
                                    static_cast<List *>(list)->InsertAt(index, static_cast<Element *>(element));
                                },
                                [](void * list, std::int64_t index, void * element) {
                                    static_cast<List *>(list)->SetAt(index, static_cast<Element *>(element));
                                },
                                [](void * list, std::int64_t index) { static_cast<List *>(list)->RemoveAt(index); }};
    return row;
}

template <typename Class, std::size_t index>
void * AddressOf(void * object)
{
    auto & member = static_cast<Class *>(object)->*Get<index>(Fields<Class>::Members).pointer;
    if constexpr (std::is_pointer_v<std::remove_reference_t<decltype(member)>>) {
        return member;
    }
    else {
        return &member;
    }
}

// What the tables say of the attribute that fills a member; null for none.
const AttributeInfo * FillerOf(const ClassInfo & info, std::string_view member)
{
    const auto own = std::find_if(info.attributes.begin(), info.attributes.end(),
                                  [&](const AttributeInfo & attribute) { return attribute.member == member; });
    return own == info.attributes.end() ? nullptr : &*own;
}

bool IsFlag(Reading reading)
{
    return reading == Reading::Flag || reading == Reading::CornerFlag || reading == Reading::ControlFlag;
}

bool IsOuterForm(Reading reading)
{
    return reading == Reading::OuterForm || reading == Reading::RoundOrSquare;
}

std::string SourceOf(const FieldInfo & field, const AttributeInfo * filler)
{
    if (filler == nullptr) {
        return field.element.empty() ? "" : "element " + std::string(field.element);
    }
    std::string word(filler->word);
    if (word.ends_with('=')) {
        word.pop_back();
    }
    return word.append(" of ").append(filler->element);
}

template <typename Held>
void SetTypes(MemberRow & member)
{
    if constexpr (KindOf<Held>() == FieldKind::List) {
        member.list = &RowOfList<Held>();
    }
    else if constexpr (KindOf<Held>() == FieldKind::Part || KindOf<Held>() == FieldKind::Point) {
        member.type = &RowOf<Held>;
    }
}

template <typename Class, std::size_t index>
void AddMember(ClassRow & row, const ClassInfo & info)
{
    using Type = std::remove_cvref_t<decltype(std::declval<Class &>().*Get<index>(Fields<Class>::Members).pointer)>;
    if constexpr (KindOf<Type>() != FieldKind::HostPointer) {
        const FieldInfo & field = info.members[index];
        const AttributeInfo * const filler = FillerOf(info, field.name);
        MemberRow member;
        member.name = field.name;
        member.kind = field.kind;
        member.address = &AddressOf<Class, index>;
        member.source = SourceOf(field, filler);
        SetTypes<std::remove_pointer_t<Type>>(member);
        if (field.kind == FieldKind::Integer) {
            member.isFlag = filler != nullptr && IsFlag(filler->reading);
            member.codes = CodesOf(info.name, field.name, filler != nullptr && IsOuterForm(filler->reading));
        }
        row.members.push_back(std::move(member));
    }
}

template <typename Class, std::size_t... indexes>
void AddMembers(ClassRow & row, std::index_sequence<indexes...> /*indexes*/)
{
    const ClassInfo info = ipc2581::detail::DescribeClass<Class>();
    (AddMember<Class, indexes>(row, info), ...);
}

template <typename Class>
void Destroy(void * object)
{
    auto * const own = static_cast<Class *>(object);
    if constexpr (std::has_virtual_destructor_v<Class>) {
        delete own;
    }
    else {
        // A point, which is of no derived class.
        own->Class::~Class();
        ::operator delete(own);
    }
}

template <typename Class>
ClassRow MakeRow()
{
    ClassRow row;
    row.name = Fields<Class>::Name;
    row.create = []() -> void * { return new Class(); };
    row.destroy = &Destroy<Class>;
    if constexpr (std::is_base_of_v<CIPC2581_DrawObj, Class>) {
        row.asShape = [](void * object) -> CIPC2581_DrawObj * { return static_cast<Class *>(object); };
    }
    AddMembers<Class>(row, std::make_index_sequence<std::remove_cvref_t<decltype(Fields<Class>::Members)>::Size>());
    return row;
}

// The last so many parts of a name that has underscores between them.
std::string LastParts(std::string_view name, int count)
{
    constexpr std::string_view prefix = "CIPC2581_";
    name.remove_prefix(name.starts_with(prefix) ? prefix.size() : 1);
    std::string last;
    for (; count > 0; --count) {
        const std::size_t at = name.rfind('_');
        last.insert(0, at == std::string_view::npos ? name : name.substr(at + 1));
        if (at == std::string_view::npos) {
            break;
        }
        name = name.substr(0, at);
    }
    return last;
}

void GiveShortNames(std::vector<ClassRow> & rows)
{
    for (ClassRow & row : rows) {
        const std::string last = LastParts(row.name, 1);
        const auto others = std::count_if(rows.begin(), rows.end(),
                                          [&](const ClassRow & other) { return LastParts(other.name, 1) == last; });
        row.shortName = others == 1 ? last : LastParts(row.name, 2);
    }
}

template <typename... Own>
std::vector<ClassRow> MakeRows(ClassList<Own...> /*classes*/)
{
    std::vector<ClassRow> rows;
    rows.reserve(sizeof...(Own) + 1);
    (rows.push_back(MakeRow<Own>()), ...);
    rows.push_back(MakeRow<CPointD>());
    GiveShortNames(rows);
    return rows;
}

}  // namespace

const std::vector<ClassRow> & Classes()
{
    static const std::vector<ClassRow> classes = MakeRows(ModelClasses());
    return classes;
}

const ClassRow * FindClass(std::string_view name)
{
    const std::vector<ClassRow> & rows = Classes();
    const auto row = std::find_if(rows.begin(), rows.end(),
                                  [&](const ClassRow & own) { return own.name == name || own.shortName == name; });
    return row == rows.end() ? nullptr : &*row;
}

const MemberRow * FindMember(const ClassRow & type, std::string_view name)
{
    const auto member =
        std::find_if(type.members.begin(), type.members.end(), [&](const MemberRow & own) { return own.name == name; });
    return member == type.members.end() ? nullptr : &*member;
}

}  // namespace ipc2581::python
