#ifndef IPC2581_TESTS_CONTENT_COLORENTRIES_H
#define IPC2581_TESTS_CONTENT_COLORENTRIES_H

#include <memory>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/content/EntryColor.h"
#include "tests/support/Files.h"

namespace ipc2581::tests {

using Entry = CIPC2581_Content_DictionaryColor_EntryColor;

// The five fields of an entry.
struct Fields {
    std::string id;
    int red = 0;
    int green = 0;
    int blue = 0;
    std::string ref;
    bool operator==(const Fields &) const = default;
};

inline void PrintTo(const Fields & fields, std::ostream * out)
{
    *out << fields.id << ' ' << fields.red << ' ' << fields.green << ' ' << fields.blue << ' ' << fields.ref;
}

inline Fields FieldsOf(const Entry & entry)
{
    return {Str(entry.EntryColorId), entry.Red, entry.Green, entry.Blue, Str(entry.ColorRefID)};
}

inline std::unique_ptr<Entry> NewEntry(const Fields & fields)
{
    auto entry = std::make_unique<Entry>();
    entry->EntryColorId = fields.id.c_str();
    entry->Red = fields.red;
    entry->Green = fields.green;
    entry->Blue = fields.blue;
    entry->ColorRefID = fields.ref.c_str();
    return entry;
}

inline const Fields Before = {"C1", 11, 12, 13, "ref"};

inline int g_entriesAlive = 0;

class CountedEntry : public Entry {
public:
    CountedEntry() { ++g_entriesAlive; }
    CountedEntry(const CountedEntry &) = delete;
    CountedEntry & operator=(const CountedEntry &) = delete;
    ~CountedEntry() override { --g_entriesAlive; }
    int Export(CStdioFile & file, int /*level*/) override
    {
        file.WriteString("unwritable\n");
        return 0;
    }
};

}  // namespace ipc2581::tests

#endif
