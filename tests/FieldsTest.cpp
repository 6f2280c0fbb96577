#include "ipc2581/fields.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <map>
#include <optional>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/TokenList.h"
#include "tests/document/WholeBoard.h"
#include "tests/support/Files.h"

namespace {

using ipc2581::AttributeInfo;
using ipc2581::ClassInfo;
using ipc2581::ClassList;
using ipc2581::DescribeClasses;
using ipc2581::DictionaryShapeClasses;
using ipc2581::FieldInfo;
using ipc2581::FieldKind;
using ipc2581::Fields;
using ipc2581::ForEachMember;
using ipc2581::KindOf;
using ipc2581::ModelClasses;
using ipc2581::Reading;
using ipc2581::ShapeClasses;
using ipc2581::VisitShape;
using ipc2581::Walk;
using ipc2581::detail::LineCycle;
using ipc2581::detail::ScanAttributes;
using ipc2581::detail::TokenList;
using ipc2581::tests::Bytes;
using ipc2581::tests::Lines;
using ipc2581::tests::Str;
using ipc2581::tests::Tokens;
using ipc2581::tests::WholeBoardBytes;

namespace fs = std::filesystem;

using Component = CIPC2581_Ecad_CadData_Step_Component;
using Hole = CIPC2581_Ecad_CadData_Step_Hole;

// Calls visit with a null pointer to an object of each class of the list.
template <typename... Classes, typename Visit>
void ForEachClass(ClassList<Classes...> /*classes*/, Visit visit)
{
    (visit(static_cast<const Classes *>(nullptr)), ...);
}

template <typename Class, typename... Classes>
constexpr bool IsAmong(ClassList<Classes...> /*classes*/)
{
    return (std::is_same_v<Class, Classes> || ...);
}

template <typename Pointer>
using ClassOf = std::remove_cv_t<std::remove_pointer_t<Pointer>>;

// A value inside an object, with all that is needed to see whether and where it has changed.
struct Leaf {
    std::string path;
    const void * place;
    std::string text;
};

std::string TextOf(const CString & value)
{
    return Str(value);
}
std::string TextOf(const CStringArray & values)
{
    std::string text;
    for (std::int64_t i = 0; i < values.GetSize(); ++i) {
        text.append(Str(values[i])).append("\n");
    }
    return text;
}
template <typename Value>
std::string TextOf(const Value & value)
{
    return std::to_string(value);
}

template <typename Object>
void AddLeaves(const Object & object, const std::string & path, std::vector<Leaf> & leaves);

template <typename Value>
void AddLeavesOf(const Value & value, const std::string & path, std::vector<Leaf> & leaves)
{
    constexpr FieldKind kind = KindOf<Value>();
    if constexpr (kind == FieldKind::Point || kind == FieldKind::Part) {
        AddLeaves(value, path + ".", leaves);
    }
    else if constexpr (kind == FieldKind::List) {
        leaves.push_back({path, &value, std::to_string(value.GetSize())});
        for (std::int64_t i = 0; i < value.GetSize(); ++i) {
            AddLeaves(*value.GetAt(i), path + "[" + std::to_string(i) + "].", leaves);
        }
    }
    else {
        leaves.push_back({path, &value, TextOf(value)});
    }
}

// All values of an object, recursively through what it owns.
template <typename Object>
void AddLeaves(const Object & object, const std::string & path, std::vector<Leaf> & leaves)
{
    ForEachMember(object, [&](const auto & member, const auto & value) {
        using Type = std::remove_cvref_t<decltype(value)>;
        const std::string here = path + std::string(member.name);
        if constexpr (KindOf<Type>() == FieldKind::HostPointer) {
            return;
        }
        else if constexpr (std::is_pointer_v<Type>) {
            ASSERT_NE(value, nullptr) << here;
            AddLeavesOf(*value, here, leaves);
        }
        else {
            AddLeavesOf(value, here, leaves);
        }
    });
}

template <typename Object>
std::vector<Leaf> LeavesOf(const Object & object)
{
    std::vector<Leaf> leaves;
    AddLeaves(object, "", leaves);
    return leaves;
}

// A value of an attribute and what it makes of its member; nothing if it leaves it.
struct Sample {
    std::string_view value;
    std::optional<std::string> text;
};

std::vector<Sample> SamplesOf(Reading reading)
{
    switch (reading) {
    case Reading::Text:
        return {{"V 1", "V 1"}, {"", ""}};
    case Reading::Number:
        return {{"12.5", std::to_string(12.5)}, {"-2e3", std::to_string(-2000.0)}};
    case Reading::Integer:
        return {{"31", "31"}, {"-7.9", "-7"}};
    case Reading::Flag:
        return {{"TRUE", "1"}, {"FALSE", "0"}, {"true", "0"}};
    case Reading::CornerFlag:
        return {{"TURE", "1"}, {"TRUE", {}}};
    case Reading::ControlFlag:
        return {{"\x01", "1"}, {"TRUE", "0"}};
    case Reading::Direction:
        return {{"FALSE", "1"}, {"false", "1"}, {"TRUE", "0"}};
    case Reading::OuterForm:
        return {{"ROUND", "0"}, {"SQUARE", "1"}, {"HEXAGON", "2"}, {"OCTAGON", "3"}, {"round", {}}};
    case Reading::RoundOrSquare:
        return {{"ROUND", "0"}, {"SQUARE", "1"}, {"HEXAGON", {}}, {"OCTAGON", {}}};
    }
    return {};
}

// The member that the steps lead to.
template <typename Object, typename Type, typename Base, typename... Steps>
const void * PlaceOf(const Object & object, Type Base::*first, Steps... steps)
{
    const auto & next = object.*first;
    if constexpr (sizeof...(steps) == 0) {
        return &next;
    }
    else if constexpr (std::is_pointer_v<Type>) {
        return PlaceOf(*next, steps...);
    }
    else {
        return PlaceOf(next, steps...);
    }
}

template <typename Class, std::size_t index>
constexpr auto ElementOf = Get<index>(Fields<Class>::Elements);

template <typename Class>
constexpr std::size_t ElementCount = decltype(Fields<Class>::Elements)::Size;

// The words of an element, in the order of its table.
template <typename Element>
std::vector<std::string_view> WordsOf(const Element & element)
{
    return Apply([](const auto &... attribute) { return std::vector<std::string_view>{attribute.word...}; },
                 element.attributes);
}

// What a line leaves in a new object.
struct Scanned {
    std::vector<Leaf> before;
    std::vector<Leaf> after;
    // Of the members that the attributes of the element fill.
    std::vector<const void *> places;
};

// Scans the line as one of a file or as a list of a host.
template <typename Class, std::size_t element>
Scanned ScanIntoNew(const std::string & line, bool isOfFile)
{
    constexpr const auto & table = ElementOf<Class, element>;
    Class object;
    Scanned scanned;
    scanned.before = LeavesOf(object);
    if (isOfFile) {
        Lines file({line});
        LineCycle cycle(file.File());
        EXPECT_TRUE(cycle.Next());
        ScanAttributes<ElementOf<Class, element>>(cycle.Tokens(), object);
    }
    else {
        Tokens tokens(line);
        ScanAttributes<ElementOf<Class, element>>(TokenList(tokens.List()), object);
    }
    scanned.after = LeavesOf(object);
    const auto add = [&](const auto & attribute) {
        scanned.places.push_back(
            Apply([&object](auto... steps) { return PlaceOf(object, steps...); }, attribute.member));
    };
    Apply([&](const auto &... attribute) { (add(attribute), ...); }, table.attributes);
    return scanned;
}

// An element of a class without their types, which would cost the compiler more than all other tests.
struct TestedElement {
    std::string_view name;
    std::vector<std::string_view> words;
    std::vector<Reading> readings;
    Scanned (*scan)(const std::string & line, bool isOfFile);
};

template <typename Class, std::size_t element>
TestedElement ElementToTest()
{
    constexpr const auto & table = ElementOf<Class, element>;
    const auto readings = [](const auto &... attribute) { return std::vector<Reading>{attribute.reading...}; };
    return {table.name, WordsOf(table), Apply(readings, table.attributes), &ScanIntoNew<Class, element>};
}

// The value of the attribute with the index becomes the text, or stays, and nothing else changes.
void ExpectScan(const TestedElement & element, const std::string & line, std::size_t index,
                const std::optional<std::string> & text)
{
    for (const bool isOfFile : {true, false}) {
        const auto [before, after, attributePlaces] = element.scan(line, isOfFile);
        ASSERT_EQ(after.size(), before.size()) << line;
        int places = 0;
        for (std::size_t i = 0; i < after.size(); ++i) {
            const bool isTarget = after[i].place == attributePlaces[index];
            places += isTarget ? 1 : 0;
            ASSERT_EQ(after[i].path, before[i].path) << line;
            EXPECT_EQ(after[i].text, isTarget ? text.value_or(before[i].text) : before[i].text)
                << line << " " << after[i].path;
        }
        EXPECT_EQ(places, 1) << line;
    }
}

std::string Key(std::string_view word)
{
    return std::string(word.ends_with('=') ? word.substr(0, word.size() - 1) : word);
}

// The attribute itself, and where its word stands inside a longer key.
std::vector<std::string> LinesOf(std::string_view element, std::string_view word, std::string_view value)
{
    const std::string quoted = "=\"" + std::string(value) + "\"";
    const std::string open = "<" + std::string(element) + " ";
    const std::string key = Key(word);
    std::vector<std::string> lines = {open + key + quoted + " >", open + key + quoted + "/>",
                                      open + "note=\"q\" q" + key + quoted + "/>"};
    if (!word.ends_with('=')) {
        lines.push_back(open + key + "q" + quoted + " >");
        lines.push_back(open + "q" + key + "q" + quoted + " note=\"q\"/>");
    }
    return lines;
}

// Checks one attribute. One behind an earlier one with the same word gives its value to the member of that.
void ExpectAttribute(const TestedElement & element, std::size_t index)
{
    const std::string_view word = element.words[index];
    const Reading reading = element.readings[index];
    const auto first =
        static_cast<std::size_t>(std::find(element.words.begin(), element.words.end(), word) - element.words.begin());
    EXPECT_FALSE(word.empty()) << element.name;
    for (const Sample & sample : SamplesOf(reading)) {
        for (const std::string & line : LinesOf(element.name, word, sample.value)) {
            ExpectScan(element, line, first, sample.text);
        }
    }
    if (reading == Reading::Text && !word.ends_with('=') && first == index) {
        const std::string line = "<" + std::string(element.name) + " note=\"" + std::string(word) + "\"/>";
        ExpectScan(element, line, index, std::string(word));
    }
}

void ExpectElement(const TestedElement & element)
{
    for (std::size_t index = 0; index < element.words.size(); ++index) {
        ExpectAttribute(element, index);
    }
}

TEST(FieldTables, EachAttributeGivesToItsMemberAlone)
{
    ForEachClass(ModelClasses(), [](auto pointer) {
        using Class = ClassOf<decltype(pointer)>;
        SCOPED_TRACE(std::string(Fields<Class>::Name));
        [&]<std::size_t... elements>(std::index_sequence<elements...> /*all*/)
        {
            (ExpectElement(ElementToTest<Class, elements>()), ...);
        }
        (std::make_index_sequence<ElementCount<Class>>());
    });
}

TEST(FieldTables, ASecondRowWithTheSameWordGetsNothing)
{
    CIPC2581_Bom bom;
    Tokens tokens("<BomHeader assembly=\"a\" revision=\"1\" >");
    ScanAttributes<Fields<CIPC2581_Bom>::BomHeader>(TokenList(tokens.List()), bom);
    EXPECT_EQ(bom.assembly, "a");
    EXPECT_EQ(bom.m_strHeaderText2, "");
    EXPECT_EQ(bom.m_strHeaderText3, "");
    const std::vector<std::string_view> words = WordsOf(Fields<CIPC2581_Bom>::BomHeader);
    EXPECT_EQ(words, (std::vector<std::string_view>{"assembly", "assembly", "assembly"}));
}

// Where the bytes of an object stand, with what they are aligned to.
struct Place {
    std::size_t offset;
    std::size_t size;
    std::size_t alignment;
    std::string name;
};

template <typename Class>
std::vector<Place> PlacesOf(const Class & object)
{
    const auto * const begin = reinterpret_cast<const char *>(&object);
    std::vector<Place> places;
    const auto add = [&](const auto & part, std::string_view name) {
        using Type = std::remove_cvref_t<decltype(part)>;
        const auto offset = reinterpret_cast<const char *>(&part) - begin;
        places.push_back({static_cast<std::size_t>(offset), sizeof(Type), alignof(Type), std::string(name)});
    };
    if constexpr (std::is_polymorphic_v<Class>) {
        places.push_back({0, sizeof(void *), alignof(void *), "table of operations"});
    }
    if constexpr (std::is_base_of_v<CIPC2581_XmlDataAdd_Function, Class>) {
        static_assert(sizeof(CIPC2581_XmlDataAdd_Function) == sizeof(void *));
        const CIPC2581_XmlDataAdd_Function & base = object;
        if (reinterpret_cast<const char *>(&base) != begin) {
            add(base, "second base");
        }
    }
    ForEachMember(object, [&](const auto & member, const auto & value) { add(value, member.name); });
    std::sort(places.begin(), places.end(), [](const Place & a, const Place & b) { return a.offset < b.offset; });
    return places;
}

std::size_t Aligned(std::size_t offset, std::size_t alignment)
{
    return (offset + alignment - 1) / alignment * alignment;
}

void ExpectBehind(const void *& last, const void * place, std::string_view className, std::string_view member)
{
    EXPECT_LT(last, place) << className << " " << member;
    last = place;
}

// With the names in the order of the headers, this says that each name stands for its own member.
TEST(FieldTables, TheMembersComeInTheOrderOfTheirPlaces)
{
    ForEachClass(ModelClasses(), [](auto pointer) {
        using Class = ClassOf<decltype(pointer)>;
        const Class object;
        const void * last = nullptr;
        ForEachMember(object, [&last](const auto & member, const auto & value) {
            ExpectBehind(last, &value, Fields<Class>::Name, member.name);
        });
    });
}

void ExpectInBoard(std::string_view element, const std::string & board, std::string_view className,
                   std::string_view member)
{
    const std::regex tag("<" + std::string(element) + "[ >]");
    const bool isInBoard = element.empty() || std::regex_search(board, tag);
    EXPECT_TRUE(isInBoard) << className << " " << member << " " << element;
}

TEST(FieldTables, TheElementsOfMembersAreThoseOfABoard)
{
    const std::string board = WholeBoardBytes();
    ForEachClass(ModelClasses(), [&board](auto pointer) {
        using Class = ClassOf<decltype(pointer)>;
        const Class object;
        ForEachMember(object, [&board](const auto & member, const auto & /*value*/) {
            ExpectInBoard(member.element, board, Fields<Class>::Name, member.name);
        });
    });
}

// A member without its row leaves a hole, unless it fits into what alignment leaves anyway; the names in the headers
// tell of such a one.
TEST(FieldTables, TheMembersTileTheirObjects)
{
    ForEachClass(ModelClasses(), [](auto pointer) {
        using Class = ClassOf<decltype(pointer)>;
        SCOPED_TRACE(std::string(Fields<Class>::Name));
        const Class object;
        std::size_t end = 0;
        for (const Place & place : PlacesOf(object)) {
            EXPECT_EQ(place.offset, Aligned(end, place.alignment)) << "in front of " << place.name;
            end = place.offset + place.size;
        }
        EXPECT_EQ(sizeof(Class), Aligned(end, alignof(Class))) << "at the end";
    });
}

// A class as its header has it.
struct HeaderClass {
    std::vector<std::string> bases;
    std::vector<std::string> members;
    int hiddenMembers = 0;
};

using HeaderClasses = std::map<std::string, HeaderClass>;

std::string WithoutComment(const std::string & line)
{
    std::string code = line.substr(0, line.find("//"));
    code.erase(code.find_last_not_of(' ') + 1);
    return code;
}

// Adds a line of a class if it declares a data member.
void AddMember(const std::string & code, bool isPublic, HeaderClass & found)
{
    static const std::regex statement(R"(    (?!using |friend |static |typedef )\w[^(]*;)");
    static const std::regex declaration(
        R"(    (?:const )?[\w:]+(?:<[\w:, *]+>)? [*&]?\s?(\w+)(?: = [^;]+|\{[^;]*\})?;)");
    std::smatch match;
    if (!std::regex_match(code, statement)) {
        return;
    }
    ASSERT_TRUE(std::regex_match(code, match, declaration)) << "a data member in another form: " << code;
    found.hiddenMembers += isPublic ? 0 : 1;
    found.members.push_back(match[1]);
}

void AddClassesOf(const std::string & path, HeaderClasses & classes)
{
    static const std::regex head(R"(class IPC2581_API (\w+)(?: final)?\s*(?::(.*))?\{)");
    static const std::regex base(R"(public (?:ipc2581::detail::)?(\w+))");
    std::istringstream file(Bytes(path));
    HeaderClass * found = nullptr;
    bool isPublic = false;
    for (std::string line; std::getline(file, line);) {
        std::string code = WithoutComment(line);
        if (code.starts_with("class IPC2581_API")) {
            while (code.find_first_of("{;") == std::string::npos && std::getline(file, line)) {
                code += " " + WithoutComment(line);
            }
            std::smatch match;
            ASSERT_TRUE(std::regex_match(code, match, head)) << code;
            found = &classes[match[1]];
            const std::string bases = match[2];
            for (auto it = std::sregex_iterator(bases.begin(), bases.end(), base); it != std::sregex_iterator(); ++it) {
                found->bases.push_back((*it)[1]);
            }
            isPublic = false;
        }
        else if (code == "};") {
            found = nullptr;
        }
        else if (code == "public:" || code == "protected:" || code == "private:") {
            isPublic = code == "public:";
        }
        else if (found != nullptr) {
            AddMember(code, isPublic, *found);
        }
    }
}

HeaderClasses ClassesOfHeaders()
{
    const fs::path library = fs::path(IPC2581_SOURCE_FOLDER) / "ipc2581";
    HeaderClasses classes;
    for (const char * folder : {"draw", "content", "logistics", "cad"}) {
        for (const fs::directory_entry & entry : fs::directory_iterator(library / folder)) {
            if (entry.path().extension() == ".h") {
                AddClassesOf(entry.path().string(), classes);
            }
        }
    }
    AddClassesOf((library / "document/Parser.h").string(), classes);
    return classes;
}

// Those of the bases first.
std::vector<std::string> MembersOf(const HeaderClasses & classes, const std::string & name)
{
    std::vector<std::string> members;
    const auto found = classes.find(name);
    if (found == classes.end()) {
        return members;
    }
    for (const std::string & base : found->second.bases) {
        const std::vector<std::string> ofBase = MembersOf(classes, base);
        members.insert(members.end(), ofBase.begin(), ofBase.end());
    }
    members.insert(members.end(), found->second.members.begin(), found->second.members.end());
    return members;
}

TEST(FieldTables, TheNamesAreThoseOfTheHeaders)
{
    const HeaderClasses classes = ClassesOfHeaders();
    std::set<std::string> names;
    ForEachClass(ModelClasses(), [&](auto pointer) {
        using Class = ClassOf<decltype(pointer)>;
        const std::string name(Fields<Class>::Name);
        ASSERT_TRUE(classes.contains(name)) << name;
        EXPECT_TRUE(names.insert(name).second) << name;
        std::vector<std::string> members;
        Apply([&](const auto &... member) { (members.emplace_back(member.name), ...); }, Fields<Class>::Members);
        EXPECT_EQ(members, MembersOf(classes, name)) << name;
    });
}

// No class has data that the tables could not reach, and each one that has data and is no list is among them.
TEST(FieldTables, NoClassOfTheHeadersIsLeftOut)
{
    std::set<std::string> names;
    ForEachClass(ModelClasses(), [&names](auto pointer) { names.emplace(Fields<ClassOf<decltype(pointer)>>::Name); });
    const HeaderClasses classes = ClassesOfHeaders();
    EXPECT_GT(classes.size(), names.size());
    for (const auto & [name, found] : classes) {
        EXPECT_EQ(found.hiddenMembers, 0) << name;
        const bool isOfModel = name.starts_with("CIPC2581_") && !name.ends_with("Array");
        EXPECT_EQ(names.contains(name), isOfModel) << name;
        EXPECT_TRUE(isOfModel || !name.ends_with("Array") || found.members.empty()) << name;
    }
}

TEST(FieldTables, EveryShapeWithFieldsOfItsOwnIsAShapeClass)
{
    ForEachClass(ModelClasses(), [](auto pointer) {
        using Class = ClassOf<decltype(pointer)>;
        constexpr bool isShape = std::is_base_of_v<CIPC2581_DrawObj, Class> && !std::is_same_v<CIPC2581_DrawObj, Class>;
        constexpr bool isDictionaryShape =
            std::is_base_of_v<CIPC2581_DictionaryDrawObj, Class> && !std::is_same_v<CIPC2581_DictionaryDrawObj, Class>;
        EXPECT_EQ(IsAmong<Class>(ShapeClasses()), isShape) << Fields<Class>::Name;
        EXPECT_EQ(IsAmong<Class>(DictionaryShapeClasses()), isDictionaryShape) << Fields<Class>::Name;
    });
}

TEST(FieldTables, TellTheKindOfAMemberFromItsType)
{
    static_assert(KindOf<CString>() == FieldKind::Text);
    static_assert(KindOf<const CString &>() == FieldKind::Text);
    static_assert(KindOf<CStringArray>() == FieldKind::Texts);
    static_assert(KindOf<double>() == FieldKind::Number);
    static_assert(KindOf<int>() == FieldKind::Integer);
    static_assert(KindOf<std::int64_t>() == FieldKind::LongInteger);
    static_assert(KindOf<bool>() == FieldKind::Flag);
    static_assert(KindOf<CPointD>() == FieldKind::Point);
    static_assert(KindOf<CPointD *>() == FieldKind::Point);
    static_assert(KindOf<Hole>() == FieldKind::Part);
    static_assert(KindOf<CIPC2581_Xform *>() == FieldKind::Part);
    static_assert(KindOf<CIPC2581_DrawObjArray>() == FieldKind::List);
    static_assert(KindOf<CIPC2581_PolyStepArray *>() == FieldKind::List);
    static_assert(KindOf<const CIPC2581_PolyStepArray * const>() == FieldKind::List);
    static_assert(KindOf<CProgressCtrl *>() == FieldKind::HostPointer);
    EXPECT_EQ(decltype(Fields<CPointD>::Members)::Size, 2U);
}

TEST(FieldTables, MembersOfAnObjectComeInTheOrderOfTheTable)
{
    Hole hole;
    std::vector<std::string_view> names;
    ForEachMember(hole, [&names](const auto & member, auto & value) {
        names.push_back(member.name);
        if constexpr (std::is_same_v<decltype(value), CString &>) {
            value = CString("set");
        }
    });
    EXPECT_EQ(names, (std::vector<std::string_view>{"Name", "Diameter", "PlatingStatus", "PlusTol", "MinusTol",
                                                    "Location", "ToLayer", "FromLayer"}));
    EXPECT_EQ(hole.Name, "set");
    EXPECT_EQ(hole.FromLayer, "set");
}

// A call of the visitor of a walk.
struct Event {
    char what;
    std::string_view member;
    const void * place;
    std::string_view className;
    bool operator==(const Event &) const = default;
};

std::ostream & operator<<(std::ostream & out, const Event & event)
{
    return out << event.what << " " << event.member << " " << event.className << " " << event.place;
}

struct Recorder {
    template <typename Member, typename Type>
    void Value(const Member & member, const Type & value)
    {
        events.push_back({'V', member.name, &value, {}});
    }
    template <typename Member, typename Object>
    void Enter(const Member & member, const Object & object)
    {
        events.push_back({'E', member.name, &object, Fields<Object>::Name});
    }
    template <typename Member, typename Object>
    void Leave(const Member & member, const Object & object)
    {
        events.push_back({'L', member.name, &object, Fields<Object>::Name});
    }

