#include "ipc2581/draw/ContourShape.h"

#include "ipc2581/base/platform/ObjectBlocks.h"
#include "ipc2581/draw/PolyContour.h"

namespace ipc2581::detail {

ContourShape::ContourShape(ObjectBlocks & blocks, int drawType) : ContourShape()
{
    DrawType = drawType;
    PolyBegin = MakeFrom<CIPC2581_Point>(blocks);
    PolyStepArray = MakeFrom<CIPC2581_PolyStepArray>(blocks);
}

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
    ReadPolyStepSegment(tokens, std::make_unique<CIPC2581_PolyStep>(), *PolyStepArray);
}

void ContourShape::CurveAdd(CArray<CString, CString> & tokens)
{
    ReadPolyStepCurve(tokens, std::make_unique<CIPC2581_PolyStep>(), *PolyStepArray);
}

void ContourShape::CopyContour(const ContourShape & other)
{
    *PolyBegin = *other.PolyBegin;
    *PolyStepArray = *other.PolyStepArray;
}

}  // namespace ipc2581::detail
