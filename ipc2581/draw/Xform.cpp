#include "ipc2581/draw/Xform.h"

#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;

CIPC2581_Xform::CIPC2581_Xform() = default;
CIPC2581_Xform::CIPC2581_Xform(const CIPC2581_Xform & other) = default;
CIPC2581_Xform & CIPC2581_Xform::operator=(const CIPC2581_Xform & other) = default;
CIPC2581_Xform::~CIPC2581_Xform() = default;

int CIPC2581_Xform::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<Xform rotation=\"%f\"/>\n", Indent(level + 1), Rotation);
    return 1;
}

void CIPC2581_Xform::Init()
{
    *this = CIPC2581_Xform();
}