    std::vector<Event> events;
};

// Fills every list of an object, and of all objects that it so gets, with two objects and a null between them; the
// first list of shapes on the way down with one of each class. Remembers the class of each object of a list.
class Filler {
public:
    template <typename Object>
    void Fill(Object & object)
    {
        ForEachMember(object, [&](const auto & /*member*/, auto & value) {
            using Type = std::remove_cvref_t<decltype(value)>;
            constexpr FieldKind kind = KindOf<Type>();
            if constexpr (kind == FieldKind::List || kind == FieldKind::Part) {
                if constexpr (std::is_pointer_v<Type>) {
                    FillValue(*value);
                }
                else {
                    FillValue(value);
                }
            }
            else if constexpr (std::is_same_v<Type, CProgressCtrl *>) {
                value = &m_bar;
            }
        });
    }
    std::string_view ClassNameOf(const void * object) const { return m_classNames.at(object); }

private:
    template <typename Value>
    void FillValue(Value & value)
    {
        if constexpr (KindOf<Value>() == FieldKind::List) {
            FillList(value);
        }
        else {
            Fill(value);
        }
    }
    template <typename List>
    void FillList(List & list)
    {
        using Element = std::remove_cv_t<typename List::Element>;
        if constexpr (std::is_same_v<Element, CIPC2581_DrawObj>) {
            FillShapes(list);
        }
        else {
            Add<Element>(list);
            list.Add(nullptr);
            Add<Element>(list);
        }
    }
    void FillShapes(CIPC2581_DrawObjArray & list)
    {
        const bool isInside = m_isInsideShapes;
        m_isInsideShapes = true;
        if (isInside) {
            Add<CIPC2581_Line>(list);
        }
        else {
            ForEachClass(ShapeClasses(), [this, &list](auto pointer) { Add<ClassOf<decltype(pointer)>>(list); });
        }
        list.Add(nullptr);
        Add<CIPC2581_DrawObj>(list);
        m_isInsideShapes = isInside;
    }
    template <typename Object, typename List>
    void Add(List & list)
    {
        auto * const object = new Object();
        list.Add(object);
        m_classNames[object] = Fields<Object>::Name;
        Fill(*object);
    }

