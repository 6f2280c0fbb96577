#include "ipc2581/content/EntryStandard.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/content/DicDraw.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

using Entry = CIPC2581_Content_DictionaryStandard_EntryStandard;
using Array = CIPC2581_Content_DictionaryStandard_EntryStandardArray;
using Shape = CIPC2581_DrawObj;
using Circle = CIPC2581_DicDraw_Circle;
using Types = std::vector<int>;

template <typename Class>
bool IsOf(const Shape & shape)
{
    return dynamic_cast<const Class *>(&shape) != nullptr;
}

struct Row {
    std::string name;
    int code;
    bool (*isOf)(const Shape &);
};

// The names in the order in which they are looked for.
const std::vector<Row> & Rows()
{
    static const std::vector<Row> rows = {
        {"Butterfly", 1, &IsOf<CIPC2581_DicDraw_Butterfly>},
        {"Circle", 2, &IsOf<CIPC2581_DicDraw_Circle>},
        {"Contour", 3, &IsOf<CIPC2581_DicDraw_Contour>},
        {"Diamond", 4, &IsOf<CIPC2581_DicDraw_Diamond>},
        {"Donut", 5, &IsOf<CIPC2581_DicDraw_Donut>},
        {"Ellipse", 6, &IsOf<CIPC2581_DicDraw_Ellipse>},
        {"Hexagon", 7, &IsOf<CIPC2581_DicDraw_Hexagon>},
        {"Moire", 8, &IsOf<CIPC2581_DicDraw_Moire>},
        {"Octagon", 9, &IsOf<CIPC2581_DicDraw_Octagon>},
        {"Oval", 10, &IsOf<CIPC2581_DicDraw_Oval>},
        {"RectCenter", 11, &IsOf<CIPC2581_DicDraw_RectCenter>},
        {"RectCham", 12, &IsOf<CIPC2581_DicDraw_RectCham>},
        {"RectCorner", 13, &IsOf<CIPC2581_DicDraw_RectCorner>},
        {"RectRound", 14, &IsOf<CIPC2581_DicDraw_RectRound>},
        {"Thermal", 15, &IsOf<CIPC2581_DicDraw_Thermal>},
        {"Triangle", 16, &IsOf<CIPC2581_DicDraw_Triangle>},
    };
    return rows;
}

Types TypesOf(const Entry & entry)
{
    Types types;
    for (std::int64_t i = 0; i < entry.DrawArray->GetSize(); ++i) {
        types.push_back(entry.DrawArray->GetAt(i)->GetDrawType());
    }
    return types;
}

// The draw types that a new entry holds after it has read these lines and what closes it.
Types Read(std::initializer_list<std::string_view> lines)
{
    std::string bytes;
    for (const std::string_view line : lines) {
        bytes.append(line).append("\n");
    }
    Lines file(bytes + "</EntryStandard>\n<Next/>\n");
    Entry entry;
    EXPECT_EQ(entry.Import(file), 1);
    EXPECT_EQ(file.Rest(), Texts({"<Next/>"}));
    return TypesOf(entry);
}

std::unique_ptr<Entry> NewEntry(const char * id, std::initializer_list<double> diameters = {})
{
    auto entry = std::make_unique<Entry>();
    entry->EntryStandardId = id;
    for (const double diameter : diameters) {
        auto circle = std::make_unique<Circle>();
        circle->Diameter = diameter;
        entry->DrawArray->Add(circle.release());
    }
    return entry;
}

TEST(Content_DictionaryStandard_EntryStandard, StartsEmpty)
{
    Entry entry;
    EXPECT_EQ(entry.EntryStandardId, "");
    ASSERT_NE(entry.DrawArray, nullptr);
    EXPECT_TRUE(entry.DrawArray->IsEmpty());
    EXPECT_EQ(entry.GetDrawArray(), entry.DrawArray);
    EXPECT_LT(static_cast<void *>(&entry.EntryStandardId), static_cast<void *>(&entry.DrawArray));
    EXPECT_TRUE((std::is_base_of_v<CIPC2581_XmlDataAdd_Function, Entry>));
}

TEST(Content_DictionaryStandard_EntryStandard, HoldsItsOperationsInOrder)
{
    EXPECT_EQ(Slot(&Entry::clone), 2U);
    EXPECT_EQ(Slot(&Entry::Import), 3U);
    EXPECT_EQ(Slot(&Entry::Export), 4U);
}

