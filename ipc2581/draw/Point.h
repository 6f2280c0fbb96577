#ifndef IPC2581_DRAW_POINT_H
#define IPC2581_DRAW_POINT_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/PointD.h"
#include "ipc2581/base/platform/CStdioFile.h"

// A coordinate pair on the heap: every start, end, centre and begin point of a shape is one. Copies are deep.
class IPC2581_API CIPC2581_Point {
public:
    // Owned and never null. It stays the same object through Init, so that pointers got from GetPoint stay good.
    CPointD * Point;

    CIPC2581_Point();
    // For a reader: with its coordinates in the same blocks.
    explicit CIPC2581_Point(ipc2581::detail::ObjectBlocks & blocks);
    CIPC2581_Point(const CIPC2581_Point & other);
    virtual ~CIPC2581_Point();
    virtual CIPC2581_Point * clone();
    virtual CIPC2581_Point & operator=(const CIPC2581_Point & other);
    // Reads nothing and gives 1.
    virtual int Import(CStdioFile & file);
    // Writes the one line that a point can write, a PolyBegin, whatever its role, and gives 1.
    virtual int Export(CStdioFile & file, int level);

    // Puts the point back to 0, 0.
    void Init();
    CPointD * GetPoint() const { return Point; }
    double GetPoint_X() const { return Point->X; }
    double GetPoint_Y() const { return Point->Y; }
    // Copies the value; the argument stays the caller's.
    void SetPoint(CPointD * p) { *Point = *p; }
    void SetPoint_X(double x) { Point->X = x; }
    void SetPoint_Y(double y) { Point->Y = y; }
};

template <>
struct ipc2581::Fields<CIPC2581_Point> {
    using Object = CIPC2581_Point;
    static constexpr std::string_view Name = "CIPC2581_Point";
    static constexpr auto PolyBegin = Element<Object>("PolyBegin", Number("x=", &Object::Point, &CPointD::X),
                                                      Number("y=", &Object::Point, &CPointD::Y));
    static constexpr auto Elements = Pack{PolyBegin};
    static constexpr auto Members = Pack{Member{"Point", &Object::Point}};
};

#endif