    std::map<const void *, std::string_view> m_classNames;
    bool m_isInsideShapes = false;
    CProgressCtrl m_bar;
};

// The calls that a walk should make, told once more: the class of a shape is the one that it was made of.
class Expected {
public:
    explicit Expected(const Filler & filler) : m_filler(filler) {}

    template <typename Object>
    void Add(const Object & object)
    {
        ForEachMember(object, [&](const auto & member, const auto & value) {
            using Type = std::remove_cvref_t<decltype(value)>;
            if constexpr (KindOf<Type>() == FieldKind::HostPointer) {
                EXPECT_NE(value, nullptr) << member.name;
            }
            else if constexpr (std::is_pointer_v<Type>) {
                AddValue(member.name, *value);
            }
            else {
                AddValue(member.name, value);
            }
        });
    }

    std::vector<Event> events;

private:
    template <typename Value>
    void AddValue(std::string_view name, const Value & value)
    {
        if constexpr (KindOf<Value>() == FieldKind::List) {
            for (std::int64_t i = 0; i < value.GetSize(); ++i) {
                if (value.GetAt(i) != nullptr) {
                    AddElement(name, *value.GetAt(i));
                }
            }
        }
        else if constexpr (KindOf<Value>() == FieldKind::Part) {
            AddObject(name, value);
        }
        else {
            events.push_back({'V', name, &value, {}});
        }
    }
    template <typename Object>
    void AddElement(std::string_view name, const Object & object)
    {
        const std::string_view className = m_filler.ClassNameOf(&object);
        bool isAdded = false;
        if constexpr (std::is_same_v<Object, CIPC2581_DrawObj>) {
            ForEachClass(ShapeClasses(), [&](auto pointer) {
                using Class = ClassOf<decltype(pointer)>;
                if (Fields<Class>::Name == className) {
                    AddObject(name, static_cast<const Class &>(object));
                    isAdded = true;
                }
            });
        }
        if (!isAdded) {
            EXPECT_EQ(className, Fields<Object>::Name);
            AddObject(name, object);
        }
    }
    template <typename Object>
    void AddObject(std::string_view name, const Object & object)
    {
        events.push_back({'E', name, &object, Fields<Object>::Name});
        Add(object);
        events.push_back({'L', name, &object, Fields<Object>::Name});
    }

