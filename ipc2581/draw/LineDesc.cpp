#include "ipc2581/draw/LineDesc.h"

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

CIPC2581_LineDesc::CIPC2581_LineDesc() = default;
CIPC2581_LineDesc::CIPC2581_LineDesc(const CIPC2581_LineDesc & other) = default;
CIPC2581_LineDesc::~CIPC2581_LineDesc() = default;

CIPC2581_LineDesc * CIPC2581_LineDesc::clone()
{
    return new CIPC2581_LineDesc(*this);
}

CIPC2581_LineDesc & CIPC2581_LineDesc::operator=(const CIPC2581_LineDesc & other) = default;

int CIPC2581_LineDesc::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<LineDesc lineEnd=\"%s\" lineWidth=\"%f\" />\n", Indent(level + 1), LineEnd, LineWidth);
    return 1;
}

void CIPC2581_LineDesc::Init()
{
    Shape = 0;
    LineWidth = 0.0;
    LineEnd = "ROUND";
}

void ipc2581::detail::ReadLineDesc(const TokenList & tokens, CIPC2581_LineDesc & lineDesc)
{
    ScanAttributes<Fields<CIPC2581_LineDesc>::LineDesc>(tokens, lineDesc);
}
