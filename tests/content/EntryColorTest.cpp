#include "ipc2581/content/EntryColor.h"

#include <cstddef>
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
#include "tests/content/ColorEntries.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

using Entry = CIPC2581_Content_DictionaryColor_EntryColor;
using Array = CIPC2581_Content_DictionaryColor_EntryColorArray;

// What an entry with the fields of Before holds after it has read these lines.
Fields Read(std::initializer_list<std::string_view> lines)
{
    Lines file(lines);
    const std::unique_ptr<Entry> entry = NewEntry(Before);
    entry->EntryColorAdd(file);
    return FieldsOf(*entry);
}

TEST(Content_DictionaryColor_EntryColor, StartsEmptyAndBlack)
{
    Entry entry;
    EXPECT_EQ(FieldsOf(entry), Fields());
    EXPECT_TRUE((std::is_base_of_v<CIPC2581_XmlDataAdd_Function, Entry>));
}

TEST(Content_DictionaryColor_EntryColor, HoldsItsFieldsAndItsOperationInOrder)
{
    Entry entry;
    const void * before = &entry;
    for (const void * field : std::initializer_list<const void *>{&entry.EntryColorId, &entry.Red, &entry.Green,
                                                                  &entry.Blue, &entry.ColorRefID}) {
        EXPECT_LT(before, field);
        before = field;
    }
    EXPECT_EQ(Slot(&Entry::Export), 2U);
}

TEST(Content_DictionaryColor_EntryColor, HasAccessors)
{
    Entry entry;
    entry.SetEntryColorId("A");
    entry.SetRed(300);
    entry.SetGreen(-1);
    entry.SetBlue(3);
    entry.SetColorRefID("B");
    EXPECT_EQ(FieldsOf(entry), (Fields{"A", 300, -1, 3, "B"}));
    const Entry & same = entry;
    EXPECT_EQ(entry.GetEntryColorId(), "A");
    EXPECT_EQ(same.GetRed(), 300);
    EXPECT_EQ(same.GetGreen(), -1);
    EXPECT_EQ(same.GetBlue(), 3);
    EXPECT_EQ(entry.GetColorRefID(), "B");
}

TEST(Content_DictionaryColor_EntryColor, ReadsItsColorLineUpToItsEnd)
{
    Lines lines({R"(   <Color r="1" g="2" b="3" />)", "</EntryColor>", R"(<Color r="9"/>)"});
    Entry entry;
    entry.EntryColorAdd(lines);
    EXPECT_EQ(FieldsOf(entry), (Fields{"", 1, 2, 3, ""}));
    EXPECT_EQ(lines.Rest(), Texts({R"(<Color r="9"/>)"}));
}

TEST(Content_DictionaryColor_EntryColor, EndsAtAnyTokenThatHoldsItsClosingTag)
{
    for (const char * end : {"  </EntryColor >", "</EntryColors>", "<x></EntryColor>"}) {
        Lines lines({end, R"(<Color r="9"/>)"});
        Entry entry;
        entry.EntryColorAdd(lines);
        EXPECT_EQ(lines.Rest(), Texts({R"(<Color r="9"/>)"})) << end;
    }
}

TEST(Content_DictionaryColor_EntryColor, TheLastColorLineWins)
{
    EXPECT_EQ(Read({R"(<Color r="1" g="2"/>)", R"(<Color r="4" b="5" id="x"/>)", "</EntryColor>"}),
              (Fields{"C1", 4, 2, 5, "x"}));
    EXPECT_EQ(Read({R"(<Color r="1" r="2"/>)"}), (Fields{"C1", 2, 12, 13, "ref"}));
}

TEST(Content_DictionaryColor_EntryColor, KeepsTheIdOfTheColorLineApart)
{
    EXPECT_EQ(Read({R"(<Color id="X" r="1" g="2" b="3" />)"}), (Fields{"C1", 1, 2, 3, "X"}));
}

TEST(Content_DictionaryColor_EntryColor, TheEarlierKeyOfTheChainDecidesATokenThatHoldsTwo)
{
    const std::vector<std::string> keys = {"r=", "g=", "b=", "id="};
    const std::vector<Fields> hits = {{"C1", 0, 12, 13, "ref"}, {"C1", 11, 0, 13, "ref"}, {"C1", 11, 12, 0, "ref"}};
    for (std::size_t first = 0; first < 3; ++first) {
        for (std::size_t second = first + 1; second < 4; ++second) {
            EXPECT_EQ(Read({"<Color " + keys[first] + R"(")" + keys[second] + R"(5"/>)"}), hits[first]);
            EXPECT_EQ(Read({"<Color " + keys[second] + R"(")" + keys[first] + R"(5"/>)"}), hits[first]);
        }
    }
}

