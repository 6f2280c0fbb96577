#include "ipc2581/content/EntryUser.h"

#include <memory>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/content/DicDraw_Circle.h"
#include "tests/content/UserEntries.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

using Entry = CIPC2581_Content_DictionaryUser_EntryUser;
using Array = CIPC2581_Content_DictionaryUser_EntryUserArray;
using Shape = CIPC2581_DrawObj;
using Circle = CIPC2581_DicDraw_Circle;

TEST(Content_DictionaryUser_EntryUser, StartsEmpty)
{
    Entry entry;
    EXPECT_EQ(entry.ID, "");
    ASSERT_NE(entry.DrawObjArray, nullptr);
    EXPECT_TRUE(entry.DrawObjArray->IsEmpty());
    EXPECT_EQ(entry.GetDrawObjArray(), entry.DrawObjArray);
    EXPECT_LT(static_cast<void *>(&entry.ID), static_cast<void *>(&entry.DrawObjArray));
    EXPECT_TRUE((std::is_base_of_v<CIPC2581_XmlDataAdd_Function, Entry>));
}

TEST(Content_DictionaryUser_EntryUser, HoldsItsOperationsInOrder)
{
    EXPECT_EQ(Slot(&Entry::clone), 2U);
    EXPECT_EQ(Slot(static_cast<Entry & (Entry::*)(const Entry &)>(&Entry::operator=)), 3U);
    EXPECT_EQ(Slot(&Entry::Export), 4U);
}

TEST(Content_DictionaryUser_EntryUser, GivesAndTakesItsId)
{
    Entry entry;
    entry.SetID("A");
    EXPECT_EQ(entry.ID, "A");
    entry.ID = "B";
    EXPECT_EQ(entry.GetID(), "B");
}

TEST(Content_DictionaryUser_EntryUser, TakesAListOverAsItIs)
{
    const std::unique_ptr<Entry> entry = NewEntry("A", {1});
    const std::unique_ptr<CIPC2581_DrawObjArray> before(entry->DrawObjArray);
    auto * const list = new CIPC2581_DrawObjArray;
    list->Add(new Circle);
    entry->SetDrawObjArray(list);
    EXPECT_EQ(entry->DrawObjArray, list);
    EXPECT_EQ(list->GetSize(), 1);
    EXPECT_EQ(before->GetSize(), 1);
}

