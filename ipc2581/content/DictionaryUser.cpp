#include "ipc2581/content/DictionaryUser.h"

#include "ipc2581/base/OwnedPart.h"
#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;

CIPC2581_Content_DictionaryUser::CIPC2581_Content_DictionaryUser()
{
    Init();
}

CIPC2581_Content_DictionaryUser::CIPC2581_Content_DictionaryUser(const CIPC2581_Content_DictionaryUser & other)
    : CIPC2581_Content_DictionaryUser()
{
    CIPC2581_Content_DictionaryUser::operator=(other);
}

CIPC2581_Content_DictionaryUser::~CIPC2581_Content_DictionaryUser()
{
    delete EntryArray;
}

CIPC2581_Content_DictionaryUser * CIPC2581_Content_DictionaryUser::clone() const
{
    return new CIPC2581_Content_DictionaryUser(*this);
}

CIPC2581_Content_DictionaryUser &
CIPC2581_Content_DictionaryUser::operator=(const CIPC2581_Content_DictionaryUser & other)
{
    if (this != &other) {
        Unit = other.Unit;
        *EntryArray = *other.EntryArray;
    }
    return *this;
}

int CIPC2581_Content_DictionaryUser::Export(CStdioFile & file, int level)
{
    return ExportKeyedElement(file, level, "DictionaryUser", "units", Unit, EntryArray);
}

void CIPC2581_Content_DictionaryUser::Init()
{
    Unit = "";
    EmptyOrCreate(EntryArray);
}