TEST(Content_DictionaryStandard_EntryStandard, GivesAndTakesItsId)
{
    Entry entry;
    entry.SetEntryStandardId("A");
    EXPECT_EQ(entry.EntryStandardId, "A");
    entry.EntryStandardId = "B";
    EXPECT_EQ(entry.GetEntryStandardId(), "B");
}

TEST(Content_DictionaryStandard_EntryStandard, MakesTheShapeThatALineNames)
{
    for (const Row & row : Rows()) {
        Lines lines({"   <" + row.name + R"( x="1">)", "</Contour>", "</EntryStandard>"});
        Entry entry;
        EXPECT_EQ(entry.Import(lines), 1);
        ASSERT_EQ(TypesOf(entry), Types{row.code}) << row.name;
        const Shape & shape = *entry.DrawArray->GetAt(0);
        EXPECT_TRUE(row.isOf(shape)) << row.name;
        EXPECT_EQ(lines.Rest(), Texts()) << row.name;
    }
}

TEST(Content_DictionaryStandard_EntryStandard, MakesTheShapeAlsoWithoutABlankOnTheLine)
{
    for (const Row & row : Rows()) {
        EXPECT_EQ(Read({"<" + row.name + ">", "</Contour>"}), Types{row.code}) << row.name;
    }
}

TEST(Content_DictionaryStandard_EntryStandard, TakesTheEarlierNameOfALineThatHoldsTwo)
{
    for (std::size_t first = 0; first < Rows().size(); ++first) {
        for (std::size_t second = first + 1; second < Rows().size(); ++second) {
            const std::string & a = Rows()[first].name;
            const std::string & b = Rows()[second].name;
            EXPECT_EQ(Read({"<" + b + R"( x=")" + a + R"(">)", "</Contour>"}), Types{Rows()[first].code}) << a << b;
            EXPECT_EQ(Read({"<" + a + b + ">", "</Contour>"}), Types{Rows()[first].code}) << a << b;
        }
    }
}

TEST(Content_DictionaryStandard_EntryStandard, MakesTheFirstOfTwoElementsOfOneLineByItsOwnOrder)
{
    EXPECT_EQ(Read({R"(<Circle diameter="1"/><Oval width="2" height="1"/>)"}), Types{2});
    EXPECT_EQ(Read({R"(<Oval width="2" height="1"/><Circle diameter="1"/>)"}), Types{2});
}

TEST(Content_DictionaryStandard_EntryStandard, LooksForAShapeBeforeItsOwnEnd)
{
    for (const Row & row : Rows()) {
        if (row.name != "Contour") {
            EXPECT_EQ(Read({"<" + row.name + "></EntryStandard>", "<Oval/>"}), (Types{row.code, 10})) << row.name;
        }
    }
}

TEST(Content_DictionaryStandard_EntryStandard, AsksAContourAloneForItsSlash)
{
    for (const Row & row : Rows()) {
        const Types expected = row.name == "Contour" ? Types{} : Types{row.code};
        EXPECT_EQ(Read({"</" + row.name + ">"}), expected) << row.name;
        EXPECT_EQ(Read({"<" + row.name + "/>"}), expected) << row.name;
        EXPECT_EQ(Read({"<" + row.name + R"( x="1" />)"}), expected) << row.name;
    }
}

TEST(Content_DictionaryStandard_EntryStandard, LetsAContourWithASlashFallThrough)
{
    EXPECT_EQ(Read({R"(<Contour x="Oval"/>)", R"(<Contour a="x/y">)"}), Types{10});
    EXPECT_EQ(Read({"<Contour></Circle>"}), Types{2});
    Lines lines({R"(</EntryStandard x="Contour">)", "<Oval/>"});
    Entry entry;
    EXPECT_EQ(entry.Import(lines), 1);
    EXPECT_EQ(TypesOf(entry), Types{});
    EXPECT_EQ(lines.Rest(), Texts({"<Oval/>"}));
}

TEST(Content_DictionaryStandard_EntryStandard, FindsANameAnywhereOnTheLine)
{
    Lines lines(
        {R"(<LineDesc note="a Circle diameter=9" more="1"/>)", "Hexagon", "<!-- MoireX -->", "</EntryStandard>"});
    Entry entry;
    EXPECT_EQ(entry.Import(lines), 1);
    EXPECT_EQ(TypesOf(entry), (Types{2, 7, 8}));
    EXPECT_EQ(Read({R"(<x y="1" z="Circle"/>)"}), Types{2});
}

