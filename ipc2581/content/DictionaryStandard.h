#ifndef IPC2581_CONTENT_DICTIONARYSTANDARD_H
#define IPC2581_CONTENT_DICTIONARYSTANDARD_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/content/EntryStandard.h"

// The DictionaryStandard element: named shapes that pads and pins refer to by id.
class IPC2581_API CIPC2581_Content_DictionaryStandard : public CIPC2581_XmlDataAdd_Function {
public:
    CString Unit;                                                         // the word of the file, not interpreted
    CIPC2581_Content_DictionaryStandard_EntryStandardArray * EntryArray;  // owned and never null

    CIPC2581_Content_DictionaryStandard();
    CIPC2581_Content_DictionaryStandard(const CIPC2581_Content_DictionaryStandard & other);
    ~CIPC2581_Content_DictionaryStandard() override;
    // Writes nothing, and gives 1, if there is no entry.
    virtual int Export(CStdioFile & file, int level);

    // Copies the unit and clones the entries.
    CIPC2581_Content_DictionaryStandard & operator=(const CIPC2581_Content_DictionaryStandard & other);
    // Empties the unit and takes a new array. The old one lives on with its entries: hosts hold pointers to them.
    void Init();
    CString GetUnit() const { return Unit; }
    void SetUnit(CString unit) { Unit = unit; }
    CIPC2581_Content_DictionaryStandard_EntryStandardArray * GetEntryArray() const { return EntryArray; }
    // Appends the entry, which becomes the array's.
    void SetEntry(CIPC2581_Content_DictionaryStandard_EntryStandard * entry) { EntryArray->Add(entry); }
};

template <>
struct ipc2581::Fields<CIPC2581_Content_DictionaryStandard> {
    using Object = CIPC2581_Content_DictionaryStandard;
    static constexpr std::string_view Name = "CIPC2581_Content_DictionaryStandard";
    static constexpr auto DictionaryStandard = Element<Object>("DictionaryStandard", Text("units", &Object::Unit));
    static constexpr auto DictionaryColor = DictionaryStandard.Of("DictionaryColor");
    static constexpr auto Elements = Pack{DictionaryStandard, DictionaryColor};
    static constexpr auto Members =
        Pack{Member{"Unit", &Object::Unit}, Member{"EntryArray", &Object::EntryArray, "EntryStandard"}};
};

#endif
