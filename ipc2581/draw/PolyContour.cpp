#include "ipc2581/draw/PolyContour.h"

#include <utility>

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineTemplate.h"

namespace ipc2581::detail {
void ReadPolyBegin(const TokenList & tokens, CIPC2581_Point & begin)
{
    ScanAttributes<Fields<CIPC2581_Point>::PolyBegin>(tokens, begin);
}

void ReadPolyStepSegment(const TokenList & tokens, std::unique_ptr<CIPC2581_PolyStep> step,
                         CIPC2581_PolyStepArray & steps)
{
    ScanAttributes<Fields<CIPC2581_PolyStep>::PolyStepSegment>(tokens, *step);
    Append(steps, std::move(step));
}

void ReadPolyStepCurve(const TokenList & tokens, std::unique_ptr<CIPC2581_PolyStep> step,
                       CIPC2581_PolyStepArray & steps)
{
    step->Type = StepTypes::Curve;
    ScanAttributes<Fields<CIPC2581_PolyStep>::PolyStepCurve>(tokens, *step);
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