TEST(Content_DictionaryStandard_EntryStandard, TellsCapitalsApart)
{
    EXPECT_EQ(Read({R"(<circle diameter="1"/>)", "<CIRCLE/>", "<rectcenter/>", "</entryStandard>"}), Types{});
}

TEST(Content_DictionaryStandard_EntryStandard, HandsTheTokensOfTheLineToTheShape)
{
    Lines lines({R"(  <Oval width="1.5" height="2"/>)", "<Circle\tdiameter=\"2\">", "</Circle>", "</EntryStandard>"});
    Entry entry;
    EXPECT_EQ(entry.Import(lines), 1);
    ASSERT_EQ(TypesOf(entry), (Types{10, 2, 2}));
    EXPECT_EQ(dynamic_cast<CIPC2581_DicDraw_Oval &>(*entry.DrawArray->GetAt(0)).Width, 1.5);
    EXPECT_EQ(dynamic_cast<CIPC2581_DicDraw_Oval &>(*entry.DrawArray->GetAt(0)).Height, 2);
    EXPECT_EQ(dynamic_cast<Circle &>(*entry.DrawArray->GetAt(1)).Diameter, 2);
    EXPECT_EQ(dynamic_cast<Circle &>(*entry.DrawArray->GetAt(2)).Diameter, 0);
}

TEST(Content_DictionaryStandard_EntryStandard, LetsAContourReadItsOwnLines)
{
    Lines lines({"<Contour>", "<Polygon>", R"(<PolyBegin x="1" y="2"/>)", "</Polygon>", "<Cutout>", "</Cutout>",
                 "<Circle/>", "</Contour>", "<Oval/>", "</EntryStandard>"});
    Entry entry;
    EXPECT_EQ(entry.Import(lines), 1);
    ASSERT_EQ(TypesOf(entry), (Types{3, 10}));
    const auto & contour = dynamic_cast<CIPC2581_DicDraw_Contour &>(*entry.DrawArray->GetAt(0));
    EXPECT_EQ(contour.DicDrawObjArray->GetSize(), 2);
}

TEST(Content_DictionaryStandard_EntryStandard, PassesOverOtherLines)
{
    EXPECT_EQ(Read({"<Polygon>", R"(<PolyBegin x="1" y="2"/>)", "</Polygon>", "<Cutout>", "</Cutout>",
                    R"(<LineDesc lineEnd="ROUND"/>)", R"(<EntryStandard id="B">)", "</DictionaryStandard>"}),
              Types{});
}

TEST(Content_DictionaryStandard_EntryStandard, PassesOverEmptyLinesAndBlanks)
{
    EXPECT_EQ(Read({"", "   ", "\t", "<Oval/>"}), Types{10});
}

TEST(Content_DictionaryStandard_EntryStandard, EndsAtItsClosingTagAnywhereOnTheLine)
{
    for (const char * end : {"</EntryStandard>", "  </EntryStandard >", R"(<x y="1" z="/EntryStandard">)"}) {
        Lines lines({"<Oval/>", end, "<Circle/>"});
        Entry entry;
        EXPECT_EQ(entry.Import(lines), 1);
        EXPECT_EQ(TypesOf(entry), Types{10}) << end;
        EXPECT_EQ(lines.Rest(), Texts({"<Circle/>"})) << end;
    }
}

TEST(Content_DictionaryStandard_EntryStandard, EndsQuietlyAtTheEndOfTheFile)
{
    Lines lines({"<Oval/>", "<Contour>", "<Polygon>"});
    Entry entry;
    EXPECT_EQ(entry.Import(lines), 1);
    EXPECT_EQ(TypesOf(entry), (Types{10, 3}));
}

TEST(Content_DictionaryStandard_EntryStandard, AddsToTheShapesThatItHas)
{
    const std::unique_ptr<Entry> entry = NewEntry("A", {1});
    Lines lines({"<Oval/>", "</EntryStandard>"});
    EXPECT_EQ(entry->Import(lines), 1);
    EXPECT_EQ(TypesOf(*entry), (Types{2, 10}));
    EXPECT_EQ(entry->EntryStandardId, "A");
}

