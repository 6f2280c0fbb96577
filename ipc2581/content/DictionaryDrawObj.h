#ifndef IPC2581_CONTENT_DICTIONARYDRAWOBJ_H
#define IPC2581_CONTENT_DICTIONARYDRAWOBJ_H

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/platform/CStdioFile.h"

// Base of a second family of dictionary contours, which only writes: hosts fill its objects. It is no CIPC2581_DrawObj
// and has draw types of its own: 0 the base, 1 a polygon, 2 a cutout.
class IPC2581_API CIPC2581_DictionaryDrawObj {
public:
    int DrawType = ipc2581::DictionaryDrawTypes::Plain;

    CIPC2581_DictionaryDrawObj();
    CIPC2581_DictionaryDrawObj(const CIPC2581_DictionaryDrawObj & other);
    virtual ~CIPC2581_DictionaryDrawObj();
    // A plain object with the draw type alone, also for the derived classes; the caller's to delete.
    virtual CIPC2581_DictionaryDrawObj * clone() const;
    // Copies the draw type.
    virtual CIPC2581_DictionaryDrawObj & operator=(const CIPC2581_DictionaryDrawObj & other);
    // Writes nothing and gives 1.
    virtual int Export(CStdioFile & file, int level);
};

template <>
struct ipc2581::Fields<CIPC2581_DictionaryDrawObj> {
    using Object = CIPC2581_DictionaryDrawObj;
    static constexpr std::string_view Name = "CIPC2581_DictionaryDrawObj";
    static constexpr auto Elements = Pack<>{};
    static constexpr auto Members = Pack{Member{"DrawType", &Object::DrawType}};
};

// A list of them, which it owns.
class IPC2581_API CIPC2581_DictionaryDrawObjArray
    : public CExPtrArray<CIPC2581_DictionaryDrawObj *, CIPC2581_DictionaryDrawObj *> {
public:
    CIPC2581_DictionaryDrawObjArray();
    CIPC2581_DictionaryDrawObjArray(const CIPC2581_DictionaryDrawObjArray & other);
    // Deletes the own objects and takes the clone() const of each of the other's: plain objects, so that a copied list
    // writes nothing.
    CIPC2581_DictionaryDrawObjArray & operator=(const CIPC2581_DictionaryDrawObjArray & other);
    ~CIPC2581_DictionaryDrawObjArray() override;

    virtual int Export(CStdioFile & file, int level);
};

#endif
