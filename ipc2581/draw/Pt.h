#ifndef IPC2581_DRAW_PT_H
#define IPC2581_DRAW_PT_H

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/PointD.h"
#include "ipc2581/base/platform/CStdioFile.h"

// A contour step held flat: end point and centre by value. No reader makes one; hosts fill the public fields and put it
// into the list of a CIPC2581_DicDraw_Polygon or CIPC2581_DicDraw_Cutout.
class IPC2581_API CIPC2581_Pt {
public:
    int Type = ipc2581::StepTypes::Segment;  // 0 a segment, 1 a curve; anything else is not written
    CPointD EndPoint;
    CPointD CenterPoint;
    int ClockWise = 1;  // 1 is written as TRUE, anything else as FALSE

    CIPC2581_Pt();
    CIPC2581_Pt(const CIPC2581_Pt & other);
    virtual ~CIPC2581_Pt();
    virtual CIPC2581_Pt * clone() const;
    virtual CIPC2581_Pt & operator=(const CIPC2581_Pt & other);
    // 1 if the end points are equal; nothing else counts.
    virtual int operator==(const CIPC2581_Pt & other) const;
    // Not the negation of operator==: 1 only if type, end point, centre and direction all differ.
    virtual int operator!=(const CIPC2581_Pt & other) const;
    // Writes a PolyStepSegment or PolyStepCurve and gives 1.
    virtual int Export(CStdioFile & file, int level);

    void Init();
};

template <>
struct ipc2581::Fields<CIPC2581_Pt> {
    using Object = CIPC2581_Pt;
    static constexpr std::string_view Name = "CIPC2581_Pt";
    static constexpr auto Elements = Pack<>{};
    static constexpr auto Members =
        Pack{Member{"Type", &Object::Type}, Member{"EndPoint", &Object::EndPoint},
             Member{"CenterPoint", &Object::CenterPoint}, Member{"ClockWise", &Object::ClockWise}};
};

// A contour as a list of such steps, which it owns and copies deeply.
class IPC2581_API CIPC2581_PtArray : public CExPtrArray<CIPC2581_Pt *, CIPC2581_Pt *> {
public:
    CIPC2581_PtArray();
    CIPC2581_PtArray(const CIPC2581_PtArray & other);
    ~CIPC2581_PtArray() override;

    virtual CIPC2581_PtArray * clone() const;
    virtual CIPC2581_PtArray & operator=(const CIPC2581_PtArray & other);
    // Writes the first element as the PolyBegin line, whatever its type, and lets the others write themselves, up to
    // the first that gives 0. An empty list writes nothing and gives 1.
    virtual int Export(CStdioFile & file, int level);

    // Deletes each element that equals the one in front of it, unless it is a curve.
    void DeduplicationCheck();
};

#endif
