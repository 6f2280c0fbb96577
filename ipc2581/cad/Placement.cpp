#include "ipc2581/cad/Placement.h"

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineTemplate.h"

namespace ipc2581::detail {

void ReadLocation(const TokenList & tokens, CPointD & location)
{
    ScanAttributes(tokens, {Number("x=", location.X), Number("y=", location.Y)});
}

void ReadStandardPrimitiveRef(const TokenList & tokens, CString & id)
{
    ScanAttributes(tokens, {Text("id=", id)});
}

void WriteStandardPrimitiveRef(CStdioFile & file, int level, const CString & id)
{
    WriteLine(file, "%s<StandardPrimitiveRef id=\"%s\"/>\n", Indent(level + 1), id);
}

void WriteLocation(CStdioFile & file, int level, const CPointD & location)
{
    WriteLine(file, "%s<Location x=\"%f\" y=\"%f\"/>\n", Indent(level + 1), location.X, location.Y);
}

}  // namespace ipc2581::detail
