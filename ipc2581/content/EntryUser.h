#ifndef IPC2581_CONTENT_ENTRYUSER_H
#define IPC2581_CONTENT_ENTRYUSER_H

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/draw/DrawObj.h"

// An EntryUser element: a named drawing. No reader makes one; hosts do.
class IPC2581_API CIPC2581_Content_DictionaryUser_EntryUser : public CIPC2581_XmlDataAdd_Function {
public:
    CString ID;
    CIPC2581_DrawObjArray * DrawObjArray;  // owned and never null

    CIPC2581_Content_DictionaryUser_EntryUser();
    CIPC2581_Content_DictionaryUser_EntryUser(const CIPC2581_Content_DictionaryUser_EntryUser & other);
    ~CIPC2581_Content_DictionaryUser_EntryUser() override;
    // A copy whose shapes are those of a copied list of shapes; the caller's to delete.
    virtual CIPC2581_Content_DictionaryUser_EntryUser * clone() const;
    virtual CIPC2581_Content_DictionaryUser_EntryUser &
    operator=(const CIPC2581_Content_DictionaryUser_EntryUser & other);
    virtual int Export(CStdioFile & file, int level);

    // Empties the id and takes a new list. The old list lives on: hosts hold pointers to it.
    void Init();
    CString GetID() const { return ID; }
    void SetID(CString id) { ID = id; }
    CIPC2581_DrawObjArray * GetDrawObjArray() const { return DrawObjArray; }
    // Takes the list over as it is. The one before is neither deleted nor copied.
    void SetDrawObjArray(CIPC2581_DrawObjArray * shapes) { DrawObjArray = shapes; }
};

template <>
struct ipc2581::Fields<CIPC2581_Content_DictionaryUser_EntryUser> {
    using Object = CIPC2581_Content_DictionaryUser_EntryUser;
    static constexpr std::string_view Name = "CIPC2581_Content_DictionaryUser_EntryUser";
    static constexpr auto Elements = Pack<>{};
    static constexpr auto Members = Pack{Member{"ID", &Object::ID}, Member{"DrawObjArray", &Object::DrawObjArray}};
};

// The entries of a user dictionary, owned and copied by their clone.
class IPC2581_API CIPC2581_Content_DictionaryUser_EntryUserArray
    : public CExPtrArray<CIPC2581_Content_DictionaryUser_EntryUser *, CIPC2581_Content_DictionaryUser_EntryUser *> {
public:
    CIPC2581_Content_DictionaryUser_EntryUserArray();
    CIPC2581_Content_DictionaryUser_EntryUserArray(const CIPC2581_Content_DictionaryUser_EntryUserArray & other);
    ~CIPC2581_Content_DictionaryUser_EntryUserArray() override;

    virtual CIPC2581_Content_DictionaryUser_EntryUserArray * clone() const;
    virtual CIPC2581_Content_DictionaryUser_EntryUserArray &
    operator=(const CIPC2581_Content_DictionaryUser_EntryUserArray & other);
    virtual int Export(CStdioFile & file, int level);

    // The first entry with this id, which stays the array's; null if there is none.
    CIPC2581_Content_DictionaryUser_EntryUser * pGetEntryUserWithID(CString id) const;
};

#endif
