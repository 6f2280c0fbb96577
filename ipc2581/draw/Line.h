#ifndef IPC2581_DRAW_LINE_H
#define IPC2581_DRAW_LINE_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/WithoutParts.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/draw/DrawObj.h"
#include "ipc2581/draw/LineDesc.h"
#include "ipc2581/draw/Point.h"

// A straight stroke: the Line element of a feature set.
class IPC2581_API CIPC2581_Line : public CIPC2581_DrawObj, public CIPC2581_XmlDataAdd_Function {
public:
    // Owned and never null.
    CIPC2581_Point * StartPoint = nullptr;
    CIPC2581_Point * EndPoint = nullptr;
    CIPC2581_LineDesc * LineDesc = nullptr;

    CIPC2581_Line();
    // For a reader: with its parts in the same blocks.
    explicit CIPC2581_Line(ipc2581::detail::ObjectBlocks & blocks);
    CIPC2581_Line(const CIPC2581_Line & other);
    ~CIPC2581_Line() override;
    using CIPC2581_DrawObj::clone;
    using CIPC2581_DrawObj::Import;
    using CIPC2581_DrawObj::operator=;
    // Reads the LineDesc up to the line with "/Line" and gives 1. The end points stand on the opening line, which the
    // caller has taken.
    int Import(CStdioFile & file) override;
    int Export(CStdioFile & file, int level) override;
    // A true copy with parts of its own.
    virtual CIPC2581_Line * clone();
    // Copies the parts by value and leaves the draw type.
    virtual CIPC2581_Line & operator=(const CIPC2581_Line & other);

    // Resets the parts in place.
    void Init();
    CIPC2581_Point * GetStartPoint() const { return StartPoint; }
    CIPC2581_Point * GetEndPoint() const { return EndPoint; }
    CIPC2581_LineDesc * GetLineDesc() const { return LineDesc; }
    // The setters copy the value; the argument stays the caller's.
    void SetStartPoint(CIPC2581_Point * point) { *StartPoint = *point; }
    void SetEndPoint(CIPC2581_Point * point) { *EndPoint = *point; }
    void SetLineDesc(CIPC2581_LineDesc * lineDesc) { *LineDesc = *lineDesc; }
    // Sets both points, and copies the line description.
    void SetData(double x1, double y1, double x2, double y2, CIPC2581_LineDesc * desc);

private:
    explicit CIPC2581_Line(ipc2581::detail::WithoutParts /*tag*/) {}
};

template <>
struct ipc2581::Fields<CIPC2581_Line> {
    using Object = CIPC2581_Line;
    static constexpr std::string_view Name = "CIPC2581_Line";
    static constexpr auto Line =
        Element<Object>("Line", Number("startX=", &Object::StartPoint, &CIPC2581_Point::Point, &CPointD::X),
                        Number("startY=", &Object::StartPoint, &CIPC2581_Point::Point, &CPointD::Y),
                        Number("endX=", &Object::EndPoint, &CIPC2581_Point::Point, &CPointD::X),
                        Number("endY=", &Object::EndPoint, &CIPC2581_Point::Point, &CPointD::Y));
    static constexpr auto Elements = Pack{Line};
    static constexpr auto Members =
        Pack{Member{"DrawType", &Object::DrawType}, Member{"StartPoint", &Object::StartPoint},
             Member{"EndPoint", &Object::EndPoint}, Member{"LineDesc", &Object::LineDesc, "LineDesc"}};
};

#endif