TEST(Content_DictionaryStandard_EntryStandard, LosesTheShapeInWhichAnExceptionPasses)
{
    for (const char * end : {"<Circle diameter=\"1\n", "<Contour>\n<Polygon>\n \n", "<Contour>\n \n"}) {
        Lines lines(std::string("<Oval/>\n") + end);
        Entry entry;
        EXPECT_THROW(entry.Import(lines), CInvalidArgException);
        EXPECT_EQ(TypesOf(entry), Types{10});
    }
}

TEST(Content_DictionaryStandard_EntryStandard, WritesItsShapesOneLevelDeeper)
{
    const std::unique_ptr<Entry> entry = NewEntry("A&B", {1, 2});
    EXPECT_EQ(Exported(*entry), (Export{1, Below(R"(
   <EntryStandard id="A&B">
      <Circle diameter="1.000000" />
      <Circle diameter="2.000000" />
   </EntryStandard>
)")}));
    EXPECT_EQ(Exported(*entry, 2), (Export{1, Below(R"(
         <EntryStandard id="A&B">
            <Circle diameter="1.000000" />
            <Circle diameter="2.000000" />
         </EntryStandard>
)")}));
}

TEST(Content_DictionaryStandard_EntryStandard, WritesTwoLinesWithoutShapes)
{
    Entry entry;
    EXPECT_EQ(Exported(entry), (Export{1, Joined({R"(   <EntryStandard id="">)", "   </EntryStandard>"})}));
}

TEST(Content_DictionaryStandard_EntryStandard, StopsAtAShapeThatCannotBeWritten)
{
    const std::unique_ptr<Entry> entry = NewEntry("A", {1});
    entry->DrawArray->Add(new Shape);
    EXPECT_EQ(Exported(*entry),
              (Export{0, Joined({R"(   <EntryStandard id="A">)", R"(      <Circle diameter="1.000000" />)"})}));
}

TEST(Content_DictionaryStandard_EntryStandard, CopiesHaveShapesOfTheirOwn)
{
    const std::unique_ptr<Entry> source = NewEntry("A", {1, 2});
    Entry constructed(*source);
    const std::unique_ptr<Entry> assigned = NewEntry("B", {3});
    *assigned = *source;
    const std::unique_ptr<Entry> cloned(std::as_const(*source).clone());
    for (Entry * copy : {&constructed, assigned.get(), cloned.get()}) {
        EXPECT_EQ(Written(*copy), Written(*source));
        EXPECT_NE(copy->DrawArray, source->DrawArray);
        EXPECT_NE(copy->DrawArray->GetAt(0), source->DrawArray->GetAt(0));
    }
}

TEST(Content_DictionaryStandard_EntryStandard, CopiesOfAContourWithAPolygonCannotBeWritten)
{
    Lines lines({"<Contour>", "<Polygon>", "</Polygon>", "</Contour>", "</EntryStandard>"});
    Entry source;
    source.Import(lines);
    Entry copy(source);
    EXPECT_EQ(Exported(copy), (Export{0, Joined({R"(   <EntryStandard id="">)", "      <Contour>"})}));
    EXPECT_EQ(Exported(source).result, 1);
}

TEST(Content_DictionaryStandard_EntryStandard, AssigningItselfKeepsTheShapes)
{
    const std::unique_ptr<Entry> entry = NewEntry("A", {1});
    const Shape * const shape = entry->DrawArray->GetAt(0);
    const Entry & same = *entry;
    *entry = same;
    EXPECT_EQ(entry->EntryStandardId, "A");
    ASSERT_EQ(entry->DrawArray->GetSize(), 1);
    EXPECT_EQ(entry->DrawArray->GetAt(0), shape);
}

TEST(Content_DictionaryStandard_EntryStandard, InitTakesANewListAndLeavesTheOldOneAlive)
{
    const std::unique_ptr<Entry> entry = NewEntry("A", {1});
    const std::unique_ptr<CIPC2581_DrawObjArray> abandoned(entry->DrawArray);
    entry->Init();
    EXPECT_EQ(entry->EntryStandardId, "");
    EXPECT_NE(entry->DrawArray, abandoned.get());
    EXPECT_TRUE(entry->DrawArray->IsEmpty());
    ASSERT_EQ(abandoned->GetSize(), 1);
    EXPECT_EQ(abandoned->GetAt(0)->GetDrawType(), 2);
}

TEST(Content_DictionaryStandard_EntryStandard, SettingTheListCopiesItsShapes)
{
    const std::unique_ptr<Entry> entry = NewEntry("A", {1});
    CIPC2581_DrawObjArray * const list = entry->DrawArray;
    const std::unique_ptr<Entry> other = NewEntry("A", {2, 3});
    entry->SetDrawArray(other->GetDrawArray());
    EXPECT_EQ(entry->DrawArray, list);
    EXPECT_EQ(Written(*entry), Written(*other));
    EXPECT_NE(list->GetAt(0), other->DrawArray->GetAt(0));
    EXPECT_EQ(other->DrawArray->GetSize(), 2);
}

TEST(Content_DictionaryStandard_EntryStandard, DeletesItsShapes)
{
    static int alive = 0;
    class CountedShape : public Shape {
    public:
        CountedShape() { ++alive; }
        CountedShape(const CountedShape &) = delete;
        CountedShape & operator=(const CountedShape &) = delete;
        ~CountedShape() override { --alive; }
    };
    {
        Entry entry;
        entry.DrawArray->Add(new CountedShape);
        EXPECT_EQ(alive, 1);
    }
    EXPECT_EQ(alive, 0);
}

static_assert(std::is_base_of_v<CExPtrArray<Entry *, Entry *>, Array>);

TEST(Content_DictionaryStandard_EntryStandardArray, AddsOneOperation)
{
    EXPECT_EQ(Slot(&Array::Export), 8U);
}

TEST(Content_DictionaryStandard_EntryStandardArray, WritesItsEntriesAtItsOwnLevel)
{
    Array array;
    EXPECT_EQ(Exported(array), (Export{1, ""}));
    array.Add(NewEntry("A").release());
    array.Add(NewEntry("B", {1}).release());
    EXPECT_EQ(Exported(array, 1), (Export{1, Below(R"(
      <EntryStandard id="A">
      </EntryStandard>
      <EntryStandard id="B">
         <Circle diameter="1.000000" />
      </EntryStandard>
)")}));
}

TEST(Content_DictionaryStandard_EntryStandardArray, StopsAtTheFirstEntryThatCannotBeWritten)
{
    Array array;
    array.Add(NewEntry("A").release());
    array.Add(new Unwritable<Entry>);
    array.Add(NewEntry("B").release());
    EXPECT_EQ(Exported(array), (Export{0, Below(R"(
   <EntryStandard id="A">
   </EntryStandard>
unwritable
)")}));
}

TEST(Content_DictionaryStandard_EntryStandardArray, OwnsItsEntriesAndClonesThemThroughTheirOwnOperation)
{
    {
        Array source;
        source.Add(new Alive<Entry>);
        source.GetAt(0)->EntryStandardId = "A";
        Array target;
        target.Add(new Alive<Entry>);
        target.Add(new Alive<Entry>);
        EXPECT_EQ(Alive<Entry>::count, 3);
        target = source;
        EXPECT_EQ(Alive<Entry>::count, 2);
        const Array constructed(source);
        EXPECT_EQ(Alive<Entry>::count, 3);
        ASSERT_EQ(target.GetSize(), 1);
        EXPECT_EQ(target.GetAt(0)->EntryStandardId, "A");
        EXPECT_EQ(constructed.GetAt(0)->EntryStandardId, "A");
    }
    EXPECT_EQ(Alive<Entry>::count, 0);
}

TEST(Content_DictionaryStandard_EntryStandardArray, AssigningItselfKeepsTheEntries)
{
    Array array;
    array.Add(NewEntry("A").release());
    const Entry * const entry = array.GetAt(0);
    const Array & same = array;
    array = same;
    ASSERT_EQ(array.GetSize(), 1);
    EXPECT_EQ(array.GetAt(0), entry);
}

TEST(Content_DictionaryStandard_EntryStandardArray, FindsTheFirstEntryWithAnId)
{
    Array array;
    EXPECT_EQ(array.pGetEntryStandardWithName("A"), nullptr);
    for (const char * id : {"B", "A", "A", ""}) {
        array.Add(NewEntry(id).release());
    }
    EXPECT_EQ(array.pGetEntryStandardWithName("A"), array.GetAt(1));
    EXPECT_EQ(array.pGetEntryStandardWithName("B"), array.GetAt(0));
    EXPECT_EQ(array.pGetEntryStandardWithName(""), array.GetAt(3));
    for (const char * id : {"a", "A ", "AA", "b"}) {
        EXPECT_EQ(array.pGetEntryStandardWithName(id), nullptr) << id;
    }
}

}  // namespace
