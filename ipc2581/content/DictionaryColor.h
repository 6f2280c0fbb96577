#ifndef IPC2581_CONTENT_DICTIONARYCOLOR_H
#define IPC2581_CONTENT_DICTIONARYCOLOR_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/content/EntryColor.h"

// The DictionaryColor element. It has no unit of its own: a unit on its line goes to the standard dictionary.
class IPC2581_API CIPC2581_Content_DictionaryColor {
public:
    CIPC2581_Content_DictionaryColor_EntryColorArray * Entry = nullptr;  // owned and never null

    CIPC2581_Content_DictionaryColor();
    CIPC2581_Content_DictionaryColor(const CIPC2581_Content_DictionaryColor & other);
    virtual ~CIPC2581_Content_DictionaryColor();
    // Written also without entries.
    virtual int Export(CStdioFile & file, int level);

    CIPC2581_Content_DictionaryColor & operator=(const CIPC2581_Content_DictionaryColor & other);
    CIPC2581_Content_DictionaryColor * clone() const;
    // Deletes the entries; the array stays.
    void Init();
    CIPC2581_Content_DictionaryColor_EntryColorArray * GetEntry() const { return Entry; }
    // Copies the entries; the argument stays the caller's.
    void SetEntry(CIPC2581_Content_DictionaryColor_EntryColorArray * entries) { *Entry = *entries; }
};

template <>
struct ipc2581::Fields<CIPC2581_Content_DictionaryColor> {
    using Object = CIPC2581_Content_DictionaryColor;
    static constexpr std::string_view Name = "CIPC2581_Content_DictionaryColor";
    static constexpr auto Elements = Pack<>{};
    static constexpr auto Members = Pack{Member{"Entry", &Object::Entry, "EntryColor"}};
};

#endif
