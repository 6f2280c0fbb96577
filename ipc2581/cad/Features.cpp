#include "ipc2581/cad/Features.h"

#include <utility>

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/cad/Placement.h"
#include "ipc2581/content/DicDraw_Circle.h"
#include "ipc2581/content/DicDraw_Contour.h"
#include "ipc2581/draw/ImportedShape.h"
#include "ipc2581/draw/Line.h"
#include "ipc2581/draw/PolyLine.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

using Features = CIPC2581_Ecad_CadData_Step_LayerFeature_Set_Features;

namespace {

void ReadLine(LineCycle & line, CStdioFile & file, CIPC2581_DrawObjArray & shapes)
{
    auto stroke = NewFrom<Fields<CIPC2581_Line>::Line>(line, file);
    stroke->Import(file);
    Append(shapes, std::move(stroke));
}

void ReadCircle(LineCycle & line, CStdioFile & file, CIPC2581_DrawObjArray & shapes)
{
    auto circle = New<CIPC2581_DicDraw_Circle>(file);
    LineTokens tokens;
    circle->Import(line.CopyTokens(tokens));
    Append(shapes, std::move(circle));
}

}  // namespace

Features::CIPC2581_Ecad_CadData_Step_LayerFeature_Set_Features() = default;
Features::CIPC2581_Ecad_CadData_Step_LayerFeature_Set_Features(const Features & other) = default;
Features & Features::operator=(const Features & other) = default;
Features::~CIPC2581_Ecad_CadData_Step_LayerFeature_Set_Features() = default;

int Features::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<Features>\n", Indent(level + 1));
    WriteLocation(file, level + 1, Location);
    if (DrawObjArray.Export(file, level + 1) == 0) {
        return 0;
    }
    WriteLine(file, "%s</Features>\n", Indent(level + 1));
    return 1;
}

void Features::FeaturesAdd(CStdioFile & file)
{
    LineCycle line(file);
    while (line.Next()) {
        if (line.Skips("Xform")) {
            continue;
        }
        if (line.Opens("Location")) {
            ScanAttributes<Fields<Features>::Location>(line.Tokens(), *this);
        }
        else if (line.Opens("Polyline")) {
            ImportShape<CIPC2581_PolyLine>(DrawObjArray, file);
        }
        else if (line.Opens("Line")) {
            ReadLine(line, file, DrawObjArray);
        }
        else if (line.Opens("Contour")) {
            ImportShape<CIPC2581_DicDraw_Contour>(DrawObjArray, file);
        }
        else if (line.Opens("Circle")) {
            ReadCircle(line, file, DrawObjArray);
        }
        else if (line.Holds("/Features")) {
            return;
        }
    }
}
