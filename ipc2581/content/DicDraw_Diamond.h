#ifndef IPC2581_CONTENT_DICDRAW_DIAMOND_H
#define IPC2581_CONTENT_DICDRAW_DIAMOND_H

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/content/PrimitiveFamilies.h"

// The dictionary primitive Diamond.
class IPC2581_API CIPC2581_DicDraw_Diamond : public ipc2581::detail::WidthHeightPrimitive {
public:
    CIPC2581_DicDraw_Diamond() : WidthHeightPrimitive(ipc2581::DrawTypes::Diamond) {}
    CIPC2581_DicDraw_Diamond(const CIPC2581_DicDraw_Diamond & other) = default;
    ~CIPC2581_DicDraw_Diamond() override;
    using CIPC2581_DrawObj::operator=;
    CIPC2581_DicDraw_Diamond * clone() const override { return new CIPC2581_DicDraw_Diamond(*this); }
    int Export(CStdioFile & file, int level) override { return ExportAs("Diamond", file, level); }
    virtual CIPC2581_DicDraw_Diamond & operator=(const CIPC2581_DicDraw_Diamond & other) = default;
};

template <>
struct ipc2581::Fields<CIPC2581_DicDraw_Diamond> {
    using Object = CIPC2581_DicDraw_Diamond;
    static constexpr std::string_view Name = "CIPC2581_DicDraw_Diamond";
    static constexpr auto Diamond = Fields<detail::WidthHeightPrimitive>::Size.Of("Diamond");
    static constexpr auto Elements = Pack{Diamond};
    static constexpr auto Members =
        Pack{Member{"DrawType", &Object::DrawType}, Member{"Width", &Object::Width}, Member{"Height", &Object::Height}};
};

#endif
