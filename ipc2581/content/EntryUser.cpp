#include "ipc2581/content/EntryUser.h"

#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;

using EntryUser = CIPC2581_Content_DictionaryUser_EntryUser;
using EntryUserArray = CIPC2581_Content_DictionaryUser_EntryUserArray;

EntryUser::CIPC2581_Content_DictionaryUser_EntryUser() : DrawObjArray(new CIPC2581_DrawObjArray()) {}

EntryUser::CIPC2581_Content_DictionaryUser_EntryUser(const EntryUser & other)
    : CIPC2581_Content_DictionaryUser_EntryUser()
{
    EntryUser::operator=(other);
}

EntryUser::~CIPC2581_Content_DictionaryUser_EntryUser()
{
    delete DrawObjArray;
}

EntryUser * EntryUser::clone() const
{
    return new EntryUser(*this);
}

EntryUser & EntryUser::operator=(const EntryUser & other)
{
    if (this != &other) {
        ID = other.ID;
        *DrawObjArray = *other.DrawObjArray;
    }
    return *this;
}

int EntryUser::Export(CStdioFile & file, int level)
{
    return ExportKeyedElement(file, level, "EntryUser", "id", ID, DrawObjArray);
}

void EntryUser::Init()
{
    ID = "";
    // The old list is let go, not deleted: hosts may still hold it.
    DrawObjArray = new CIPC2581_DrawObjArray();
}

EntryUserArray::CIPC2581_Content_DictionaryUser_EntryUserArray() = default;

EntryUserArray::CIPC2581_Content_DictionaryUser_EntryUserArray(const EntryUserArray & other)
    : CIPC2581_Content_DictionaryUser_EntryUserArray()
{
    AssignClones(*this, other);
}

EntryUserArray::~CIPC2581_Content_DictionaryUser_EntryUserArray()
{
    DeleteAll();
}

EntryUserArray * EntryUserArray::clone() const
{
    return new EntryUserArray(*this);
}

EntryUserArray & EntryUserArray::operator=(const EntryUserArray & other)
{
    AssignClones(*this, other);
    return *this;
}

int EntryUserArray::Export(CStdioFile & file, int level)
{
    return ExportElements(*this, file, level);
}

EntryUser * EntryUserArray::pGetEntryUserWithID(CString id) const
{
    return FindFirst(*this, &EntryUser::ID, id);
}