TEST(Content_DictionaryColor_EntryColor, FindsAKeyAnywhereInAToken)
{
    EXPECT_EQ(Read({R"(<Color color="5"/>)"}), (Fields{"C1", 5, 12, 13, "ref"}));
    EXPECT_EQ(Read({R"(<Color bg="5"/>)"}), (Fields{"C1", 11, 5, 13, "ref"}));
    EXPECT_EQ(Read({R"(<Color rgb="5"/>)"}), (Fields{"C1", 11, 12, 5, "ref"}));
    EXPECT_EQ(Read({R"(<Color valid="5"/>)"}), (Fields{"C1", 11, 12, 13, "5"}));
    EXPECT_EQ(Read({R"(<Colorr="5" g="6">)"}), (Fields{"C1", 5, 6, 13, "ref"}));
    EXPECT_EQ(Read({R"(<Color R="5" G="5" B="5" ID="5" r ="5"/>)"}), Before);
}

TEST(Content_DictionaryColor_EntryColor, TakesWholeNumbersAsFarAsTheyGo)
{
    EXPECT_EQ(Read({R"(<Color r="300" g="-1" b="x" />)"}), (Fields{"C1", 300, -1, 0, "ref"}));
    EXPECT_EQ(Read({R"(<Color r="12.9" g="1e3" b="" />)"}), (Fields{"C1", 12, 1, 0, "ref"}));
    EXPECT_EQ(Read({R"(<Color r=" 7 g=" g="7 8" id="a b" />)"}), (Fields{"C1", 7, 7, 13, "a b"}));
}

TEST(Content_DictionaryColor_EntryColor, TakesEveryOpeningThatHoldsColorForAColorLine)
{
    EXPECT_EQ(Read({R"(<EntryColor id="D" r="5">)", "</EntryColor>"}), (Fields{"C1", 5, 12, 13, "D"}));
    EXPECT_EQ(Read({R"(<ColorRef id="D"/>)"}), (Fields{"C1", 11, 12, 13, "D"}));
    EXPECT_EQ(Read({"<Color>", R"(Color r="6")"}), (Fields{"C1", 6, 12, 13, "ref"}));
}

TEST(Content_DictionaryColor_EntryColor, PassesOverColorWithASlashInItsFirstToken)
{
    EXPECT_EQ(Read({"<Color/>", "</Color>", R"(<Color/ r="5">)", R"(</DictionaryColor r="5">)", R"(<Color r="6"/>)"}),
              (Fields{"C1", 6, 12, 13, "ref"}));
}

TEST(Content_DictionaryColor_EntryColor, PassesOverOtherLines)
{
    EXPECT_EQ(Read({"", R"(<x Color r="5"/>)", R"(<color r="5"/>)", R"(<COLOR r="5"/>)", R"(<r="5">)",
                    "<x /EntryColor>", R"(<Color g="6"/>)"}),
              (Fields{"C1", 11, 6, 13, "ref"}));
}

TEST(Content_DictionaryColor_EntryColor, EndsQuietlyAtTheEndOfTheFile)
{
    EXPECT_EQ(Read({}), Before);
}

TEST(Content_DictionaryColor_EntryColor, ThrowsForALineOfBlanks)
{
    Lines lines({R"(<Color r="1"/>)", "  ", "<Next/>"});
    Entry entry;
    EXPECT_THROW(entry.EntryColorAdd(lines), CInvalidArgException);
    EXPECT_EQ(entry.Red, 1);
    EXPECT_EQ(lines.Rest(), Texts({"<Next/>"}));
}

TEST(Content_DictionaryColor_EntryColor, ThrowsForAValueThatTheLineDoesNotClose)
{
    for (const char * value : {R"(g="2)", "b=2", R"(id="x y)"}) {
        Lines lines({std::string(R"(<Color r="1" )") + value});
        const std::unique_ptr<Entry> entry = NewEntry(Before);
        EXPECT_THROW(entry->EntryColorAdd(lines), CInvalidArgException);
        EXPECT_EQ(FieldsOf(*entry), (Fields{"C1", 1, 12, 13, "ref"})) << value;
    }
}

