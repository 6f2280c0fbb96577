#ifndef IPC2581_FIELDS_H
#define IPC2581_FIELDS_H

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "ipc2581/ipc2581.h"

// What the classes of the model hold, for hosts that walk through any of them: to bind them to another language, to
// count, to compare, to write them in another format. The tables are those that the reader reads with.
namespace ipc2581 {

// What a public member is, judged by its type.
enum class FieldKind {
    Text,         // CString
    Texts,        // CStringArray
    Number,       // double
    Integer,      // int
    LongInteger,  // std::int64_t
    Flag,         // bool
    Point,        // CPointD, or a pointer to one
    Part,         // an object of the model, or a pointer to one, which its owner deletes
    List,         // a list of objects of the model, or a pointer to one
    HostPointer,  // a pointer to an object of the host
};

template <typename... Classes>
struct ClassList {
};

// All classes of the model that have members of their own.
using ModelClasses = ClassList<
    CIPC2581_Parser, CIPC2581_Arc, CIPC2581_Bom, CIPC2581_Bom_BomItem, CIPC2581_Bom_BomItem_RefDes, CIPC2581_Content,
    CIPC2581_Content_DictionaryColor, CIPC2581_Content_DictionaryColor_EntryColor, CIPC2581_Content_DictionaryStandard,
    CIPC2581_Content_DictionaryStandard_EntryStandard, CIPC2581_Content_DictionaryUser,
    CIPC2581_Content_DictionaryUser_EntryUser, CIPC2581_Cutout, CIPC2581_DicDraw_Butterfly, CIPC2581_DicDraw_Circle,
    CIPC2581_DicDraw_Contour, CIPC2581_DicDraw_Cutout, CIPC2581_DicDraw_Diamond, CIPC2581_DicDraw_Donut,
    CIPC2581_DicDraw_Ellipse, CIPC2581_DicDraw_Hexagon, CIPC2581_DicDraw_Moire, CIPC2581_DicDraw_Octagon,
    CIPC2581_DicDraw_Oval, CIPC2581_DicDraw_Polygon, CIPC2581_DicDraw_RectCenter, CIPC2581_DicDraw_RectCham,
    CIPC2581_DicDraw_RectCorner, CIPC2581_DicDraw_RectRound, CIPC2581_DicDraw_Thermal, CIPC2581_DicDraw_Triangle,
    CIPC2581_DictionaryDrawObj, CIPC2581_DrawObj, CIPC2581_Ecad, CIPC2581_Ecad_CadData, CIPC2581_Ecad_CadData_Layer,
    CIPC2581_Ecad_CadData_Stackup, CIPC2581_Ecad_CadData_Stackup_StackupGroup,
    CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer, CIPC2581_Ecad_CadData_Step,
    CIPC2581_Ecad_CadData_Step_Component, CIPC2581_Ecad_CadData_Step_Hole, CIPC2581_Ecad_CadData_Step_LayerFeature,
    CIPC2581_Ecad_CadData_Step_LayerFeature_Set, CIPC2581_Ecad_CadData_Step_LayerFeature_Set_Features,
    CIPC2581_Ecad_CadData_Step_LogicalNet, CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin,
    CIPC2581_Ecad_CadData_Step_Package, CIPC2581_Ecad_CadData_Step_Package_AssemblyDrawing,
    CIPC2581_Ecad_CadData_Step_Package_LandPattern, CIPC2581_Ecad_CadData_Step_Package_Outline,
    CIPC2581_Ecad_CadData_Step_Package_Pin, CIPC2581_Ecad_CadData_Step_Package_SilkScreen,
    CIPC2581_Ecad_CadData_Step_Package_SilkScreen_Target, CIPC2581_Ecad_CadData_Step_Pad,
    CIPC2581_Ecad_CadData_Step_PadStack, CIPC2581_Ecad_CadData_Step_PhyNetGroup,
    CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet, CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint,
    CIPC2581_Ecad_CadData_Step_Profile, CIPC2581_Ecad_CadData_Step_Target, CIPC2581_Ecad_CadHeader,
    CIPC2581_HistoryRecord, CIPC2581_Line, CIPC2581_LineDesc, CIPC2581_LogisticHeader, CIPC2581_Outline, CIPC2581_Point,
    CIPC2581_PolyLine, CIPC2581_PolyStep, CIPC2581_Polygon, CIPC2581_Pt, CIPC2581_Text, CIPC2581_Xform>;

// Those that a list of shapes may hold; an object of none of them is a plain CIPC2581_DrawObj.
using ShapeClasses =
    ClassList<CIPC2581_PolyLine, CIPC2581_Line, CIPC2581_DicDraw_Contour, CIPC2581_Polygon, CIPC2581_Cutout,
              CIPC2581_DicDraw_Butterfly, CIPC2581_DicDraw_Circle, CIPC2581_DicDraw_Diamond, CIPC2581_DicDraw_Donut,
              CIPC2581_DicDraw_Ellipse, CIPC2581_DicDraw_Hexagon, CIPC2581_DicDraw_Moire, CIPC2581_DicDraw_Octagon,
              CIPC2581_DicDraw_Oval, CIPC2581_DicDraw_RectCenter, CIPC2581_DicDraw_RectCham,
              CIPC2581_DicDraw_RectCorner, CIPC2581_DicDraw_RectRound, CIPC2581_DicDraw_Thermal,
              CIPC2581_DicDraw_Triangle, CIPC2581_Arc, CIPC2581_Outline, CIPC2581_Text>;

// Those that a list of the shapes of an older dictionary may hold.
using DictionaryShapeClasses = ClassList<CIPC2581_DicDraw_Polygon, CIPC2581_DicDraw_Cutout>;

namespace detail {

template <typename List>
constexpr bool IsList(...)
{
    return false;
}
template <typename List>
constexpr bool IsList(typename List::Element * /*element*/)
{
    return true;
}

template <typename Type>
concept IsModelClass = requires
{
    Fields<std::remove_cv_t<Type>>::Members;
};

}  // namespace detail

// The kind of a member of the type.
template <typename Type>
constexpr FieldKind KindOf()
{
    using Held = std::remove_cv_t<std::remove_pointer_t<std::remove_cvref_t<Type>>>;
    if constexpr (std::is_same_v<Held, CString>) {
        return FieldKind::Text;
    }
    else if constexpr (std::is_same_v<Held, CStringArray>) {
        return FieldKind::Texts;
    }
    else if constexpr (std::is_same_v<Held, double>) {
        return FieldKind::Number;
    }
    else if constexpr (std::is_same_v<Held, int>) {
        return FieldKind::Integer;
    }
    else if constexpr (std::is_same_v<Held, std::int64_t>) {
        return FieldKind::LongInteger;
    }
    else if constexpr (std::is_same_v<Held, bool>) {
        return FieldKind::Flag;
    }
    else if constexpr (std::is_same_v<Held, CPointD>) {
        return FieldKind::Point;
    }
    else if constexpr (detail::IsList<Held>(nullptr)) {
        return FieldKind::List;
    }
    else if constexpr (detail::IsModelClass<Held>) {
        return FieldKind::Part;
    }
    else {
        static_assert(std::is_pointer_v<std::remove_cvref_t<Type>>, "a public member of no known kind");
        return FieldKind::HostPointer;
    }
}

// Calls visit(member, value) for each public member of the object, in the order of the table: the Member of the table,
// and the member itself, which may be a pointer.
template <typename Object, typename Visit>
void ForEachMember(Object & object, Visit visit)
{
    Apply([&](const auto &... member) { (visit(member, object.*member.pointer), ...); },
          Fields<std::remove_cv_t<Object>>::Members);
}

// Calls visit(object) with the object as one of its own class.
template <typename Base, typename Visit, typename... Classes>
void VisitAs(const Base & object, Visit visit, ClassList<Classes...> /*classes*/)
{
    const bool isFound = ([&] {
        const auto * const own = dynamic_cast<const Classes *>(&object);
        if (own != nullptr) {
            visit(*own);
        }
        return own != nullptr;
    }() || ...);
    if (!isFound) {
        visit(object);
    }
}

// Calls visit(shape) with the shape as one of its own class, or as the base if it is of none of them.
template <typename Visit>
void VisitShape(const CIPC2581_DrawObj & shape, Visit visit)
{
    VisitAs(shape, visit, ShapeClasses());
}
template <typename Visit>
void VisitShape(const CIPC2581_DictionaryDrawObj & shape, Visit visit)
{
    VisitAs(shape, visit, DictionaryShapeClasses());
}

// Walks through an object and all that it holds, in the order of the tables. The visitor is called with
//
//     Value(member, value)    for a text, a list of texts, a number, a flag or a point
//     Enter(member, object)   for a part and for each object of a list, before what it holds,
//     Leave(member, object)   and after it
//
// where an object of a list of shapes comes as one of its own class. Null pointers are left out, and so are pointers of
// the host.
template <typename Object, typename Visitor>
void Walk(const Object & object, Visitor & visitor);

namespace detail {

template <typename Member, typename Object, typename Visitor>
void WalkObject(const Member & member, const Object & object, Visitor & visitor)
{
    const auto walk = [&](const auto & own) {
        visitor.Enter(member, own);
        Walk(own, visitor);
        visitor.Leave(member, own);
    };
    if constexpr (std::is_same_v<Object, CIPC2581_DrawObj> || std::is_same_v<Object, CIPC2581_DictionaryDrawObj>) {
        VisitShape(object, walk);
    }
    else {
        walk(object);
    }
}

template <typename Member, typename Value, typename Visitor>
void WalkValue(const Member & member, const Value & value, Visitor & visitor)
{
    if constexpr (KindOf<Value>() == FieldKind::List) {
        for (std::int64_t i = 0; i < value.GetSize(); ++i) {
            if (value.GetAt(i) != nullptr) {
                WalkObject(member, std::as_const(*value.GetAt(i)), visitor);
            }
        }
    }
    else if constexpr (KindOf<Value>() == FieldKind::Part) {
        WalkObject(member, value, visitor);
    }
    else {
        visitor.Value(member, value);
    }
}

}  // namespace detail

template <typename Object, typename Visitor>
void Walk(const Object & object, Visitor & visitor)
{
    ForEachMember(object, [&](const auto & member, const auto & value) {
        using Type = std::remove_cvref_t<decltype(value)>;
        if constexpr (KindOf<Type>() == FieldKind::HostPointer) {
            return;
        }
        else if constexpr (std::is_pointer_v<Type>) {
            if (value != nullptr) {
                detail::WalkValue(member, std::as_const(*value), visitor);
            }
        }
        else {
            detail::WalkValue(member, value, visitor);
        }
    });
}

// An attribute that gives a value to a member, as data.
struct AttributeInfo {
    std::string_view element;  // the name of the element that has it
    std::string_view word;     // what a token is searched for
    Reading reading;           // how the value is read
    // The names of the members on the way, with dots between them: "Location.X".
    std::string member;

