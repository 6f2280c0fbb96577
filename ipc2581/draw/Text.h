#ifndef IPC2581_DRAW_TEXT_H
#define IPC2581_DRAW_TEXT_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CString.h"
#include "ipc2581/draw/DrawObj.h"
#include "ipc2581/draw/Xform.h"

// A text on a drawing: the string, its font, a transform and a bounding box. It reads and writes nothing, so that a
// text never stands in a written file; hosts fill and read it through its accessors.
class IPC2581_API CIPC2581_Text : public CIPC2581_DrawObj, public CIPC2581_XmlDataAdd_Function {
public:
    CString TextString;
    double FontSize = 0.0;
    CIPC2581_Xform * Xform = nullptr;  // owned and never null
    double BoundingBox_LowLeftX = 0.0;
    double BoundingBox_LowLeftY = 0.0;
    double BoundingBox_UppRightX = 0.0;
    double BoundingBox_UppRightY = 0.0;
    CString FontRefID;
    CString ColorGroupID;

    CIPC2581_Text();
    // For a reader: with its transform in the same blocks.
    explicit CIPC2581_Text(ipc2581::detail::ObjectBlocks & blocks);
    CIPC2581_Text(const CIPC2581_Text & other);
    ~CIPC2581_Text() override;
    using CIPC2581_DrawObj::clone;
    using CIPC2581_DrawObj::Import;
    using CIPC2581_DrawObj::operator=;
    // Reads no line and gives 1.
    int Import(CStdioFile & file) override;
    // Writes nothing and gives 1.
    int Export(CStdioFile & file, int level) override;

    // A true copy with a transform of its own. Neither this nor operator= is virtual.
    CIPC2581_Text * clone();
    // Copies everything but the draw type; the transform by value.
    CIPC2581_Text & operator=(const CIPC2581_Text & other);
    // Resets everything but the draw type. The transform becomes a new one, and the old one lives on: hosts hold
    // pointers to it.
    void Init();

    CString GetTextString() const { return TextString; }
    void SetTextString(CString text) { TextString = text; }
    double GetFontSize() const { return FontSize; }
    void SetFontSize(double size) { FontSize = size; }
    CIPC2581_Xform * GetXform() const { return Xform; }
    // Copies the value; the argument stays the caller's.
    void SetXform(CIPC2581_Xform * p) { *Xform = *p; }
    double GetBoundingBox_LowLeftX() const { return BoundingBox_LowLeftX; }
    void SetBoundingBox_LowLeftX(double x) { BoundingBox_LowLeftX = x; }
    double GetBoundingBox_LowLeftY() const { return BoundingBox_LowLeftY; }
    void SetBoundingBox_LowLeftY(double y) { BoundingBox_LowLeftY = y; }
    double GetBoundingBox_UppRightX() const { return BoundingBox_UppRightX; }
    void SetBoundingBox_UppRightX(double x) { BoundingBox_UppRightX = x; }
    double GetBoundingBox_UppRightY() const { return BoundingBox_UppRightY; }
    void SetBoundingBox_UppRightY(double y) { BoundingBox_UppRightY = y; }
    CString GetFontRefID() const { return FontRefID; }
    void SetFontRefID(CString id) { FontRefID = id; }
    CString GetColorGroupID() const { return ColorGroupID; }
    void SetColorGroupID(CString id) { ColorGroupID = id; }
};

template <>
struct ipc2581::Fields<CIPC2581_Text> {
    using Object = CIPC2581_Text;
    static constexpr std::string_view Name = "CIPC2581_Text";
    static constexpr auto Elements = Pack<>{};
    static constexpr auto Members = Pack{Member{"DrawType", &Object::DrawType},
                                         Member{"TextString", &Object::TextString},
                                         Member{"FontSize", &Object::FontSize},
                                         Member{"Xform", &Object::Xform},
                                         Member{"BoundingBox_LowLeftX", &Object::BoundingBox_LowLeftX},
                                         Member{"BoundingBox_LowLeftY", &Object::BoundingBox_LowLeftY},
                                         Member{"BoundingBox_UppRightX", &Object::BoundingBox_UppRightX},
                                         Member{"BoundingBox_UppRightY", &Object::BoundingBox_UppRightY},
                                         Member{"FontRefID", &Object::FontRefID},
                                         Member{"ColorGroupID", &Object::ColorGroupID}};
};

#endif
