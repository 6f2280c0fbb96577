#ifndef IPC2581_DRAW_POLYSTEP_H
#define IPC2581_DRAW_POLYSTEP_H

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/WithoutParts.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/draw/Point.h"

// One step of a contour: a PolyStepSegment or a PolyStepCurve.
class IPC2581_API CIPC2581_PolyStep {
public:
    int Type = ipc2581::StepTypes::Segment;  // 0 a segment; anything else is written as a curve
    // Owned and never null. A segment has a centre too, which is not written.
    CIPC2581_Point * EndPoint = nullptr;
    CIPC2581_Point * CenterPoint = nullptr;
    int ClockWise = 1;  // 1 is written as TRUE, anything else as FALSE

    CIPC2581_PolyStep();
    // For a reader: with its points in the same blocks.
    explicit CIPC2581_PolyStep(ipc2581::detail::ObjectBlocks & blocks);
    CIPC2581_PolyStep(const CIPC2581_PolyStep & other);
    virtual ~CIPC2581_PolyStep();
    // Compares the type and the addresses of the points, so that two steps made separately are never equal.
    virtual int operator==(const CIPC2581_PolyStep & other) const;
    // Always 0.
    virtual int operator!=(const CIPC2581_PolyStep & other) const;
    // Writes the step's line and gives 1.
    virtual int Export(CStdioFile & file, int level);

    CIPC2581_PolyStep & operator=(const CIPC2581_PolyStep & other);
    // A copy with points of its own.
    CIPC2581_PolyStep * clone() const;
    // Resets the points in place.
    void Init();
    int GetType() const { return Type; }
    void SetType(int type) { Type = type; }
    int GetClockWise() const { return ClockWise; }
    void SetClockWise(int clockWise) { ClockWise = clockWise; }
    CIPC2581_Point * GetEndPoint() const { return EndPoint; }
    CIPC2581_Point * GetCenterPoint() const { return CenterPoint; }
    // The setters copy the value; the argument stays the caller's.
    void SetEndPoint(CIPC2581_Point * point) { *EndPoint = *point; }
    void SetEndPointX(double x) { EndPoint->SetPoint_X(x); }
    void SetEndPointY(double y) { EndPoint->SetPoint_Y(y); }
    void SetCenterPoint(CIPC2581_Point * point) { *CenterPoint = *point; }
    void SetCenterPointX(double x) { CenterPoint->SetPoint_X(x); }
    void SetCenterPointY(double y) { CenterPoint->SetPoint_Y(y); }

private:
    explicit CIPC2581_PolyStep(ipc2581::detail::WithoutParts /*tag*/) {}
};

template <>
struct ipc2581::Fields<CIPC2581_PolyStep> {
    using Object = CIPC2581_PolyStep;
    static constexpr std::string_view Name = "CIPC2581_PolyStep";
    static constexpr auto PolyStepSegment =
        Element<Object>("PolyStepSegment", Number("x=", &Object::EndPoint, &CIPC2581_Point::Point, &CPointD::X),
                        Number("y=", &Object::EndPoint, &CIPC2581_Point::Point, &CPointD::Y));
    static constexpr auto PolyStepCurve =
        Element<Object>("PolyStepCurve", Number("x=", &Object::EndPoint, &CIPC2581_Point::Point, &CPointD::X),
                        Number("y=", &Object::EndPoint, &CIPC2581_Point::Point, &CPointD::Y),
                        Number("centerX=", &Object::CenterPoint, &CIPC2581_Point::Point, &CPointD::X),
                        Number("centerY=", &Object::CenterPoint, &CIPC2581_Point::Point, &CPointD::Y),
                        Attribute{"clockwise=", Reading::Direction, Pack{&Object::ClockWise}});
    static constexpr auto Elements = Pack{PolyStepSegment, PolyStepCurve};
    static constexpr auto Members =
        Pack{Member{"Type", &Object::Type}, Member{"EndPoint", &Object::EndPoint},
             Member{"CenterPoint", &Object::CenterPoint}, Member{"ClockWise", &Object::ClockWise}};
};

// The steps of a contour, owned and copied deeply.
class IPC2581_API CIPC2581_PolyStepArray : public CExPtrArray<CIPC2581_PolyStep *, CIPC2581_PolyStep *> {
public:
    CIPC2581_PolyStepArray();
    CIPC2581_PolyStepArray(const CIPC2581_PolyStepArray & other);
    ~CIPC2581_PolyStepArray() override;

    virtual CIPC2581_PolyStepArray * clone() const;
    virtual CIPC2581_PolyStepArray & operator=(const CIPC2581_PolyStepArray & other);
    // Writes each step at the same level; 1 for an empty list.
    virtual int Export(CStdioFile & file, int level);

    // Deletes each element that equals the one in front of it, unless it is a curve: only one and the same object
    // standing twice in a row can, and then the first place is left pointing to the deleted object.
    void DeduplicationCheck();
};

#endif
