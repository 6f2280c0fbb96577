#ifndef IPC2581_TESTS_SUPPORT_MODELS_H
#define IPC2581_TESTS_SUPPORT_MODELS_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/base/platform/CString.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace ipc2581::tests {

// The first virtual operation that a class adds behind a virtual destructor.
constexpr std::size_t kFirstSlot = 2;
// The first one that a named array adds behind those of CObject and CExPtrArray.
constexpr std::size_t kFirstArraySlot = 8;

template <typename Model>
concept HasExport = requires(Model model, CStdioFile file)
{
    model.Export(file, 0);
};

template <typename Model>
concept HasInit = requires(Model model)
{
    model.Init();
};

// The object is of just that class and of none derived from it.
template <typename Class, typename Base>
bool IsA(const Base * object)
{
    return typeid(*object) == typeid(Class);
}

// The text with each line moved three blanks to the right for each level.
inline std::string Indented(std::string_view text, int level)
{
    std::string indented;
    while (!text.empty()) {
        const std::size_t end = text.find('\n') + 1;
        indented.append(static_cast<std::size_t>(3 * level), ' ').append(text.substr(0, end));
        text.remove_prefix(end);
    }
    return indented;
}

// Export gives the result and writes the text, which is that of level 0, at level 0 and at a deeper one.
template <typename Model>
void ExpectExport(Model & model, std::string_view text, int result = 1)
{
    for (const int level : {0, 3}) {
        EXPECT_EQ(Exported(model, level), (Export{result, Indented(text, level)})) << "at level " << level;
    }
}

// Calls read with a file that ends behind each of the lines in turn, and with the number of lines in it; nothing is
// thrown and nothing is left.
template <typename Reader>
void ForEachEndOfFile(const Texts & lines, Reader read)
{
    for (std::size_t count = 0; count <= lines.size(); ++count) {
        SCOPED_TRACE("the file ends behind " + std::to_string(count) + " lines");
        Lines file(Joined(Texts(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(count))));
        EXPECT_NO_THROW(read(file.File(), count));
        EXPECT_TRUE(file.Rest().empty());
    }
}

// Calls read with a line of blanks in front of each of the lines in turn: each time that throws.
template <typename Reader>
void ExpectLineOfBlanksThrows(const Texts & lines, Reader read)
{
    for (std::size_t count = 0; count < lines.size(); ++count) {
        SCOPED_TRACE("blanks behind " + std::to_string(count) + " lines");
        Texts blanked = lines;
        blanked.insert(blanked.begin() + static_cast<std::ptrdiff_t>(count), "   ");
        Lines file(Joined(blanked));
        EXPECT_THROW(read(file.File()), CInvalidArgException);
    }
}

// The array deletes its elements, through their virtual destructor, when it goes.
template <typename Array, typename Model>
void ExpectOwnsItsElements()
{
    int deleted = 0;
    {
        Array array;
        array.Add(new Counted<Model>(deleted));
        array.Add(new Counted<Model>(deleted));
        EXPECT_EQ(deleted, 0);
    }
    EXPECT_EQ(deleted, 2);
}

// The array writes its elements in their order at its own level, up to the first that gives 0.
template <typename Array, typename Model>
void ExpectWritesItsElements()
{
    Array array;
    EXPECT_EQ(Exported(array, 4), (Export{1, ""}));
    array.Add(new Writing<Model>("first"));
    array.Add(new Writing<Model>("second"));
    EXPECT_EQ(Exported(array, 4), (Export{1, "first 4\nsecond 4\n"}));
    array.Add(new Writing<Model>("third", 0));
    array.Add(new Writing<Model>("fourth"));
    EXPECT_EQ(Exported(array, 4), (Export{0, "first 4\nsecond 4\nthird 4\n"}));
    EXPECT_TRUE(IsVirtual(&Array::Export));
    EXPECT_EQ(Slot(&Array::Export), kFirstArraySlot);
}

// The class is a reader whose one virtual operation behind the destructor is Export.
template <typename Model>
void ExpectExportIsItsOneOperation()
{
    EXPECT_TRUE((std::is_base_of_v<CIPC2581_XmlDataAdd_Function, Model>));
    EXPECT_TRUE(std::has_virtual_destructor_v<Model>);
    EXPECT_EQ(Slot(&Model::Export), kFirstSlot);
    EXPECT_EQ(Slot(&Behind<Model>::Next), kFirstSlot + 1);
}

// Deletes the part of that type and puts an object of a derived class in its place.
template <typename Part, typename Derived, typename... Arguments>
Derived * Replace(Part *& part, std::unique_ptr<Derived> replacement)
{
    delete part;
    part = replacement.get();
    return replacement.release();
}

}  // namespace ipc2581::tests

#endif
