#ifndef IPC2581_TESTS_DRAW_CONTOURS_H
#define IPC2581_TESTS_DRAW_CONTOURS_H

#include <cstdint>
#include <string>

#include "ipc2581/draw/Point.h"
#include "ipc2581/draw/PolyStep.h"

namespace ipc2581::tests {

// A letter and the coordinates as whole numbers: "b1,2".
inline std::string ShortPoint(char what, const CIPC2581_Point & point)
{
    return what + std::to_string(static_cast<int>(point.GetPoint_X())) + "," +
           std::to_string(static_cast<int>(point.GetPoint_Y()));
}

// Begin point and steps in short: "b1,2 s3,4 c5,6" for a begin point, a segment and a curve.
template <typename Contour>
std::string ShortContour(const Contour & contour)
{
    std::string text = ShortPoint('b', *contour.PolyBegin);
    for (std::int64_t i = 0; i < contour.PolyStepArray->GetSize(); ++i) {
        const CIPC2581_PolyStep & step = *contour.PolyStepArray->GetAt(i);
        text += " " + ShortPoint(step.GetType() == 0 ? 's' : 'c', *step.GetEndPoint());
    }
    return text;
}

}  // namespace ipc2581::tests

#endif
