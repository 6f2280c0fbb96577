#ifndef IPC2581_CONTENT_DICDRAW_RECTCENTER_H
#define IPC2581_CONTENT_DICDRAW_RECTCENTER_H

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/content/PrimitiveFamilies.h"

// The dictionary primitive RectCenter.
class IPC2581_API CIPC2581_DicDraw_RectCenter : public ipc2581::detail::WidthHeightPrimitive {
public:
    CIPC2581_DicDraw_RectCenter() : WidthHeightPrimitive(ipc2581::DrawTypes::RectCenter) {}
    CIPC2581_DicDraw_RectCenter(const CIPC2581_DicDraw_RectCenter & other) = default;
    ~CIPC2581_DicDraw_RectCenter() override;
    using CIPC2581_DrawObj::operator=;
    CIPC2581_DicDraw_RectCenter * clone() const override { return new CIPC2581_DicDraw_RectCenter(*this); }
    int Export(CStdioFile & file, int level) override { return ExportAs("RectCenter", file, level); }
    virtual CIPC2581_DicDraw_RectCenter & operator=(const CIPC2581_DicDraw_RectCenter & other) = default;

    void Init();
    double GetWidth() const { return Width; }
    void SetWidth(double value) { Width = value; }
    double GetHeight() const { return Height; }
    void SetHeight(double value) { Height = value; }
};

template <>
struct ipc2581::Fields<CIPC2581_DicDraw_RectCenter> {
    using Object = CIPC2581_DicDraw_RectCenter;
    static constexpr std::string_view Name = "CIPC2581_DicDraw_RectCenter";
    static constexpr auto RectCenter = Fields<detail::WidthHeightPrimitive>::Size.Of("RectCenter");
    static constexpr auto Elements = Pack{RectCenter};
    static constexpr auto Members =
        Pack{Member{"DrawType", &Object::DrawType}, Member{"Width", &Object::Width}, Member{"Height", &Object::Height}};
};

#endif
