#include "ipc2581/draw/PolyStep.h"

#include "ipc2581/base/OwnedPart.h"
#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/base/platform/ObjectBlocks.h"
#include "ipc2581/draw/PolyContour.h"

using namespace ipc2581::detail;

CIPC2581_PolyStep::CIPC2581_PolyStep() : CIPC2581_PolyStep(WithoutParts())
{
    Init();
}

CIPC2581_PolyStep::CIPC2581_PolyStep(ObjectBlocks & blocks) : CIPC2581_PolyStep(WithoutParts())
{
    EndPoint = MakeFrom<CIPC2581_Point>(blocks);
    CenterPoint = MakeFrom<CIPC2581_Point>(blocks);
}

CIPC2581_PolyStep::CIPC2581_PolyStep(const CIPC2581_PolyStep & other) : CIPC2581_PolyStep()
{
    operator=(other);
}

CIPC2581_PolyStep::~CIPC2581_PolyStep()
{
    delete EndPoint;
    delete CenterPoint;
}

int CIPC2581_PolyStep::operator==(const CIPC2581_PolyStep & other) const
{
    // Addresses, not coordinates: hosts rely on steps made apart being different.
    return Type == other.Type && EndPoint == other.EndPoint && CenterPoint == other.CenterPoint ? 1 : 0;
}

int CIPC2581_PolyStep::operator!=(const CIPC2581_PolyStep & /*other*/) const
{
    return 0;
}

int CIPC2581_PolyStep::Export(CStdioFile & file, int level)
{
    if (Type == ipc2581::StepTypes::Segment) {
        WritePolyStepSegment(file, level, *EndPoint->Point);
    }
    else {
        WritePolyStepCurve(file, level, *EndPoint->Point, *CenterPoint->Point, ClockWise);
    }
    return 1;
}

CIPC2581_PolyStep & CIPC2581_PolyStep::operator=(const CIPC2581_PolyStep & other)
{
    if (this != &other) {
        Type = other.Type;
        *EndPoint = *other.EndPoint;
        *CenterPoint = *other.CenterPoint;
        ClockWise = other.ClockWise;
    }
    return *this;
}

CIPC2581_PolyStep * CIPC2581_PolyStep::clone() const
{
    return new CIPC2581_PolyStep(*this);
}

void CIPC2581_PolyStep::Init()
{
    Type = ipc2581::StepTypes::Segment;
    ResetOrCreate(EndPoint);
    ResetOrCreate(CenterPoint);
    ClockWise = 1;
}

CIPC2581_PolyStepArray::CIPC2581_PolyStepArray() = default;

CIPC2581_PolyStepArray::CIPC2581_PolyStepArray(const CIPC2581_PolyStepArray & other) : CIPC2581_PolyStepArray()
{
    AssignClones(*this, other);
}

CIPC2581_PolyStepArray::~CIPC2581_PolyStepArray()
{
    DeleteAll();
}

CIPC2581_PolyStepArray * CIPC2581_PolyStepArray::clone() const
{
    return new CIPC2581_PolyStepArray(*this);
}

CIPC2581_PolyStepArray & CIPC2581_PolyStepArray::operator=(const CIPC2581_PolyStepArray & other)
{
    AssignClones(*this, other);
    return *this;
}

int CIPC2581_PolyStepArray::Export(CStdioFile & file, int level)
{
    return ExportElements(*this, file, level);
}

void CIPC2581_PolyStepArray::DeduplicationCheck()
{
    DeleteEqualNeighbours(*this);
}
