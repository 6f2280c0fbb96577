#include "ipc2581/draw/Pt.h"

#include "ipc2581/base/lines/LineTemplate.h"
#include "ipc2581/draw/PolyContour.h"

using namespace ipc2581::detail;

CIPC2581_Pt::CIPC2581_Pt() = default;
CIPC2581_Pt::CIPC2581_Pt(const CIPC2581_Pt & other) = default;
CIPC2581_Pt::~CIPC2581_Pt() = default;

CIPC2581_Pt * CIPC2581_Pt::clone() const
{
    return new CIPC2581_Pt(*this);
}

CIPC2581_Pt & CIPC2581_Pt::operator=(const CIPC2581_Pt & other) = default;

int CIPC2581_Pt::operator==(const CIPC2581_Pt & other) const
{
    return this == &other ? 1 : EndPoint == other.EndPoint;
}

int CIPC2581_Pt::operator!=(const CIPC2581_Pt & other) const
{
    const bool isDifferent = this != &other && Type != other.Type && EndPoint.operator!=(other.EndPoint) != 0 &&
                             CenterPoint.operator!=(other.CenterPoint) != 0 && ClockWise != other.ClockWise;
    return isDifferent ? 1 : 0;
}

int CIPC2581_Pt::Export(CStdioFile & file, int level)
{
    if (Type == ipc2581::StepTypes::Segment) {
        WritePolyStepSegment(file, level, EndPoint);
    }
    else if (Type == ipc2581::StepTypes::Curve) {
        WritePolyStepCurve(file, level, EndPoint, CenterPoint, ClockWise);
    }
    else {
        // A file class of the host's own gets an empty text.
        file.WriteString("");
    }
    return 1;
}

void CIPC2581_Pt::Init()
{
    Type = ipc2581::StepTypes::Segment;
    EndPoint.SetData(0.0, 0.0);
    CenterPoint.SetData(0.0, 0.0);
    ClockWise = 1;
}

CIPC2581_PtArray::CIPC2581_PtArray() = default;

CIPC2581_PtArray::CIPC2581_PtArray(const CIPC2581_PtArray & other) : CIPC2581_PtArray()
{
    AssignClones(*this, other);
}

CIPC2581_PtArray::~CIPC2581_PtArray()
{
    DeleteAll();
}

CIPC2581_PtArray * CIPC2581_PtArray::clone() const
{
    return new CIPC2581_PtArray(*this);
}

CIPC2581_PtArray & CIPC2581_PtArray::operator=(const CIPC2581_PtArray & other)
{
    AssignClones(*this, other);
    return *this;
}

int CIPC2581_PtArray::Export(CStdioFile & file, int level)
{
    if (IsEmpty()) {
        return 1;
    }
    const CPointD & begin = GetAt(0)->EndPoint;
    WriteLine(file, "%s<PolyBegin x=\"%f\" y=\"%f\" />\n", Indent(level + 1), begin.X, begin.Y);
    return ExportElements(*this, file, level, 1);
}

void CIPC2581_PtArray::DeduplicationCheck()
{
    DeleteEqualNeighbours(*this);
}
