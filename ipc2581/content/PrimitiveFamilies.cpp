#include "ipc2581/content/PrimitiveFamilies.h"

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineTemplate.h"

namespace ipc2581::detail {
namespace {

const char * PieceIf(int flag, const char * piece)
{
    return flag != 0 ? piece : "";
}

}  // namespace

WidthHeightPrimitive::~WidthHeightPrimitive() = default;

int WidthHeightPrimitive::Import(CArray<CString, CString> & tokens)
{
    ScanAttributes<Fields<WidthHeightPrimitive>::Size>(tokens, *this);
    return 1;
}

int WidthHeightPrimitive::ExportAs(const char * tag, CStdioFile & file, int level) const
{
    WriteLine(file, "%s<%s width=\"%f\" height=\"%f\" />\n", Indent(level + 1), tag, Width, Height);
    return 1;
}

LengthPrimitive::~LengthPrimitive() = default;

int LengthPrimitive::Import(CArray<CString, CString> & tokens)
{
    ScanAttributes<Fields<LengthPrimitive>::Size>(tokens, *this);
    return 1;
}

int LengthPrimitive::ExportAs(const char * tag, CStdioFile & file, int level) const
{
    WriteLine(file, "%s<%s length=\"%f\" />\n", Indent(level + 1), tag, Length);
    return 1;
}

void WriteCorneredRect(CStdioFile & file, int level, const char * tag, const char * cornerKey,
                       const CorneredRect & rect)
{
    WriteLine(file, "%s<%s width=\"%f\" height=\"%f\" %s=\"%f\" %s%s%s%s />\n", Indent(level + 1), tag, rect.width,
              rect.height, cornerKey, rect.corner, PieceIf(rect.upperRight, "upperRight=\"TRUE\""),
              PieceIf(rect.upperLeft, "upperLeft=\"TRUE\""), PieceIf(rect.lowerLeft, "lowerLeft=\"TRUE\""),
              PieceIf(rect.lowerRight, "lowerRight=\"TRUE\""));
}

}  // namespace ipc2581::detail
