#ifndef IPC2581_CONTENT_ENTRYSTANDARD_H
#define IPC2581_CONTENT_ENTRYSTANDARD_H

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/draw/DrawObj.h"

// An EntryStandard element: a named list of shapes.
class IPC2581_API CIPC2581_Content_DictionaryStandard_EntryStandard : public CIPC2581_XmlDataAdd_Function {
public:
    CString EntryStandardId;
    CIPC2581_DrawObjArray * DrawArray;  // owned and never null

    CIPC2581_Content_DictionaryStandard_EntryStandard();
    // For a reader: with its list in the same blocks.
    explicit CIPC2581_Content_DictionaryStandard_EntryStandard(ipc2581::detail::ObjectBlocks & blocks);
    CIPC2581_Content_DictionaryStandard_EntryStandard(const CIPC2581_Content_DictionaryStandard_EntryStandard & other);
    ~CIPC2581_Content_DictionaryStandard_EntryStandard() override;
    // A copy whose shapes are those of a copied list of shapes; the caller's to delete. Null if there is no memory.
    virtual CIPC2581_Content_DictionaryStandard_EntryStandard * clone() const;
    // Reads up to the line with "/EntryStandard" and gives 1. The names of the shapes are looked for in whole lines,
    // attribute values included, and only a contour is asked for its slash.
    virtual int Import(CStdioFile & file);
    virtual int Export(CStdioFile & file, int level);

    CIPC2581_Content_DictionaryStandard_EntryStandard &
    operator=(const CIPC2581_Content_DictionaryStandard_EntryStandard & other);
    // Empties the id and takes a new list. The old list lives on: hosts hold pointers to it.
    void Init();
    CString GetEntryStandardId() const { return EntryStandardId; }
    void SetEntryStandardId(CString id) { EntryStandardId = id; }
    CIPC2581_DrawObjArray * GetDrawArray() const { return DrawArray; }
    // Copies the list; the argument stays the caller's.
    void SetDrawArray(CIPC2581_DrawObjArray * shapes) { *DrawArray = *shapes; }
};

template <>
struct ipc2581::Fields<CIPC2581_Content_DictionaryStandard_EntryStandard> {
    using Object = CIPC2581_Content_DictionaryStandard_EntryStandard;
    static constexpr std::string_view Name = "CIPC2581_Content_DictionaryStandard_EntryStandard";
    static constexpr auto EntryStandard = Element<Object>("EntryStandard", Text("id", &Object::EntryStandardId));
    static constexpr auto Elements = Pack{EntryStandard};
    static constexpr auto Members =
        Pack{Member{"EntryStandardId", &Object::EntryStandardId}, Member{"DrawArray", &Object::DrawArray}};
};

// The entries of a standard dictionary, owned and copied by their clone.
class IPC2581_API CIPC2581_Content_DictionaryStandard_EntryStandardArray
    : public CExPtrArray<CIPC2581_Content_DictionaryStandard_EntryStandard *,
                         CIPC2581_Content_DictionaryStandard_EntryStandard *> {
public:
    CIPC2581_Content_DictionaryStandard_EntryStandardArray();
    CIPC2581_Content_DictionaryStandard_EntryStandardArray(
        const CIPC2581_Content_DictionaryStandard_EntryStandardArray & other);
    CIPC2581_Content_DictionaryStandard_EntryStandardArray &
    operator=(const CIPC2581_Content_DictionaryStandard_EntryStandardArray & other);
    ~CIPC2581_Content_DictionaryStandard_EntryStandardArray() override;

    virtual int Export(CStdioFile & file, int level);

    // The first entry with this id, which stays the array's; null if there is none.
    CIPC2581_Content_DictionaryStandard_EntryStandard * pGetEntryStandardWithName(CString name) const;
};

#endif
