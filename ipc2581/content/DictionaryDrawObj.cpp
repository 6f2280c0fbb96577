#include "ipc2581/content/DictionaryDrawObj.h"

#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;

CIPC2581_DictionaryDrawObj::CIPC2581_DictionaryDrawObj() = default;
CIPC2581_DictionaryDrawObj::CIPC2581_DictionaryDrawObj(const CIPC2581_DictionaryDrawObj & other) = default;
CIPC2581_DictionaryDrawObj::~CIPC2581_DictionaryDrawObj() = default;

CIPC2581_DictionaryDrawObj * CIPC2581_DictionaryDrawObj::clone() const
{
    return new CIPC2581_DictionaryDrawObj(*this);
}

CIPC2581_DictionaryDrawObj & CIPC2581_DictionaryDrawObj::operator=(const CIPC2581_DictionaryDrawObj & other) = default;

int CIPC2581_DictionaryDrawObj::Export(CStdioFile & /*file*/, int /*level*/)
{
    return 1;
}

CIPC2581_DictionaryDrawObjArray::CIPC2581_DictionaryDrawObjArray() = default;

CIPC2581_DictionaryDrawObjArray::CIPC2581_DictionaryDrawObjArray(const CIPC2581_DictionaryDrawObjArray & other)
    : CIPC2581_DictionaryDrawObjArray()
{
    AssignClones(*this, other);
}

CIPC2581_DictionaryDrawObjArray &
CIPC2581_DictionaryDrawObjArray::operator=(const CIPC2581_DictionaryDrawObjArray & other)
{
    AssignClones(*this, other);
    return *this;
}

CIPC2581_DictionaryDrawObjArray::~CIPC2581_DictionaryDrawObjArray()
{
    DeleteAll();
}

int CIPC2581_DictionaryDrawObjArray::Export(CStdioFile & file, int level)
{
    return ExportElements(*this, file, level);
}
