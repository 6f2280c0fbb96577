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

// Nothing is left to delete here but of a shape whose constructor has failed.
ContourShape::~ContourShape()
{
    DeleteContour();
}

void ContourShape::DeleteContour()
{
    delete PolyBegin;
    delete PolyStepArray;
    PolyBegin = nullptr;
    PolyStepArray = nullptr;
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
