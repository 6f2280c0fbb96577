#include "ipc2581/draw/PolyContour.h"

#include <utility>

#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineTemplate.h"

namespace ipc2581::detail {
namespace {

void StoreDirection(AttributeHit & hit, void * field)
{
    // The second word is looked for in a value taken anew, from the token on which the first one ended.
    const bool isFalse =
        hit.Take().find("FALSE") != std::string_view::npos || hit.Take().find("false") != std::string_view::npos;
    *static_cast<int *>(field) = isFalse ? 1 : 0;
}

}  // namespace

void ReadPolyBegin(const TokenList & tokens, CIPC2581_Point & begin)
{
    ScanAttributes(tokens, {Number("x=", begin.Point->X), Number("y=", begin.Point->Y)});
}

void ReadPolyStepSegment(const TokenList & tokens, std::unique_ptr<CIPC2581_PolyStep> step,
                         CIPC2581_PolyStepArray & steps)
{
    ScanAttributes(tokens, {Number("x=", step->EndPoint->Point->X), Number("y=", step->EndPoint->Point->Y)});
    Append(steps, std::move(step));
}

void ReadPolyStepCurve(const TokenList & tokens, std::unique_ptr<CIPC2581_PolyStep> step,
                       CIPC2581_PolyStepArray & steps)
{
    step->Type = 1;
    CPointD & end = *step->EndPoint->Point;
    CPointD & center = *step->CenterPoint->Point;
    ScanAttributes(tokens, {Number("x=", end.X),
                            Number("y=", end.Y),
                            Number("centerX=", center.X),
                            Number("centerY=", center.Y),
                            {"clockwise=", &StoreDirection, &step->ClockWise}});
    Append(steps, std::move(step));
}

bool ReadPolyStep(LineCycle & line, CStdioFile & file, CIPC2581_PolyStepArray & steps)
{
    if (line.Holds("PolyStepSegment")) {
        ReadPolyStepSegment(line.Tokens(), New<CIPC2581_PolyStep>(file), steps);
        return true;
    }
    if (line.Holds("PolyStepCurve")) {
        ReadPolyStepCurve(line.Tokens(), New<CIPC2581_PolyStep>(file), steps);
        return true;
    }
    return false;
}

void ReadClosedContour(CStdioFile & file, Word end, CIPC2581_Point *& begin, CIPC2581_PolyStepArray *& steps)
{
    LineCycle line(file);
    while (line.Next()) {
        if (line.Holds("PolyBegin")) {
            ReadPolyBegin(line.Tokens(), *begin);
        }
        else if (!ReadPolyStep(line, file, *steps) && line.Holds(end)) {
            return;
        }
    }
}

void WritePolyStepSegment(CStdioFile & file, int level, const CPointD & end)
{
    WriteLine(file, "%s<PolyStepSegment x=\"%f\" y=\"%f\" />\n", Indent(level + 1), end.X, end.Y);
}

void WritePolyStepCurve(CStdioFile & file, int level, const CPointD & end, const CPointD & center, int clockWise)
{
    WriteLine(file, "%s<PolyStepCurve x=\"%f\" y=\"%f\" centerX=\"%f\" centerY=\"%f\" clockwise=\"%s\" />\n",
              Indent(level + 1), end.X, end.Y, center.X, center.Y, TrueOrFalse(clockWise == 1));
}

}  // namespace ipc2581::detail
