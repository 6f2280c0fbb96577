#include "ipc2581/content/DictionaryStandard.h"

#include <memory>
#include <type_traits>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/content/DicDraw_Circle.h"
#include "ipc2581/content/EntryStandard.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

using Dictionary = CIPC2581_Content_DictionaryStandard;
using Entry = CIPC2581_Content_DictionaryStandard_EntryStandard;
using Array = CIPC2581_Content_DictionaryStandard_EntryStandardArray;

Entry * NewEntry(const char * id)
{
    auto entry = std::make_unique<Entry>();
    entry->EntryStandardId = id;
    entry->DrawArray->Add(new CIPC2581_DicDraw_Circle);
    return entry.release();
}

// A dictionary with one entry that holds a circle.
std::unique_ptr<Dictionary> With(const char * unit, const char * id)
{
    auto dictionary = std::make_unique<Dictionary>();
    dictionary->Unit = unit;
    dictionary->SetEntry(NewEntry(id));
    return dictionary;
}

TEST(Content_DictionaryStandard, StartsEmpty)
{
    Dictionary dictionary;
    EXPECT_EQ(dictionary.Unit, "");
    ASSERT_NE(dictionary.EntryArray, nullptr);
    EXPECT_TRUE(dictionary.EntryArray->IsEmpty());
    EXPECT_EQ(dictionary.GetEntryArray(), dictionary.EntryArray);
    EXPECT_LT(static_cast<void *>(&dictionary.Unit), static_cast<void *>(&dictionary.EntryArray));
    EXPECT_TRUE((std::is_base_of_v<CIPC2581_XmlDataAdd_Function, Dictionary>));
}

TEST(Content_DictionaryStandard, HoldsOneOperationBehindTheDestructor)
{
    EXPECT_EQ(Slot(&Dictionary::Export), 2U);
}

TEST(Content_DictionaryStandard, GivesAndTakesItsUnit)
{
    Dictionary dictionary;
    dictionary.SetUnit("INCH");
    EXPECT_EQ(dictionary.Unit, "INCH");
    dictionary.Unit = "any word";
    EXPECT_EQ(dictionary.GetUnit(), "any word");
}

TEST(Content_DictionaryStandard, SetEntryAddsTheEntryAndOwnsIt)
{
    static int alive = 0;
    class Counted : public Entry {
    public:
        Counted() { ++alive; }
        Counted(const Counted &) = delete;
        Counted & operator=(const Counted &) = delete;
        ~Counted() override { --alive; }
    };
    {
        Dictionary dictionary;
        auto * const first = new Counted;
        auto * const second = new Counted;
        dictionary.SetEntry(first);
        dictionary.SetEntry(second);
        ASSERT_EQ(dictionary.EntryArray->GetSize(), 2);
        EXPECT_EQ(dictionary.EntryArray->GetAt(0), first);
        EXPECT_EQ(dictionary.EntryArray->GetAt(1), second);
        EXPECT_EQ(alive, 2);
    }
    EXPECT_EQ(alive, 0);
}

TEST(Content_DictionaryStandard, WritesNothingWithoutEntries)
{
    Dictionary dictionary;
    dictionary.Unit = "MM";
    EXPECT_EQ(Exported(dictionary), (Export{1, ""}));
}

TEST(Content_DictionaryStandard, WritesItsEntriesOneLevelDeeper)
{
    const std::unique_ptr<Dictionary> dictionary = With("MM", "A");
    dictionary->SetEntry(new Entry);
    EXPECT_EQ(Exported(*dictionary), (Export{1, Below(R"(
   <DictionaryStandard units="MM">
      <EntryStandard id="A">
         <Circle diameter="0.000000" />
      </EntryStandard>
      <EntryStandard id="">
      </EntryStandard>
   </DictionaryStandard>
)")}));
}

TEST(Content_DictionaryStandard, WritesFourLinesForAnEntryWithoutShapes)
{
    Dictionary dictionary;
    dictionary.SetEntry(new Entry);
    EXPECT_EQ(Exported(dictionary, 2), (Export{1, Below(R"(
         <DictionaryStandard units="">
            <EntryStandard id="">
            </EntryStandard>
         </DictionaryStandard>
)")}));
}

TEST(Content_DictionaryStandard, StopsAtAnEntryThatCannotBeWritten)
{
    const std::unique_ptr<Dictionary> dictionary = With("MM", "A");
    dictionary->EntryArray->GetAt(0)->DrawArray->Add(new CIPC2581_DrawObj);
    dictionary->SetEntry(NewEntry("B"));
    EXPECT_EQ(Exported(*dictionary), (Export{0, Below(R"(
   <DictionaryStandard units="MM">
      <EntryStandard id="A">
         <Circle diameter="0.000000" />
)")}));
}

TEST(Content_DictionaryStandard, CopiesHaveEntriesOfTheirOwn)
{
    const std::unique_ptr<Dictionary> source = With("MM", "A");
    Dictionary constructed(*source);
    const std::unique_ptr<Dictionary> assigned = With("INCH", "B");
    *assigned = *source;
    for (Dictionary * copy : {&constructed, assigned.get()}) {
        EXPECT_EQ(Written(*copy), Written(*source));
        EXPECT_NE(copy->EntryArray, source->EntryArray);
        EXPECT_NE(copy->EntryArray->GetAt(0), source->EntryArray->GetAt(0));
    }
}

TEST(Content_DictionaryStandard, AssigningItselfKeepsTheEntries)
{
    const std::unique_ptr<Dictionary> dictionary = With("MM", "A");
    const Entry * const entry = dictionary->EntryArray->GetAt(0);
    const Dictionary & same = *dictionary;
    *dictionary = same;
    EXPECT_EQ(dictionary->Unit, "MM");
    ASSERT_EQ(dictionary->EntryArray->GetSize(), 1);
    EXPECT_EQ(dictionary->EntryArray->GetAt(0), entry);
}

TEST(Content_DictionaryStandard, InitTakesANewArrayAndLeavesTheOldOneAlive)
{
    const std::unique_ptr<Dictionary> dictionary = With("MM", "A");
    const std::unique_ptr<Array> abandoned(dictionary->EntryArray);
    dictionary->Init();
    EXPECT_EQ(dictionary->Unit, "");
    EXPECT_NE(dictionary->EntryArray, abandoned.get());
    EXPECT_TRUE(dictionary->EntryArray->IsEmpty());
    ASSERT_EQ(abandoned->GetSize(), 1);
    EXPECT_EQ(abandoned->GetAt(0)->EntryStandardId, "A");
}

}  // namespace
