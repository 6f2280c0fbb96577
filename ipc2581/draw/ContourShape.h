#ifndef IPC2581_DRAW_CONTOURSHAPE_H
#define IPC2581_DRAW_CONTOURSHAPE_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/draw/DrawObj.h"
#include "ipc2581/draw/Point.h"
#include "ipc2581/draw/PolyStep.h"

namespace ipc2581::detail {

// What polygons, polylines and cutouts have in common: a begin point and steps, in the order of the file. Nothing
// closes a contour; the last step may end anywhere.
class IPC2581_API ContourShape : public CIPC2581_DrawObj, public CIPC2581_XmlDataAdd_Function {
public:
    // Owned and never null.
    CIPC2581_Point * PolyBegin = nullptr;
    CIPC2581_PolyStepArray * PolyStepArray = nullptr;

    ~ContourShape() override;
    ContourShape(const ContourShape &) = delete;
    ContourShape & operator=(const ContourShape &) = delete;

    CIPC2581_Point * GetPolyBegin() const { return PolyBegin; }
    CIPC2581_PolyStepArray * GetPolyStepArray() const { return PolyStepArray; }
    // The setters copy the value; the argument stays the caller's.
    void SetPolyBegin(CIPC2581_Point * point) { *PolyBegin = *point; }
    void SetPolyStepArray(CIPC2581_PolyStepArray * steps) { *PolyStepArray = *steps; }

    // Take the begin point, or append a step, from the token list of a PolyBegin, PolyStepSegment or PolyStepCurve
    // line. A stated direction is turned round: "FALSE" gives 1. Throw CInvalidArgException for a value that the line
    // does not close.
    void PolyBeginAdd(CArray<CString, CString> & tokens);
    void SegmentAdd(CArray<CString, CString> & tokens);
    void CurveAdd(CArray<CString, CString> & tokens);

protected:
    ContourShape() = default;
    ContourShape(ObjectBlocks & blocks, int drawType);
    // For the destructors of the shapes: their parts go while the object is still one of their class, as a part of the
    // host's own may look at it.
    void DeleteContour();
    // Copies begin point and steps by value.
    void CopyContour(const ContourShape & other);
};

}  // namespace ipc2581::detail

#endif
