#include "ipc2581/draw/Outline.h"

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/OwnedPart.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/base/platform/ObjectBlocks.h"

using namespace ipc2581::detail;

CIPC2581_Outline::CIPC2581_Outline() : CIPC2581_Outline(WithoutParts())
{
    CIPC2581_Outline::InIt();
}

CIPC2581_Outline::CIPC2581_Outline(ObjectBlocks & blocks) : CIPC2581_Outline(WithoutParts())
{
    DrawType = ipc2581::DrawTypes::Outline;
    Polygon = MakeFrom<CIPC2581_Polygon>(blocks);
    LineDesc = MakeFrom<CIPC2581_LineDesc>(blocks);
}

CIPC2581_Outline::CIPC2581_Outline(const CIPC2581_Outline & other) : CIPC2581_Outline()
{
    CIPC2581_Outline::operator=(other);
}

CIPC2581_Outline::~CIPC2581_Outline()
{
    delete Polygon;
    delete LineDesc;
}

int CIPC2581_Outline::Import(CStdioFile & file)
{
    ReadOutline(file, Polygon, LineDesc);
    return 1;
}

int CIPC2581_Outline::Export(CStdioFile & file, int level)
{
    if (Polygon->PolyStepArray->IsEmpty()) {
        return 1;
    }
    WriteLine(file, "%s<Outline>\n", Indent(level + 1));
    Polygon->Export(file, level + 1);
    LineDesc->Export(file, level + 1);
    WriteLine(file, "%s</Outline>\n", Indent(level + 1));
    return 1;
}

CIPC2581_Outline * CIPC2581_Outline::clone()
{
    return new CIPC2581_Outline(*this);
}

CIPC2581_Outline & CIPC2581_Outline::operator=(const CIPC2581_Outline & other)
{
    if (this != &other) {
        *Polygon = *other.Polygon;
        *LineDesc = *other.LineDesc;
    }
    return *this;
}

void CIPC2581_Outline::InIt()
{
    DrawType = ipc2581::DrawTypes::Outline;
    ResetOrCreate(Polygon);
    ResetOrCreate(LineDesc);
}

void ipc2581::detail::ReadOutline(CStdioFile & file, CIPC2581_Polygon *& polygon, CIPC2581_LineDesc *& lineDesc)
{
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("LineDesc")) {
            ReadLineDesc(line.Tokens(), *lineDesc);
        }
        else if (line.Holds("Polygon")) {
            polygon->Import(file);
        }
        else if (line.Holds("/Outline")) {
            return;
        }
    }
}
