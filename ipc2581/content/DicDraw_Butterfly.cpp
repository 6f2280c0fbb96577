#include "ipc2581/content/DicDraw_Butterfly.h"

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

CIPC2581_DicDraw_Butterfly::~CIPC2581_DicDraw_Butterfly() = default;

int CIPC2581_DicDraw_Butterfly::Import(CArray<CString, CString> & tokens)
{
    ScanAttributes<Fields<CIPC2581_DicDraw_Butterfly>::Butterfly>(tokens, *this);
    return 1;
}

int CIPC2581_DicDraw_Butterfly::Export(CStdioFile & file, int level)
{
    if (Shape == ipc2581::OuterForms::Round) {
        WriteLine(file, "%s<Butterfly Shape=\"%s\" diameter=\"%f\" />\n", Indent(level + 1), GetShapeType(Shape), Size);
    }
    else if (Shape == ipc2581::OuterForms::Square) {
        WriteLine(file, "%s<Butterfly Shape=\"%s\" side=\"%f\" />\n", Indent(level + 1), GetShapeType(Shape), Size);
    }
    else {
        // A file class of the host's own gets an empty text.
        file.WriteString("");
    }
    return 1;
}