    // Found in longer names and in values too.
    [[nodiscard]] bool IsWide() const { return !word.ends_with('='); }
};

// A public member, as data.
struct FieldInfo {
    std::string_view name;  // as in the class
    FieldKind kind;         // judged by its type
    // Of the objects of a part or a list; empty for a member that holds none.
    std::string_view className;
    // The element that these are read from, if it is one.
    std::string_view element;
};

// A class of the model, as data.
struct ClassInfo {
    std::string_view name;                  // as in the headers
    std::vector<FieldInfo> members;         // in the order of the table
    std::vector<AttributeInfo> attributes;  // element by element, in the order of their tests
};

namespace detail {

template <typename Type>
constexpr std::string_view ClassNameOf()
{
    using Held = std::remove_pointer_t<std::remove_cvref_t<Type>>;
    if constexpr (KindOf<Type>() == FieldKind::List) {
        return ClassNameOf<typename Held::Element>();
    }
    else if constexpr (KindOf<Type>() == FieldKind::Part) {
        return Fields<Held>::Name;
    }
    else {
        return {};
    }
}

// The name of a member of the class.
template <typename Class, typename Pointer>
std::string_view MemberName(Pointer pointer)
{
    std::string_view name;
    const auto compare = [&](const auto & member) {
        if constexpr (std::is_same_v<std::remove_cvref_t<decltype(member.pointer)>, Pointer>) {
            name = member.pointer == pointer ? member.name : name;
        }
    };
    Apply([&](const auto &... member) { (compare(member), ...); }, Fields<Class>::Members);
    return name;
}

template <typename Class, typename Type, typename Base, typename... Steps>
std::string MemberPath(Type Base::*first, Steps... steps)
{
    std::string path(MemberName<Class>(first));
    if constexpr (sizeof...(steps) != 0) {
        path += '.';
        path += MemberPath<std::remove_pointer_t<Type>>(steps...);
    }
    return path;
}

template <typename Class>
ClassInfo DescribeClass()
{
    ClassInfo info = {Fields<Class>::Name, {}, {}};
    const auto addMember = [&]<typename Owner, typename Type>(const Member<Owner, Type> & member) {
        info.members.push_back({member.name, KindOf<Type>(), ClassNameOf<Type>(), member.element});
    };
    const auto addElement = [&](const auto & element) {
        const auto add = [&](const auto & attribute) {
            const std::string path = Apply([](auto... steps) { return MemberPath<Class>(steps...); }, attribute.member);
            info.attributes.push_back({element.name, attribute.word, attribute.reading, path});
        };
        Apply([&](const auto &... attribute) { (add(attribute), ...); }, element.attributes);
    };
    Apply([&](const auto &... member) { (addMember(member), ...); }, Fields<Class>::Members);
    Apply([&](const auto &... element) { (addElement(element), ...); }, Fields<Class>::Elements);
    return info;
}

template <typename... Classes>
std::vector<ClassInfo> DescribeAll(ClassList<Classes...> /*classes*/)
{
    return {DescribeClass<Classes>()...};
}

}  // namespace detail

// The tables of all classes of the model, as data.
inline std::vector<ClassInfo> DescribeClasses()
{
    return detail::DescribeAll(ModelClasses());
}

}  // namespace ipc2581

#endif
