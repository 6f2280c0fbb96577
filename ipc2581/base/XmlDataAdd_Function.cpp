#include "ipc2581/base/XmlDataAdd_Function.h"

#include <string>
#include <string_view>

#include "ipc2581/base/lines/TokenList.h"

using ipc2581::detail::TokenList;

CIPC2581_XmlDataAdd_Function::~CIPC2581_XmlDataAdd_Function() = default;

void CIPC2581_XmlDataAdd_Function::Tokenize(CString & line, CArray<CString, CString> * tokens)
{
    // A line of its own: the given one may be an element of the list, which moves as it grows.
    const std::string own(static_cast<std::string_view>(line));
    TokenList list;
    list.SetLine(own, TokenList::NoPlainRest);
    list.AppendTo(*tokens);
}

CString CIPC2581_XmlDataAdd_Function::RightValueDataUse(CArray<CString, CString> & tokens, int & index)
{
    return CString(TokenList(tokens).Value(index));
}

CString CIPC2581_XmlDataAdd_Function::RightDataUse(CString & text)
{
    text.Replace("\"", "");
    text.Replace("/", "");
    return text;
}

CString CIPC2581_XmlDataAdd_Function::MidDataUse(CString & text)
{
    text.SetAt(0, ' ');
    text.SetAt(text.GetLength() - 1, ' ');
    const int start = text.Find('>') + 1;
    return text.Mid(start, text.Find('<') - start);
}

bool CIPC2581_XmlDataAdd_Function::RightValueBoolTypeUse(CString & text)
{
    return text.Find("TRUE") != -1;
}
