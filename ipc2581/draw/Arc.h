#ifndef IPC2581_DRAW_ARC_H
#define IPC2581_DRAW_ARC_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/WithoutParts.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/draw/DrawObj.h"
#include "ipc2581/draw/LineDesc.h"
#include "ipc2581/draw/Point.h"

// A circular stroke: the Arc element. No reader of the library makes one; hosts do, and may read one with Import.
class IPC2581_API CIPC2581_Arc : public CIPC2581_DrawObj, public CIPC2581_XmlDataAdd_Function {
public:
    // Owned and never null.
    CIPC2581_Point * StartPoint = nullptr;
    CIPC2581_Point * EndPoint = nullptr;
    CIPC2581_Point * CenterPoint = nullptr;
    int Clockwise = 0;  // 1 is written as TRUE, anything else as FALSE
    CIPC2581_LineDesc * LineDesc = nullptr;

    CIPC2581_Arc();
    // The points of a copy are at 0, 0: see operator=.
    CIPC2581_Arc(const CIPC2581_Arc & other);
    ~CIPC2581_Arc() override;
    using CIPC2581_DrawObj::clone;
    using CIPC2581_DrawObj::Import;
    using CIPC2581_DrawObj::operator=;
    // Reads on from the opening line, if the caller has left it, and gives 1. Hosts rely on three things: endX and
    // centerX land in the y of their points, no word of a file makes the arc clockwise, and the end is a line with
    // "/Line", so that </Arc> is passed over.
    int Import(CStdioFile & file) override;
    int Export(CStdioFile & file, int level) override;
    virtual CIPC2581_Arc * clone();
    // Copies the direction and the line description; the points of the target stay as they are.
    virtual CIPC2581_Arc & operator=(const CIPC2581_Arc & other);

    // Resets the parts in place.
    void Init();
    CIPC2581_Point * GetStartPoint() const { return StartPoint; }
    CIPC2581_Point * GetEndPoint() const { return EndPoint; }
    CIPC2581_Point * GetCenterPoint() const { return CenterPoint; }
    int GetClockwise() const { return Clockwise; }
    CIPC2581_LineDesc * GetLineDesc() const { return LineDesc; }
    // The setters copy the value; the argument stays the caller's.
    void SetStartPoint(CIPC2581_Point * point) { *StartPoint = *point; }
    void SetEndPoint(CIPC2581_Point * point) { *EndPoint = *point; }
    void SetCenterPoint(CIPC2581_Point * point) { *CenterPoint = *point; }
    void SetClockwise(int clockwise) { Clockwise = clockwise; }
    void SetLineDesc(CIPC2581_LineDesc * lineDesc) { *LineDesc = *lineDesc; }

private:
    explicit CIPC2581_Arc(ipc2581::detail::WithoutParts /*tag*/) {}
};

template <>
struct ipc2581::Fields<CIPC2581_Arc> {
    using Object = CIPC2581_Arc;
    static constexpr std::string_view Name = "CIPC2581_Arc";
    // endX and centerX go to the y of their points, where the later of two attributes wins.
    static constexpr auto Arc =
        Element<Object>("Arc", Number("startX=", &Object::StartPoint, &CIPC2581_Point::Point, &CPointD::X),
                        Number("startY=", &Object::StartPoint, &CIPC2581_Point::Point, &CPointD::Y),
                        Number("endX=", &Object::EndPoint, &CIPC2581_Point::Point, &CPointD::Y),
                        Number("endY=", &Object::EndPoint, &CIPC2581_Point::Point, &CPointD::Y),
                        Number("centerX=", &Object::CenterPoint, &CIPC2581_Point::Point, &CPointD::Y),
                        Number("centerY=", &Object::CenterPoint, &CIPC2581_Point::Point, &CPointD::Y),
                        Attribute{"clockwise=", Reading::ControlFlag, Pack{&Object::Clockwise}});
    static constexpr auto Elements = Pack{Arc};
    static constexpr auto Members =
        Pack{Member{"DrawType", &Object::DrawType},   Member{"StartPoint", &Object::StartPoint},
             Member{"EndPoint", &Object::EndPoint},   Member{"CenterPoint", &Object::CenterPoint},
             Member{"Clockwise", &Object::Clockwise}, Member{"LineDesc", &Object::LineDesc, "LineDesc"}};
};

#endif
