#include "ipc2581/draw/ContourShape.h"

#include "ipc2581/draw/PolyContour.h"

namespace ipc2581::detail {

ContourShape::~ContourShape()
{
    delete PolyBegin;
    delete PolyStepArray;
}

void ContourShape::PolyBeginAdd(CArray<CString, CString> & tokens)
{
    ReadPolyBegin(tokens, *PolyBegin);
}

void ContourShape::SegmentAdd(CArray<CString, CString> & tokens)
{
    ReadPolyStepSegment(tokens, *PolyStepArray);
}

void ContourShape::CurveAdd(CArray<CString, CString> & tokens)
{
    ReadPolyStepCurve(tokens, *PolyStepArray);
}

void ContourShape::CopyContour(const ContourShape & other)
{
    *PolyBegin = *other.PolyBegin;
    *PolyStepArray = *other.PolyStepArray;
}

}  // namespace ipc2581::detail
