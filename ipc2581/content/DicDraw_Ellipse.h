#ifndef IPC2581_CONTENT_DICDRAW_ELLIPSE_H
#define IPC2581_CONTENT_DICDRAW_ELLIPSE_H

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/content/PrimitiveFamilies.h"

// The dictionary primitive Ellipse.
class IPC2581_API CIPC2581_DicDraw_Ellipse : public ipc2581::detail::WidthHeightPrimitive {
public:
    CIPC2581_DicDraw_Ellipse() : WidthHeightPrimitive(ipc2581::DrawTypes::Ellipse) {}
    CIPC2581_DicDraw_Ellipse(const CIPC2581_DicDraw_Ellipse & other) = default;
    ~CIPC2581_DicDraw_Ellipse() override;
    using CIPC2581_DrawObj::operator=;
    CIPC2581_DicDraw_Ellipse * clone() const override { return new CIPC2581_DicDraw_Ellipse(*this); }
    int Export(CStdioFile & file, int level) override { return ExportAs("Ellipse", file, level); }
    virtual CIPC2581_DicDraw_Ellipse & operator=(const CIPC2581_DicDraw_Ellipse & other) = default;
};

template <>
struct ipc2581::Fields<CIPC2581_DicDraw_Ellipse> {
    using Object = CIPC2581_DicDraw_Ellipse;
    static constexpr std::string_view Name = "CIPC2581_DicDraw_Ellipse";
    static constexpr auto Ellipse = Fields<detail::WidthHeightPrimitive>::Size.Of("Ellipse");
    static constexpr auto Elements = Pack{Ellipse};
    static constexpr auto Members =
        Pack{Member{"DrawType", &Object::DrawType}, Member{"Width", &Object::Width}, Member{"Height", &Object::Height}};
};

#endif