    const Filler & m_filler;
};

TEST(FieldWalk, VisitsAllOfAFilledModelInOrder)
{
    Filler filler;
    CIPC2581_Parser root;
    filler.Fill(root);
    Expected expected(filler);
    expected.Add(root);
    Recorder recorder;
    Walk(root, recorder);
    ASSERT_EQ(recorder.events.size(), expected.events.size());
    EXPECT_EQ(recorder.events, expected.events);

    std::map<std::string_view, int> entered;
    int depth = 0;
    for (const Event & event : recorder.events) {
        depth += event.what == 'E' ? 1 : event.what == 'L' ? -1 : 0;
        ASSERT_GE(depth, 0);
        entered[event.className] += event.what == 'E' ? 1 : 0;
        EXPECT_NE(event.member, "Progress");
        EXPECT_NE(event.member, "m_pProgressCtrl");
    }
    EXPECT_EQ(depth, 0);
    EXPECT_EQ(entered["CIPC2581_Ecad_CadData_Layer"], 2);
    EXPECT_EQ(entered["CIPC2581_Ecad_CadData_Step_Package_Pin"], 4);
    EXPECT_EQ(entered["CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint"], 4);
    ForEachClass(ShapeClasses(), [&entered](auto pointer) {
        const std::string_view name = Fields<ClassOf<decltype(pointer)>>::Name;
        EXPECT_GT(entered[name], 0) << name;
    });
}

std::vector<std::string> Said(const std::vector<Event> & events)
{
    std::vector<std::string> said;
    said.reserve(events.size());
    for (const Event & event : events) {
        said.push_back(std::string(1, event.what) + " " + std::string(event.member));
    }
    return said;
}

TEST(FieldWalk, LeavesOutWhatANullPointerShouldLeadTo)
{
    Component component;
    Recorder whole;
    Walk(component, whole);
    EXPECT_EQ(Said(whole.events),
              (std::vector<std::string>{"V RefDes", "V PackageRef", "V Part", "V LayerRef", "V MountType", "V Spare",
                                        "V Height", "V Standoff", "E Xform", "V XOffset", "V YOffset", "V Rotation",
                                        "V Mirror", "V Scale", "L Xform", "V Location"}));
    EXPECT_EQ(whole.events.back().place, &component.Location);

    CIPC2581_Xform * const kept = std::exchange(component.Xform, nullptr);
    Recorder rest;
    Walk(component, rest);
    component.Xform = kept;
    EXPECT_EQ(Said(rest.events),
              (std::vector<std::string>{"V RefDes", "V PackageRef", "V Part", "V LayerRef", "V MountType", "V Spare",
                                        "V Height", "V Standoff", "V Location"}));

    CIPC2581_DicDraw_Contour contour;
    CIPC2581_DrawObjArray * const shapes = std::exchange(contour.DicDrawObjArray, nullptr);
    Recorder noList;
    Walk(contour, noList);
    contour.DicDrawObjArray = shapes;
    EXPECT_EQ(Said(noList.events), std::vector<std::string>{"V DrawType"});

    CIPC2581_Point point;
    CPointD * const place = std::exchange(point.Point, nullptr);
    Recorder noPoint;
    Walk(point, noPoint);
    point.Point = place;
    EXPECT_EQ(Said(noPoint.events), std::vector<std::string>{});
}

// Shapes of a host, which the tables do not know.
class HostShape : public CIPC2581_DrawObj {};
class HostLine : public CIPC2581_Line {};

// The name of the class that a shape comes as.
template <typename Shape>
std::string_view VisitedAs(const Shape & shape)
{
    std::string_view name;
    int calls = 0;
    VisitShape(shape, [&](const auto & own) {
        name = Fields<std::remove_cvref_t<decltype(own)>>::Name;
        ++calls;
        EXPECT_EQ(static_cast<const Shape *>(&own), &shape);
    });
    EXPECT_EQ(calls, 1);
    return name;
}

TEST(FieldWalk, AShapeComesAsOneOfItsOwnClass)
{
    ForEachClass(ShapeClasses(), [](auto pointer) {
        using Class = ClassOf<decltype(pointer)>;
        const Class shape;
        EXPECT_EQ(VisitedAs<CIPC2581_DrawObj>(shape), Fields<Class>::Name);
    });
    ForEachClass(DictionaryShapeClasses(), [](auto pointer) {
        using Class = ClassOf<decltype(pointer)>;
        const Class shape;
        EXPECT_EQ(VisitedAs<CIPC2581_DictionaryDrawObj>(shape), Fields<Class>::Name);
    });
}

TEST(FieldWalk, AnyOtherShapeComesAsThatBaseOfItThatTheTablesKnow)
{
    EXPECT_EQ(VisitedAs(CIPC2581_DrawObj()), "CIPC2581_DrawObj");
    EXPECT_EQ(VisitedAs(CIPC2581_DictionaryDrawObj()), "CIPC2581_DictionaryDrawObj");
    EXPECT_EQ(VisitedAs<CIPC2581_DrawObj>(HostShape()), "CIPC2581_DrawObj");
    EXPECT_EQ(VisitedAs<CIPC2581_DrawObj>(HostLine()), "CIPC2581_Line");
    EXPECT_EQ(VisitedAs<CIPC2581_DrawObj>(CIPC2581_CutoutArray()), "CIPC2581_DrawObj");
}

// The name of a class of the model or of a list of such objects; empty for anything else.
template <typename Type>
std::string_view HeldClass()
{
    using Held = std::remove_pointer_t<Type>;
    if constexpr (KindOf<Type>() == FieldKind::List) {
        return Fields<typename Held::Element>::Name;
    }
    else if constexpr (KindOf<Type>() == FieldKind::Part) {
        return Fields<Held>::Name;
    }
    else {
        return {};
    }
}

void ExpectField(const ClassInfo & info, std::size_t at, const FieldInfo & expected)
{
    ASSERT_LT(at, info.members.size());
    const FieldInfo & told = info.members[at];
    EXPECT_EQ(told.name, expected.name);
    EXPECT_EQ(told.kind, expected.kind) << told.name;
    EXPECT_EQ(told.className, expected.className) << told.name;
    EXPECT_EQ(told.element, expected.element) << told.name;
}

void ExpectAttribute(const ClassInfo & info, std::size_t at, const AttributeInfo & expected)
{
    ASSERT_LT(at, info.attributes.size());
    const AttributeInfo & told = info.attributes[at];
    EXPECT_EQ(told.element, expected.element);
    EXPECT_EQ(told.word, expected.word);
    EXPECT_EQ(told.reading, expected.reading);
    EXPECT_EQ(told.member, expected.member) << told.word;
    EXPECT_EQ(told.IsWide(), told.word.find('=') == std::string_view::npos) << told.word;
}

std::string PathOf(const void * place, const std::vector<Leaf> & leaves)
{
    const auto leaf =
        std::find_if(leaves.begin(), leaves.end(), [place](const Leaf & any) { return any.place == place; });
    return leaf == leaves.end() ? "nowhere" : leaf->path;
}

template <typename Class, typename Element>
void ExpectAttributes(const Element & element, const ClassInfo & info, std::size_t & at)
{
    const Class object;
    const std::vector<Leaf> leaves = LeavesOf(object);
    const auto expect = [&](const auto & attribute) {
        const void * const place =
            Apply([&object](auto... steps) { return PlaceOf(object, steps...); }, attribute.member);
        ExpectAttribute(info, at++, {element.name, attribute.word, attribute.reading, PathOf(place, leaves)});
    };
    Apply([&](const auto &... attribute) { (expect(attribute), ...); }, element.attributes);
}

TEST(FieldDescriptions, SayWhatTheTablesSay)
{
    const std::vector<ClassInfo> classes = DescribeClasses();
    std::size_t index = 0;
    ForEachClass(ModelClasses(), [&](auto pointer) {
        using Class = ClassOf<decltype(pointer)>;
        ASSERT_LT(index, classes.size());
        const ClassInfo & info = classes[index++];
        SCOPED_TRACE(std::string(Fields<Class>::Name));
        EXPECT_EQ(info.name, Fields<Class>::Name);
        std::size_t at = 0;
        const Class object;
        ForEachMember(object, [&](const auto & member, const auto & value) {
            using Type = std::remove_cvref_t<decltype(value)>;
            ExpectField(info, at++, {member.name, KindOf<Type>(), HeldClass<Type>(), member.element});
        });
        EXPECT_EQ(at, info.members.size());
        at = 0;
        Apply([&](const auto &... element) { (ExpectAttributes<Class>(element, info, at), ...); },
              Fields<Class>::Elements);
        EXPECT_EQ(at, info.attributes.size());
    });
    EXPECT_EQ(index, classes.size());
}

const ClassInfo & Described(const std::vector<ClassInfo> & classes, std::string_view name)
{
    const auto found =
        std::find_if(classes.begin(), classes.end(), [name](const ClassInfo & info) { return info.name == name; });
    EXPECT_NE(found, classes.end()) << name;
    return found == classes.end() ? classes.front() : *found;
}

TEST(FieldDescriptions, TellPathsAndWideWords)
{
    const std::vector<ClassInfo> classes = DescribeClasses();
    struct Row {
        std::string_view className;
        std::string_view element;
        std::string_view word;
        Reading reading;
        std::string_view member;
        bool isWide;
    };
    const std::vector<Row> rows = {
        {"CIPC2581_Ecad_CadData_Step_Component", "Location", "x=", Reading::Number, "Location.X", false},
        {"CIPC2581_Ecad_CadData_Step_Component", "Component", "refDes=", Reading::Text, "RefDes", false},
        {"CIPC2581_Arc", "Arc", "endX=", Reading::Number, "EndPoint.Point.Y", false},
        {"CIPC2581_Arc", "Arc", "clockwise=", Reading::ControlFlag, "Clockwise", false},
        {"CIPC2581_PolyStep", "PolyStepCurve", "centerY=", Reading::Number, "CenterPoint.Point.Y", false},
        {"CIPC2581_DicDraw_Diamond", "Diamond", "width", Reading::Number, "Width", true},
        {"CIPC2581_DicDraw_Donut", "Donut", "shape", Reading::OuterForm, "Shape", true},
        {"CIPC2581_DicDraw_RectCham", "RectCham", "upperLeft", Reading::CornerFlag, "UpperLeft", true},
        {"CIPC2581_Bom", "BomHeader", "assembly", Reading::Text, "assembly", true},
        {"CIPC2581_Ecad_CadData_Step_Hole", "LayerHole", "y=", Reading::Number, "Location.Y", false},
    };
    for (const Row & row : rows) {
        const ClassInfo & info = Described(classes, row.className);
        const auto found = std::find_if(info.attributes.begin(), info.attributes.end(), [&row](const auto & any) {
            return any.element == row.element && any.word == row.word;
        });
        ASSERT_NE(found, info.attributes.end()) << row.element << " " << row.word;
        EXPECT_EQ(found->reading, row.reading) << row.element << " " << row.word;
        EXPECT_EQ(found->member, row.member) << row.element << " " << row.word;
        EXPECT_EQ(found->IsWide(), row.isWide) << row.element << " " << row.word;
    }
}

TEST(FieldDescriptions, TellKindsAndClasses)
{
    const std::vector<ClassInfo> classes = DescribeClasses();
    struct Row {
        std::string_view className;
        std::string_view member;
        FieldKind kind;
        std::string_view heldClass;
        std::string_view element;
    };
    const std::vector<Row> rows = {
        {"CIPC2581_Ecad_CadData_Step", "ComponentArray", FieldKind::List, "CIPC2581_Ecad_CadData_Step_Component",
         "Component"},
        {"CIPC2581_Ecad_CadData_Step", "Progress", FieldKind::HostPointer, "", ""},
        {"CIPC2581_Ecad_CadData_Step", "Datum", FieldKind::Point, "", ""},
        {"CIPC2581_Ecad_CadData_Step_Component", "Spare", FieldKind::LongInteger, "", ""},
        {"CIPC2581_Ecad_CadData_Step_Component", "Xform", FieldKind::Part, "CIPC2581_Xform", "Xform"},
        {"CIPC2581_Content", "StepRef", FieldKind::Texts, "", "StepRef"},
        {"CIPC2581_Bom_BomItem_RefDes", "populate", FieldKind::Flag, "", ""},
        {"CIPC2581_DicDraw_Contour", "DicDrawObjArray", FieldKind::List, "CIPC2581_DrawObj", ""},
        {"CIPC2581_Point", "Point", FieldKind::Point, "", ""},
        {"CIPC2581_Parser", "m_Ecad", FieldKind::Part, "CIPC2581_Ecad", "Ecad"},
    };
    for (const Row & row : rows) {
        const ClassInfo & info = Described(classes, row.className);
        const auto found = std::find_if(info.members.begin(), info.members.end(),
                                        [&row](const FieldInfo & any) { return any.name == row.member; });
        ASSERT_NE(found, info.members.end()) << row.member;
        EXPECT_EQ(found->kind, row.kind) << row.member;
        EXPECT_EQ(found->className, row.heldClass) << row.member;
        EXPECT_EQ(found->element, row.element) << row.member;
    }
}

}  // namespace
