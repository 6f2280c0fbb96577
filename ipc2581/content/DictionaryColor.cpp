#include "ipc2581/content/DictionaryColor.h"

#include "ipc2581/base/OwnedPart.h"
#include "ipc2581/base/lines/LineTemplate.h"

CIPC2581_Content_DictionaryColor::CIPC2581_Content_DictionaryColor()
{
    Init();
}

CIPC2581_Content_DictionaryColor::CIPC2581_Content_DictionaryColor(const CIPC2581_Content_DictionaryColor & other)
    : CIPC2581_Content_DictionaryColor()
{
    operator=(other);
}

CIPC2581_Content_DictionaryColor::~CIPC2581_Content_DictionaryColor()
{
    delete Entry;
}

int CIPC2581_Content_DictionaryColor::Export(CStdioFile & file, int level)
{
    return ipc2581::detail::ExportElement(file, level, "DictionaryColor", Entry);
}

CIPC2581_Content_DictionaryColor &
CIPC2581_Content_DictionaryColor::operator=(const CIPC2581_Content_DictionaryColor & other)
{
    if (this != &other) {
        *Entry = *other.Entry;
    }
    return *this;
}

CIPC2581_Content_DictionaryColor * CIPC2581_Content_DictionaryColor::clone() const
{
    return new CIPC2581_Content_DictionaryColor(*this);
}

void CIPC2581_Content_DictionaryColor::Init()
{
    ipc2581::detail::EmptyOrCreate(Entry);
}
