#ifndef IPC2581_CONTENT_DICTIONARYUSER_H
#define IPC2581_CONTENT_DICTIONARYUSER_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/content/EntryUser.h"

// The DictionaryUser element. Of a file only its unit is read, and a written document leaves the dictionary out; a host
// that fills one calls its Export itself.
class IPC2581_API CIPC2581_Content_DictionaryUser : public CIPC2581_XmlDataAdd_Function {
public:
    CString Unit;                                                           // the word of the file, not interpreted
    CIPC2581_Content_DictionaryUser_EntryUserArray * EntryArray = nullptr;  // owned and never null

    CIPC2581_Content_DictionaryUser();
    CIPC2581_Content_DictionaryUser(const CIPC2581_Content_DictionaryUser & other);
    ~CIPC2581_Content_DictionaryUser() override;
    virtual CIPC2581_Content_DictionaryUser * clone() const;
    // Copies the unit and clones the entries.
    virtual CIPC2581_Content_DictionaryUser & operator=(const CIPC2581_Content_DictionaryUser & other);
    // Written also without entries.
    virtual int Export(CStdioFile & file, int level);

    // Empties the unit and deletes the entries; the array stays.
    void Init();
    CString GetUnit() const { return Unit; }
    void SetUnit(CString unit) { Unit = unit; }
    CIPC2581_Content_DictionaryUser_EntryUserArray * GetEntryArray() const { return EntryArray; }
    // Appends the entry, which becomes the array's.
    void SetEntry(CIPC2581_Content_DictionaryUser_EntryUser * entry) { EntryArray->Add(entry); }
};

template <>
struct ipc2581::Fields<CIPC2581_Content_DictionaryUser> {
    using Object = CIPC2581_Content_DictionaryUser;
    static constexpr std::string_view Name = "CIPC2581_Content_DictionaryUser";
    static constexpr auto DictionaryUser = Element<Object>("DictionaryUser", Text("units", &Object::Unit));
    static constexpr auto Elements = Pack{DictionaryUser};
    static constexpr auto Members = Pack{Member{"Unit", &Object::Unit}, Member{"EntryArray", &Object::EntryArray}};
};

#endif
