#include "ipc2581/content/DictionaryUser.h"

#include <memory>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/content/DicDraw_Circle.h"
#include "ipc2581/content/EntryUser.h"
#include "tests/content/UserEntries.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

using Dictionary = CIPC2581_Content_DictionaryUser;
using Entry = CIPC2581_Content_DictionaryUser_EntryUser;
using Array = CIPC2581_Content_DictionaryUser_EntryUserArray;
using Shape = CIPC2581_DrawObj;
using Circle = CIPC2581_DicDraw_Circle;

// A dictionary with one entry that holds a circle.
std::unique_ptr<Dictionary> With(const char * unit, const char * id)
{
    auto dictionary = std::make_unique<Dictionary>();
    dictionary->Unit = unit;
    dictionary->SetEntry(NewEntry(id, {1}).release());
    return dictionary;
}

static_assert(std::is_base_of_v<CExPtrArray<Entry *, Entry *>, Array>);

TEST(Content_DictionaryUser, StartsEmpty)
{
    Dictionary dictionary;
    EXPECT_EQ(dictionary.Unit, "");
    ASSERT_NE(dictionary.EntryArray, nullptr);
    EXPECT_TRUE(dictionary.EntryArray->IsEmpty());
    EXPECT_EQ(dictionary.GetEntryArray(), dictionary.EntryArray);
    EXPECT_LT(static_cast<void *>(&dictionary.Unit), static_cast<void *>(&dictionary.EntryArray));
    EXPECT_TRUE((std::is_base_of_v<CIPC2581_XmlDataAdd_Function, Dictionary>));
}

TEST(Content_DictionaryUser, HoldsItsOperationsInOrder)
{
    EXPECT_EQ(Slot(&Dictionary::clone), 2U);
    EXPECT_EQ(Slot(static_cast<Dictionary & (Dictionary::*)(const Dictionary &)>(&Dictionary::operator=)), 3U);
    EXPECT_EQ(Slot(&Dictionary::Export), 4U);
}

TEST(Content_DictionaryUser, GivesAndTakesItsUnit)
{
    Dictionary dictionary;
    dictionary.SetUnit("INCH");
    EXPECT_EQ(dictionary.Unit, "INCH");
    dictionary.Unit = "any word";
    EXPECT_EQ(dictionary.GetUnit(), "any word");
}

TEST(Content_DictionaryUser, SetEntryAddsTheEntryAndOwnsIt)
{
    {
        Dictionary dictionary;
        auto * const first = new Alive<Entry>;
        auto * const second = new Alive<Entry>;
        first->ID = "B";
        second->ID = "A";
        dictionary.SetEntry(first);
        dictionary.SetEntry(second);
        ASSERT_EQ(dictionary.EntryArray->GetSize(), 2);
        EXPECT_EQ(dictionary.EntryArray->GetAt(0), first);
        EXPECT_EQ(dictionary.EntryArray->GetAt(1), second);
        EXPECT_EQ(dictionary.EntryArray->pGetEntryUserWithID("A"), second);
        EXPECT_EQ(Alive<Entry>::count, 2);
    }
    EXPECT_EQ(Alive<Entry>::count, 0);
}

TEST(Content_DictionaryUser, WritesItsEntriesOneLevelDeeper)
{
    const std::unique_ptr<Dictionary> dictionary = With("MM", "A");
    EXPECT_EQ(Exported(*dictionary), (Export{1, Below(R"(
   <DictionaryUser units="MM">
      <EntryUser id="A">
         <Circle diameter="1.000000" />
      </EntryUser>
   </DictionaryUser>
)")}));
}

TEST(Content_DictionaryUser, WritesTwoLinesWithoutEntries)
{
    Dictionary dictionary;
    EXPECT_EQ(Exported(dictionary), (Export{1, Joined({R"(   <DictionaryUser units="">)", "   </DictionaryUser>"})}));
    dictionary.Unit = "INCH";
    EXPECT_EQ(Exported(dictionary, 2),
              (Export{1, Joined({R"(         <DictionaryUser units="INCH">)", "         </DictionaryUser>"})}));
}

TEST(Content_DictionaryUser, StopsAtAnEntryThatCannotBeWritten)
{
    const std::unique_ptr<Dictionary> dictionary = With("MM", "A");
    dictionary->EntryArray->GetAt(0)->DrawObjArray->Add(new Shape);
    dictionary->SetEntry(NewEntry("B").release());
    EXPECT_EQ(Exported(*dictionary), (Export{0, Below(R"(
   <DictionaryUser units="MM">
      <EntryUser id="A">
         <Circle diameter="1.000000" />
)")}));
}

TEST(Content_DictionaryUser, CopiesHaveEntriesOfTheirOwn)
{
    const std::unique_ptr<Dictionary> source = With("MM", "A");
    Dictionary constructed(*source);
    const std::unique_ptr<Dictionary> assigned = With("INCH", "B");
    *assigned = *source;
    const std::unique_ptr<Dictionary> cloned(std::as_const(*source).clone());
    for (Dictionary * copy : {&constructed, assigned.get(), cloned.get()}) {
        EXPECT_EQ(Written(*copy), Written(*source));
        EXPECT_NE(copy->EntryArray, source->EntryArray);
        EXPECT_NE(copy->EntryArray->GetAt(0), source->EntryArray->GetAt(0));
    }
}

TEST(Content_DictionaryUser, AssigningItselfKeepsTheEntries)
{
    const std::unique_ptr<Dictionary> dictionary = With("MM", "A");
    const Entry * const entry = dictionary->EntryArray->GetAt(0);
    const Dictionary & same = *dictionary;
    *dictionary = same;
    EXPECT_EQ(dictionary->Unit, "MM");
    ASSERT_EQ(dictionary->EntryArray->GetSize(), 1);
    EXPECT_EQ(dictionary->EntryArray->GetAt(0), entry);
}

// An array that counts its assignments.
class ListeningArray : public Array {
public:
    using Array::operator=;
    Array & operator=(const Array & other) override
    {
        ++assignments;
        return Array::operator=(other);
    }
    int assignments = 0;
};

TEST(Content_DictionaryUser, CopiesThroughTheAssignmentOfTheArrayExceptFromItself)
{
    Dictionary dictionary;
    const std::unique_ptr<Array> before(dictionary.EntryArray);
    auto * const array = new ListeningArray;
    dictionary.EntryArray = array;
    const Dictionary & same = dictionary;
    dictionary = same;
    EXPECT_EQ(array->assignments, 0);
    dictionary = *With("MM", "A");
    EXPECT_EQ(array->assignments, 1);
    EXPECT_EQ(array->GetSize(), 1);
}

TEST(Content_DictionaryUser, InitDeletesTheEntriesAndKeepsTheArray)
{
    Dictionary dictionary;
    dictionary.Unit = "MM";
    dictionary.SetEntry(new Alive<Entry>);
    const Array * const array = dictionary.EntryArray;
    dictionary.Init();
    EXPECT_EQ(dictionary.Unit, "");
    EXPECT_EQ(dictionary.EntryArray, array);
    EXPECT_TRUE(array->IsEmpty());
    EXPECT_EQ(Alive<Entry>::count, 0);
}

TEST(Content_DictionaryUser, InitMakesAMissingArray)
{
    Dictionary dictionary;
    const std::unique_ptr<Array> before(dictionary.EntryArray);
    dictionary.EntryArray = nullptr;
    dictionary.Init();
    ASSERT_NE(dictionary.EntryArray, nullptr);
    EXPECT_TRUE(dictionary.EntryArray->IsEmpty());
}

}  // namespace
