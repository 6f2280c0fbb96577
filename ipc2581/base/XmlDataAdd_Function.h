#ifndef IPC2581_BASE_XMLDATAADD_FUNCTION_H
#define IPC2581_BASE_XMLDATAADD_FUNCTION_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/platform/CArray.h"
#include "ipc2581/base/platform/CString.h"

// The lexical operations of the reader, base of nearly every class that reads elements. To it the file is not XML: a
// line is cut on blanks, and values are taken out of single tokens. It holds no state.
class IPC2581_API CIPC2581_XmlDataAdd_Function {
public:
    CIPC2581_XmlDataAdd_Function() = default;
    CIPC2581_XmlDataAdd_Function(const CIPC2581_XmlDataAdd_Function &) = default;
    CIPC2581_XmlDataAdd_Function & operator=(const CIPC2581_XmlDataAdd_Function &) = default;
    virtual ~CIPC2581_XmlDataAdd_Function();

    // Cuts the line on runs of blanks and appends the tokens to the list, each without its "<" and ">" and with its
    // "/". A tab is no blank. The line is not changed.
    void Tokenize(CString & line, CArray<CString, CString> * tokens);

    // The attribute value that begins at token index: what stands behind the first "=", without quotes and slashes.
    // A value without its closing quote in that token runs on over further tokens, joined by one blank each, up to one
    // with a quote, and index is left on the last token used. Throws CInvalidArgException for an index outside the
    // list and for a value that the line does not close.
    CString RightValueDataUse(CArray<CString, CString> & tokens, int & index);

    // Takes all quotes and slashes out of the text and returns a copy of it.
    CString RightDataUse(CString & text);

    // The text between the first ">" and the first "<" of a line such as <Tag>body</Tag>, whose first and last
    // character are overwritten with blanks. Throws CInvalidArgException for an empty text.
    CString MidDataUse(CString & text);

    // True if the text holds "TRUE" in upper case, with whatever around it.
    bool RightValueBoolTypeUse(CString & text);
};

#endif
