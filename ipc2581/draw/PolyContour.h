#ifndef IPC2581_DRAW_POLYCONTOUR_H
#define IPC2581_DRAW_POLYCONTOUR_H

#include <memory>

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/TokenList.h"
#include "ipc2581/draw/Point.h"
#include "ipc2581/draw/PolyStep.h"

// What polygons, polylines and cutouts have in common: the lines of a contour.
namespace ipc2581::detail {

void ReadPolyBegin(const TokenList & tokens, CIPC2581_Point & begin);
// The step is the caller's to make; the list owns it then.
void ReadPolyStepSegment(const TokenList & tokens, std::unique_ptr<CIPC2581_PolyStep> step,
                         CIPC2581_PolyStepArray & steps);
// The direction is turned round on the way in: "FALSE" gives 1, which is written as "TRUE", and every other word gives
// 0. A curve that tells none counts as clockwise.
void ReadPolyStepCurve(const TokenList & tokens, std::unique_ptr<CIPC2581_PolyStep> step,
                       CIPC2581_PolyStepArray & steps);

// Reads the line if it is a step of a contour; false if it is not.
bool ReadPolyStep(LineCycle & line, CStdioFile & file, CIPC2581_PolyStepArray & steps);

// Reads the lines of a closed contour up to the one whose first token holds the end word, or the end of the file.
void ReadClosedContour(CStdioFile & file, Word end, CIPC2581_Point *& begin, CIPC2581_PolyStepArray *& steps);

void WritePolyStepSegment(CStdioFile & file, int level, const CPointD & end);
void WritePolyStepCurve(CStdioFile & file, int level, const CPointD & end, const CPointD & center, int clockWise);

// Walks neighbours once and deletes the second of two that compare equal, unless it is a curve.
template <typename Step>
void DeleteEqualNeighbours(CExPtrArray<Step *, Step *> & steps)
{
    int i = 0;
    while (i + 1 < steps.GetSize()) {
        if (*steps.GetAt(i) == *steps.GetAt(i + 1) && steps.GetAt(i + 1)->Type != StepTypes::Curve) {
            steps.DeleteAt(i + 1, 1);
        }
        else {
            ++i;
        }
    }
}

}  // namespace ipc2581::detail

#endif
