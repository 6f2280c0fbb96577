#include "ipc2581/content/DictionaryColor.h"

#include <memory>
#include <type_traits>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/content/EntryColor.h"
#include "tests/content/ColorEntries.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

using Dictionary = CIPC2581_Content_DictionaryColor;
using Entry = CIPC2581_Content_DictionaryColor_EntryColor;
using Array = CIPC2581_Content_DictionaryColor_EntryColorArray;

static_assert(std::is_base_of_v<CExPtrArray<Entry *, Entry *>, Array>);

static_assert(!std::is_base_of_v<CIPC2581_XmlDataAdd_Function, Dictionary>);

TEST(Content_DictionaryColor, StartsEmpty)
{
    Dictionary dictionary;
    ASSERT_NE(dictionary.Entry, nullptr);
    EXPECT_TRUE(dictionary.Entry->IsEmpty());
    EXPECT_EQ(dictionary.GetEntry(), dictionary.Entry);
}

TEST(Content_DictionaryColor, HoldsOneOperationBehindTheDestructor)
{
    EXPECT_EQ(Slot(&Dictionary::Export), 2U);
}

TEST(Content_DictionaryColor, WritesTwoLinesWithoutEntries)
{
    Dictionary dictionary;
    EXPECT_EQ(Exported(dictionary), (Export{1, "   <DictionaryColor>\n   </DictionaryColor>\n"}));
    EXPECT_EQ(Exported(dictionary, 2), (Export{1, "         <DictionaryColor>\n         </DictionaryColor>\n"}));
}

TEST(Content_DictionaryColor, WritesItsEntriesOneLevelDeeper)
{
    Dictionary dictionary;
    dictionary.Entry->Add(NewEntry({"C1", 12, 34, 56, ""}).release());
    EXPECT_EQ(Exported(dictionary), (Export{1, Below(R"(
   <DictionaryColor>
      <EntryColor id="C1">
         <Color r="12" g="34" b="56" />
      </EntryColor>
   </DictionaryColor>
)")}));
}

TEST(Content_DictionaryColor, StopsAtAnEntryThatCannotBeWritten)
{
    Dictionary dictionary;
    dictionary.Entry->Add(new CountedEntry);
    dictionary.Entry->Add(new Entry);
    EXPECT_EQ(Exported(dictionary), (Export{0, "   <DictionaryColor>\nunwritable\n"}));
}

TEST(Content_DictionaryColor, CopiesHaveEntriesOfTheirOwn)
{
    Dictionary source;
    source.Entry->Add(NewEntry(Before).release());
    Dictionary constructed(source);
    Dictionary assigned;
    assigned.Entry->Add(new CountedEntry);
    assigned = source;
    EXPECT_EQ(g_entriesAlive, 0);
    const std::unique_ptr<Dictionary> cloned(source.clone());
    for (Dictionary * copy : {&constructed, &assigned, cloned.get()}) {
        ASSERT_EQ(copy->Entry->GetSize(), 1);
        EXPECT_EQ(FieldsOf(*copy->Entry->GetAt(0)), Before);
        EXPECT_NE(copy->Entry, source.Entry);
        EXPECT_NE(copy->Entry->GetAt(0), source.Entry->GetAt(0));
    }
}

TEST(Content_DictionaryColor, AssigningItselfKeepsTheEntries)
{
    Dictionary dictionary;
    dictionary.Entry->Add(NewEntry(Before).release());
    const Entry * const entry = dictionary.Entry->GetAt(0);
    const Dictionary & same = dictionary;
    dictionary = same;
    ASSERT_EQ(dictionary.Entry->GetSize(), 1);
    EXPECT_EQ(dictionary.Entry->GetAt(0), entry);
}

TEST(Content_DictionaryColor, SetEntryCopiesAWholeArray)
{
    Dictionary dictionary;
    Array * const own = dictionary.Entry;
    own->Add(new CountedEntry);
    Array entries;
    entries.Add(NewEntry(Before).release());
    dictionary.SetEntry(&entries);
    EXPECT_EQ(g_entriesAlive, 0);
    EXPECT_EQ(dictionary.Entry, own);
    ASSERT_EQ(own->GetSize(), 1);
    EXPECT_EQ(FieldsOf(*own->GetAt(0)), Before);
    EXPECT_NE(own->GetAt(0), entries.GetAt(0));
    EXPECT_EQ(entries.GetSize(), 1);
}

TEST(Content_DictionaryColor, InitDeletesTheEntriesAndKeepsTheArray)
{
    Dictionary dictionary;
    const Array * const array = dictionary.Entry;
    dictionary.Entry->Add(new CountedEntry);
    dictionary.Init();
    EXPECT_EQ(g_entriesAlive, 0);
    EXPECT_EQ(dictionary.Entry, array);
    EXPECT_TRUE(array->IsEmpty());
}

TEST(Content_DictionaryColor, InitMakesAMissingArray)
{
    Dictionary dictionary;
    const std::unique_ptr<Array> before(dictionary.Entry);
    dictionary.Entry = nullptr;
    dictionary.Init();
    ASSERT_NE(dictionary.Entry, nullptr);
    EXPECT_TRUE(dictionary.Entry->IsEmpty());
}

TEST(Content_DictionaryColor, DeletesItsEntries)
{
    {
        Dictionary dictionary;
        dictionary.Entry->Add(new CountedEntry);
        EXPECT_EQ(g_entriesAlive, 1);
    }
    EXPECT_EQ(g_entriesAlive, 0);
}

}  // namespace
