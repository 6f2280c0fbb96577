#ifndef IPC2581_DRAW_POLYGON_H
#define IPC2581_DRAW_POLYGON_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/draw/ContourShape.h"

// A closed contour: the Polygon element. Nothing closes it, the last step may end anywhere.
// Its begin point and steps are those of every contour.
class IPC2581_API CIPC2581_Polygon : public ipc2581::detail::ContourShape {
public:
    CIPC2581_Polygon();
    // For a reader: with its parts in the same blocks.
    explicit CIPC2581_Polygon(ipc2581::detail::ObjectBlocks & blocks);
    CIPC2581_Polygon(const CIPC2581_Polygon & other);
    ~CIPC2581_Polygon() override;
    using CIPC2581_DrawObj::clone;
    using CIPC2581_DrawObj::Import;
    using CIPC2581_DrawObj::operator=;
    // Reads up to the line with "/Polygon" and gives 1. Steps are added to those that are there.
    int Import(CStdioFile & file) override;
    int Export(CStdioFile & file, int level) override;
    // A true copy with parts of its own.
    virtual CIPC2581_Polygon * clone();
    // Copies begin point and steps by value and leaves the draw type.
    virtual CIPC2581_Polygon & operator=(const CIPC2581_Polygon & other);

    // Empties the polygon; its parts stay the same objects.
    void InIt();
};

template <>
struct ipc2581::Fields<CIPC2581_Polygon> {
    using Object = CIPC2581_Polygon;
    static constexpr std::string_view Name = "CIPC2581_Polygon";
    static constexpr auto Elements = Pack<>{};
    static constexpr auto Members =
        Pack{Member{"DrawType", &Object::DrawType}, Member{"PolyBegin", &Object::PolyBegin, "PolyBegin"},
             Member{"PolyStepArray", &Object::PolyStepArray}};
};

#endif
