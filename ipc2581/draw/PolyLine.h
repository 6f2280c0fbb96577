#ifndef IPC2581_DRAW_POLYLINE_H
#define IPC2581_DRAW_POLYLINE_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/draw/ContourShape.h"
#include "ipc2581/draw/LineDesc.h"

// An open contour with its stroke: the Polyline element.
// Its begin point and steps are those of every contour.
class IPC2581_API CIPC2581_PolyLine : public ipc2581::detail::ContourShape {
public:
    // Owned and never null.
    CIPC2581_LineDesc * LineDesc = nullptr;

    CIPC2581_PolyLine();
    // For a reader: with its parts in the same blocks.
    explicit CIPC2581_PolyLine(ipc2581::detail::ObjectBlocks & blocks);
    CIPC2581_PolyLine(const CIPC2581_PolyLine & other);
    ~CIPC2581_PolyLine() override;
    using CIPC2581_DrawObj::clone;
    using CIPC2581_DrawObj::Import;
    using CIPC2581_DrawObj::operator=;
    // Reads up to the line with "/Polyline" and gives 1. Steps are added to those that are there.
    int Import(CStdioFile & file) override;
    int Export(CStdioFile & file, int level) override;
    // A true copy with parts of its own.
    virtual CIPC2581_PolyLine * clone();
    // Copies the draw type and the parts by value.
    virtual CIPC2581_PolyLine & operator=(const CIPC2581_PolyLine & other);

    // Empties the polyline; its parts stay the same objects.
    void Init();
    CIPC2581_LineDesc * GetLineDesc() const { return LineDesc; }
    // Copies the value; the argument stays the caller's.
    void SetLineDesc(CIPC2581_LineDesc * lineDesc) { *LineDesc = *lineDesc; }
};

template <>
struct ipc2581::Fields<CIPC2581_PolyLine> {
    using Object = CIPC2581_PolyLine;
    static constexpr std::string_view Name = "CIPC2581_PolyLine";
    static constexpr auto Elements = Pack<>{};
    static constexpr auto Members =
        Pack{Member{"DrawType", &Object::DrawType}, Member{"PolyBegin", &Object::PolyBegin, "PolyBegin"},
             Member{"PolyStepArray", &Object::PolyStepArray}, Member{"LineDesc", &Object::LineDesc, "LineDesc"}};
};

#endif
