#ifndef IPC2581_CONTENT_DICDRAW_OVAL_H
#define IPC2581_CONTENT_DICDRAW_OVAL_H

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/content/PrimitiveFamilies.h"

// The dictionary primitive Oval.
class IPC2581_API CIPC2581_DicDraw_Oval : public ipc2581::detail::WidthHeightPrimitive {
public:
    CIPC2581_DicDraw_Oval() : WidthHeightPrimitive(ipc2581::DrawTypes::Oval) {}
    CIPC2581_DicDraw_Oval(const CIPC2581_DicDraw_Oval & other) = default;
    ~CIPC2581_DicDraw_Oval() override;
    using CIPC2581_DrawObj::operator=;
    CIPC2581_DicDraw_Oval * clone() const override { return new CIPC2581_DicDraw_Oval(*this); }
    int Export(CStdioFile & file, int level) override { return ExportAs("Oval", file, level); }
    virtual CIPC2581_DicDraw_Oval & operator=(const CIPC2581_DicDraw_Oval & other) = default;

    void Init();
    double GetWidth() const { return Width; }
    void SetWidth(double value) { Width = value; }
    double GetHeight() const { return Height; }
    void SetHeight(double value) { Height = value; }
};

template <>
struct ipc2581::Fields<CIPC2581_DicDraw_Oval> {
    using Object = CIPC2581_DicDraw_Oval;
    static constexpr std::string_view Name = "CIPC2581_DicDraw_Oval";
    static constexpr auto Oval = Fields<detail::WidthHeightPrimitive>::Size.Of("Oval");
    static constexpr auto Elements = Pack{Oval};
    static constexpr auto Members =
        Pack{Member{"DrawType", &Object::DrawType}, Member{"Width", &Object::Width}, Member{"Height", &Object::Height}};
};

#endif
