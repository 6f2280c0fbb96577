#include "ipc2581/content/DicDraw_Contour.h"

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/OwnedPart.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/base/platform/ObjectBlocks.h"
#include "ipc2581/draw/Cutout.h"
#include "ipc2581/draw/ImportedShape.h"
#include "ipc2581/draw/Polygon.h"

using namespace ipc2581::detail;

CIPC2581_DicDraw_Contour::CIPC2581_DicDraw_Contour() : DicDrawObjArray(new CIPC2581_DrawObjArray())
{
    DrawType = ipc2581::DrawTypes::Contour;
}

CIPC2581_DicDraw_Contour::CIPC2581_DicDraw_Contour(ObjectBlocks & blocks)
    : DicDrawObjArray(MakeFrom<CIPC2581_DrawObjArray>(blocks))
{
    DrawType = ipc2581::DrawTypes::Contour;
}

CIPC2581_DicDraw_Contour::CIPC2581_DicDraw_Contour(const CIPC2581_DicDraw_Contour & other) : CIPC2581_DicDraw_Contour()
{
    CIPC2581_DicDraw_Contour::operator=(other);
}

CIPC2581_DicDraw_Contour::~CIPC2581_DicDraw_Contour()
{
    delete DicDrawObjArray;
}

CIPC2581_DicDraw_Contour * CIPC2581_DicDraw_Contour::clone() const
{
    return new CIPC2581_DicDraw_Contour(*this);
}

int CIPC2581_DicDraw_Contour::Import(CArray<CString, CString> & /*tokens*/)
{
    return 1;
}

int CIPC2581_DicDraw_Contour::Import(CStdioFile & file)
{
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("Polygon")) {
            ImportShape<CIPC2581_Polygon>(DicDrawObjArray, file);
        }
        else if (line.Opens("Cutout")) {
            ImportShape<CIPC2581_Cutout>(DicDrawObjArray, file);
        }
        else if (line.Holds("/Contour")) {
            return 1;
        }
    }
    return 1;
}

int CIPC2581_DicDraw_Contour::Export(CStdioFile & file, int level)
{
    return ExportElement(file, level, "Contour", DicDrawObjArray);
}

CIPC2581_DicDraw_Contour & CIPC2581_DicDraw_Contour::operator=(const CIPC2581_DicDraw_Contour & other)
{
    DrawType = other.DrawType;
    *DicDrawObjArray = *other.DicDrawObjArray;
    return *this;
}

void CIPC2581_DicDraw_Contour::Init()
{
    DrawType = ipc2581::DrawTypes::Contour;
    EmptyOrCreate(DicDrawObjArray);
}
