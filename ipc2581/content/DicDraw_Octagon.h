#ifndef IPC2581_CONTENT_DICDRAW_OCTAGON_H
#define IPC2581_CONTENT_DICDRAW_OCTAGON_H

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/content/PrimitiveFamilies.h"

// The dictionary primitive Octagon.
class IPC2581_API CIPC2581_DicDraw_Octagon : public ipc2581::detail::LengthPrimitive {
public:
    CIPC2581_DicDraw_Octagon() : LengthPrimitive(ipc2581::DrawTypes::Octagon) {}
    CIPC2581_DicDraw_Octagon(const CIPC2581_DicDraw_Octagon & other) = default;
    ~CIPC2581_DicDraw_Octagon() override;
    using CIPC2581_DrawObj::operator=;
    CIPC2581_DicDraw_Octagon * clone() const override { return new CIPC2581_DicDraw_Octagon(*this); }
    int Export(CStdioFile & file, int level) override { return ExportAs("Octagon", file, level); }
    virtual CIPC2581_DicDraw_Octagon & operator=(const CIPC2581_DicDraw_Octagon & other) = default;
};

template <>
struct ipc2581::Fields<CIPC2581_DicDraw_Octagon> {
    using Object = CIPC2581_DicDraw_Octagon;
    static constexpr std::string_view Name = "CIPC2581_DicDraw_Octagon";
    static constexpr auto Octagon = Fields<detail::LengthPrimitive>::Size.Of("Octagon");
    static constexpr auto Elements = Pack{Octagon};
    static constexpr auto Members = Pack{Member{"DrawType", &Object::DrawType}, Member{"Length", &Object::Length}};
};

#endif
