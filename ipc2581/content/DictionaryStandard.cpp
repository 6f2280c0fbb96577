#include "ipc2581/content/DictionaryStandard.h"

#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;

using EntryStandardArray = CIPC2581_Content_DictionaryStandard_EntryStandardArray;

CIPC2581_Content_DictionaryStandard::CIPC2581_Content_DictionaryStandard() : EntryArray(new EntryStandardArray()) {}

CIPC2581_Content_DictionaryStandard::CIPC2581_Content_DictionaryStandard(
    const CIPC2581_Content_DictionaryStandard & other)
    : CIPC2581_Content_DictionaryStandard()
{
    operator=(other);
}

CIPC2581_Content_DictionaryStandard::~CIPC2581_Content_DictionaryStandard()
{
    delete EntryArray;
}

int CIPC2581_Content_DictionaryStandard::Export(CStdioFile & file, int level)
{
    if (EntryArray->IsEmpty()) {
        return 1;
    }
    return ExportKeyedElement(file, level, "DictionaryStandard", "units", Unit, EntryArray);
}

CIPC2581_Content_DictionaryStandard &
CIPC2581_Content_DictionaryStandard::operator=(const CIPC2581_Content_DictionaryStandard & other)
{
    if (this != &other) {
        Unit = other.Unit;
        *EntryArray = *other.EntryArray;
    }
    return *this;
}

void CIPC2581_Content_DictionaryStandard::Init()
{
    Unit = "";
    // The old array is let go, not deleted: hosts may still hold its entries.
    EntryArray = new EntryStandardArray();
}
