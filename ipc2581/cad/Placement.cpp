#include "ipc2581/cad/Placement.h"

#include "ipc2581/base/lines/LineTemplate.h"

namespace ipc2581::detail {

void WriteStandardPrimitiveRef(CStdioFile & file, int level, const CString & id)
{
    WriteLine(file, "%s<StandardPrimitiveRef id=\"%s\"/>\n", Indent(level + 1), id);
}

void WriteLocation(CStdioFile & file, int level, const CPointD & location)
{
    WriteLine(file, "%s<Location x=\"%f\" y=\"%f\"/>\n", Indent(level + 1), location.X, location.Y);
}

}  // namespace ipc2581::detail