TEST(Content_DictionaryColor_EntryColor, WritesThreeLinesWithoutTheReference)
{
    const std::unique_ptr<Entry> entry = NewEntry({"C1", 12, 34, 56, "ref"});
    EXPECT_EQ(Exported(*entry), (Export{1, Below(R"(
   <EntryColor id="C1">
      <Color r="12" g="34" b="56" />
   </EntryColor>
)")}));
    EXPECT_EQ(Exported(*entry, 2), (Export{1, Below(R"(
         <EntryColor id="C1">
            <Color r="12" g="34" b="56" />
         </EntryColor>
)")}));
}

TEST(Content_DictionaryColor_EntryColor, WritesItsNumbersUnchecked)
{
    Entry black;
    EXPECT_EQ(Written(black), Below(R"(
   <EntryColor id="">
      <Color r="0" g="0" b="0" />
   </EntryColor>
)"));
    EXPECT_EQ(Written(*NewEntry({"C", 300, -1, 0, ""})), Below(R"(
   <EntryColor id="C">
      <Color r="300" g="-1" b="0" />
   </EntryColor>
)"));
}

TEST(Content_DictionaryColor_EntryColor, CopiesHoldAllFields)
{
    const std::unique_ptr<Entry> source = NewEntry(Before);
    EXPECT_EQ(FieldsOf(Entry(*source)), Before);
    EXPECT_EQ(FieldsOf(*std::unique_ptr<Entry>(source->clone())), Before);
    Entry assigned;
    assigned = *source;
    EXPECT_EQ(FieldsOf(assigned), Before);
    const Entry & same = assigned;
    assigned = same;
    EXPECT_EQ(FieldsOf(assigned), Before);
}

TEST(Content_DictionaryColor_EntryColor, InitRestoresTheDefaults)
{
    const std::unique_ptr<Entry> entry = NewEntry(Before);
    entry->Init();
    EXPECT_EQ(FieldsOf(*entry), Fields());
}

TEST(Content_DictionaryColor_EntryColorArray, AddsOneOperation)
{
    EXPECT_EQ(Slot(&Array::Export), 8U);
}

TEST(Content_DictionaryColor_EntryColorArray, WritesItsEntriesAtItsOwnLevel)
{
    Array array;
    EXPECT_EQ(Exported(array), (Export{1, ""}));
    array.Add(NewEntry({"A", 1, 2, 3, ""}).release());
    array.Add(NewEntry({"B", 4, 5, 6, ""}).release());
    EXPECT_EQ(Exported(array, 1), (Export{1, Below(R"(
      <EntryColor id="A">
         <Color r="1" g="2" b="3" />
      </EntryColor>
      <EntryColor id="B">
         <Color r="4" g="5" b="6" />
      </EntryColor>
)")}));
}

TEST(Content_DictionaryColor_EntryColorArray, StopsAtTheFirstEntryThatCannotBeWritten)
{
    Array array;
    array.Add(new CountedEntry);
    array.Add(new Entry);
    EXPECT_EQ(Exported(array), (Export{0, "unwritable\n"}));
}

TEST(Content_DictionaryColor_EntryColorArray, CopiesHoldPlainEntriesOfTheirOwn)
{
    Array source;
    source.Add(NewEntry(Before).release());
    source.Add(new CountedEntry);
    Array assigned;
    assigned.Add(new CountedEntry);
    assigned = source;
    EXPECT_EQ(g_entriesAlive, 1);
    const Array constructed(source);
    const std::unique_ptr<const Array> cloned(source.clone());
    EXPECT_EQ(g_entriesAlive, 1);
    for (const Array * copy : {cloned.get(), &constructed, &std::as_const(assigned)}) {
        ASSERT_EQ(copy->GetSize(), 2);
        EXPECT_EQ(FieldsOf(*copy->GetAt(0)), Before);
        EXPECT_NE(copy->GetAt(0), source.GetAt(0));
    }
    EXPECT_EQ(Exported(assigned).result, 1);
}

TEST(Content_DictionaryColor_EntryColorArray, AssigningItselfKeepsTheEntries)
{
    Array array;
    array.Add(NewEntry(Before).release());
    const Entry * const entry = array.GetAt(0);
    const Array & same = array;
    array = same;
    ASSERT_EQ(array.GetSize(), 1);
    EXPECT_EQ(array.GetAt(0), entry);
}

TEST(Content_DictionaryColor_EntryColorArray, InitDeletesTheEntriesAndFreesTheStorage)
{
    class Open : public Array {
    public:
        [[nodiscard]] auto Capacity() const { return m_nMaxSize; }
    };
    Open array;
    array.Add(new CountedEntry);
    array.Add(nullptr);
    array.Init();
    EXPECT_EQ(g_entriesAlive, 0);
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_EQ(array.Capacity(), 0);
    array.Init();
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_EQ(array.GetData(), nullptr);
}

TEST(Content_DictionaryColor_EntryColorArray, DeletesItsEntries)
{
    {
        Array array;
        array.Add(new CountedEntry);
        EXPECT_EQ(g_entriesAlive, 1);
    }
    EXPECT_EQ(g_entriesAlive, 0);
}

}  // namespace
