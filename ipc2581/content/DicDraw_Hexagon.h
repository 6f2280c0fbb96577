#ifndef IPC2581_CONTENT_DICDRAW_HEXAGON_H
#define IPC2581_CONTENT_DICDRAW_HEXAGON_H

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/content/PrimitiveFamilies.h"

// The dictionary primitive Hexagon.
class IPC2581_API CIPC2581_DicDraw_Hexagon : public ipc2581::detail::LengthPrimitive {
public:
    CIPC2581_DicDraw_Hexagon() : LengthPrimitive(ipc2581::DrawTypes::Hexagon) {}
    CIPC2581_DicDraw_Hexagon(const CIPC2581_DicDraw_Hexagon & other) = default;
    ~CIPC2581_DicDraw_Hexagon() override;
    using CIPC2581_DrawObj::operator=;
    CIPC2581_DicDraw_Hexagon * clone() const override { return new CIPC2581_DicDraw_Hexagon(*this); }
    int Export(CStdioFile & file, int level) override { return ExportAs("Hexagon", file, level); }
    virtual CIPC2581_DicDraw_Hexagon & operator=(const CIPC2581_DicDraw_Hexagon & other) = default;
};

template <>
struct ipc2581::Fields<CIPC2581_DicDraw_Hexagon> {
    using Object = CIPC2581_DicDraw_Hexagon;
    static constexpr std::string_view Name = "CIPC2581_DicDraw_Hexagon";
    static constexpr auto Hexagon = Fields<detail::LengthPrimitive>::Size.Of("Hexagon");
    static constexpr auto Elements = Pack{Hexagon};
    static constexpr auto Members = Pack{Member{"DrawType", &Object::DrawType}, Member{"Length", &Object::Length}};
};

#endif