TEST(Content_DictionaryUser_EntryUser, WritesItsShapesOneLevelDeeper)
{
    const std::unique_ptr<Entry> entry = NewEntry("A", {1});
    EXPECT_EQ(Exported(*entry), (Export{1, Below(R"(
   <EntryUser id="A">
      <Circle diameter="1.000000" />
   </EntryUser>
)")}));
    EXPECT_EQ(Exported(*entry, 2), (Export{1, Below(R"(
         <EntryUser id="A">
            <Circle diameter="1.000000" />
         </EntryUser>
)")}));
    EXPECT_EQ(Written(*NewEntry("")), Joined({R"(   <EntryUser id="">)", "   </EntryUser>"}));
}

TEST(Content_DictionaryUser_EntryUser, StopsAtAShapeThatCannotBeWritten)
{
    const std::unique_ptr<Entry> entry = NewEntry("A", {1});
    entry->DrawObjArray->Add(new Shape);
    EXPECT_EQ(Exported(*entry),
              (Export{0, Joined({R"(   <EntryUser id="A">)", R"(      <Circle diameter="1.000000" />)"})}));
}

TEST(Content_DictionaryUser_EntryUser, CopiesHaveShapesOfTheirOwn)
{
    const std::unique_ptr<Entry> source = NewEntry("A", {1, 2});
    Entry constructed(*source);
    const std::unique_ptr<Entry> assigned = NewEntry("B", {3});
    *assigned = *source;
    const std::unique_ptr<Entry> cloned(std::as_const(*source).clone());
    for (Entry * copy : {&constructed, assigned.get(), cloned.get()}) {
        EXPECT_EQ(Written(*copy), Written(*source));
        EXPECT_NE(copy->DrawObjArray, source->DrawObjArray);
        EXPECT_NE(copy->DrawObjArray->GetAt(0), source->DrawObjArray->GetAt(0));
    }
}

TEST(Content_DictionaryUser_EntryUser, AssigningItselfKeepsTheShapes)
{
    const std::unique_ptr<Entry> entry = NewEntry("A", {1});
    const Shape * const shape = entry->DrawObjArray->GetAt(0);
    const Entry & same = *entry;
    *entry = same;
    EXPECT_EQ(entry->ID, "A");
    ASSERT_EQ(entry->DrawObjArray->GetSize(), 1);
    EXPECT_EQ(entry->DrawObjArray->GetAt(0), shape);
}

TEST(Content_DictionaryUser_EntryUser, InitTakesANewListAndLeavesTheOldOneAlive)
{
    const std::unique_ptr<Entry> entry = NewEntry("A", {1});
    const std::unique_ptr<CIPC2581_DrawObjArray> abandoned(entry->DrawObjArray);
    entry->Init();
    EXPECT_EQ(entry->ID, "");
    EXPECT_NE(entry->DrawObjArray, abandoned.get());
    EXPECT_TRUE(entry->DrawObjArray->IsEmpty());
    EXPECT_EQ(abandoned->GetSize(), 1);
}

TEST(Content_DictionaryUser_EntryUserArray, AddsItsOperationsInOrder)
{
    EXPECT_EQ(Slot(&Array::clone), 8U);
    EXPECT_EQ(Slot(static_cast<Array & (Array::*)(const Array &)>(&Array::operator=)), 9U);
    EXPECT_EQ(Slot(&Array::Export), 10U);
}

TEST(Content_DictionaryUser_EntryUserArray, OwnsItsEntriesAndClonesThemThroughTheirOwnOperation)
{
    {
        Array source;
        source.Add(new Alive<Entry>);
        source.GetAt(0)->ID = "A";
        Array assigned;
        assigned.Add(new Alive<Entry>);
        assigned.Add(new Alive<Entry>);
        EXPECT_EQ(Alive<Entry>::count, 3);
        assigned = source;
        EXPECT_EQ(Alive<Entry>::count, 2);
        const std::unique_ptr<const Array> cloned(std::as_const(source).clone());
        const Array constructed(source);
        EXPECT_EQ(Alive<Entry>::count, 4);
        for (const Array * copy : {cloned.get(), &constructed, &std::as_const(assigned)}) {
            ASSERT_EQ(copy->GetSize(), 1);
            EXPECT_EQ(copy->GetAt(0)->ID, "A");
        }
    }
    EXPECT_EQ(Alive<Entry>::count, 0);
}

TEST(Content_DictionaryUser_EntryUserArray, AssigningItselfKeepsTheEntries)
{
    Array array;
    array.Add(NewEntry("A").release());
    const Entry * const entry = array.GetAt(0);
    const Array & same = array;
    array = same;
    ASSERT_EQ(array.GetSize(), 1);
    EXPECT_EQ(array.GetAt(0), entry);
}

TEST(Content_DictionaryUser_EntryUserArray, WritesItsEntriesAtItsOwnLevel)
{
    Array array;
    EXPECT_EQ(Exported(array), (Export{1, ""}));
    array.Add(NewEntry("A").release());
    array.Add(NewEntry("B").release());
    EXPECT_EQ(Exported(array, 1), (Export{1, Below(R"(
      <EntryUser id="A">
      </EntryUser>
      <EntryUser id="B">
      </EntryUser>
)")}));
}

TEST(Content_DictionaryUser_EntryUserArray, StopsAtTheFirstEntryThatCannotBeWritten)
{
    Array array;
    array.Add(NewEntry("A").release());
    array.Add(new Unwritable<Entry>);
    array.Add(NewEntry("B").release());
    EXPECT_EQ(Exported(array), (Export{0, Below(R"(
   <EntryUser id="A">
   </EntryUser>
unwritable
)")}));
}

TEST(Content_DictionaryUser_EntryUserArray, FindsTheFirstEntryWithAnId)
{
    Array array;
    EXPECT_EQ(array.pGetEntryUserWithID("A"), nullptr);
    for (const char * id : {"B", "A", "A", ""}) {
        array.Add(NewEntry(id).release());
    }
    EXPECT_EQ(array.pGetEntryUserWithID("A"), array.GetAt(1));
    EXPECT_EQ(array.pGetEntryUserWithID("B"), array.GetAt(0));
    EXPECT_EQ(array.pGetEntryUserWithID(""), array.GetAt(3));
    for (const char * id : {"a", "A ", "AA", "b"}) {
        EXPECT_EQ(array.pGetEntryUserWithID(id), nullptr) << id;
    }
}

}  // namespace
