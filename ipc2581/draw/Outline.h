#ifndef IPC2581_DRAW_OUTLINE_H
#define IPC2581_DRAW_OUTLINE_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/WithoutParts.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/draw/DrawObj.h"
#include "ipc2581/draw/LineDesc.h"
#include "ipc2581/draw/Polygon.h"

// A polygon with the stroke to draw it: the Outline element.
class IPC2581_API CIPC2581_Outline : public CIPC2581_DrawObj, public CIPC2581_XmlDataAdd_Function {
public:
    // Owned and never null.
    CIPC2581_Polygon * Polygon = nullptr;
    CIPC2581_LineDesc * LineDesc = nullptr;

    CIPC2581_Outline();
    // For a reader: with its parts in the same blocks.
    explicit CIPC2581_Outline(ipc2581::detail::ObjectBlocks & blocks);
    CIPC2581_Outline(const CIPC2581_Outline & other);
    ~CIPC2581_Outline() override;
    using CIPC2581_DrawObj::clone;
    using CIPC2581_DrawObj::Import;
    using CIPC2581_DrawObj::operator=;
    // Reads up to the line with "/Outline" and gives 1. A second Polygon adds its steps to the first.
    int Import(CStdioFile & file) override;
    // Writes nothing if the polygon has no steps. Always gives 1, whatever the parts give.
    int Export(CStdioFile & file, int level) override;
    // A true copy with parts of its own.
    virtual CIPC2581_Outline * clone();
    // Copies the parts by value and leaves the draw type.
    virtual CIPC2581_Outline & operator=(const CIPC2581_Outline & other);

    // Empties the outline; its parts stay the same objects.
    void InIt();
    CIPC2581_Polygon * GetPolygon() const { return Polygon; }
    CIPC2581_LineDesc * GetLineDesc() const { return LineDesc; }
    // The setters copy the value; the argument stays the caller's.
    void SetPolygon(CIPC2581_Polygon * polygon) { *Polygon = *polygon; }
    void SetLineDesc(CIPC2581_LineDesc * lineDesc) { *LineDesc = *lineDesc; }

private:
    explicit CIPC2581_Outline(ipc2581::detail::WithoutParts /*tag*/) {}
};

template <>
struct ipc2581::Fields<CIPC2581_Outline> {
    using Object = CIPC2581_Outline;
    static constexpr std::string_view Name = "CIPC2581_Outline";
    static constexpr auto Elements = Pack<>{};
    static constexpr auto Members =
        Pack{Member{"DrawType", &Object::DrawType}, Member{"Polygon", &Object::Polygon, "Polygon"},
             Member{"LineDesc", &Object::LineDesc, "LineDesc"}};
};

namespace ipc2581::detail {

// Reads the lines under an Outline line up to the one with "/Outline". The polygon is asked for without a slash test.
void ReadOutline(CStdioFile & file, CIPC2581_Polygon *& polygon, CIPC2581_LineDesc *& lineDesc);

}  // namespace ipc2581::detail

#endif
