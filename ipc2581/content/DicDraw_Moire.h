#ifndef IPC2581_CONTENT_DICDRAW_MOIRE_H
#define IPC2581_CONTENT_DICDRAW_MOIRE_H

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/content/Primitive.h"

// The dictionary primitive Moire. Written with its line length as the diameter and 0 for everything else.
class IPC2581_API CIPC2581_DicDraw_Moire : public ipc2581::detail::Primitive {
public:
    double Diameter = 0.0;
    double RingWidth = 0.0;
    double RingGap = 0.0;
    int RingNumber = 0;
    double LineWidth = 0.0;
    double LineLength = 0.0;
    double LineAngle = 0.0;

    CIPC2581_DicDraw_Moire() : Primitive(ipc2581::DrawTypes::Moire) {}
    CIPC2581_DicDraw_Moire(const CIPC2581_DicDraw_Moire & other) = default;
    ~CIPC2581_DicDraw_Moire() override;
    using CIPC2581_DrawObj::operator=;
    using Primitive::Import;
    CIPC2581_DicDraw_Moire * clone() const override { return new CIPC2581_DicDraw_Moire(*this); }
    int Import(CArray<CString, CString> & tokens) override;
    int Export(CStdioFile & file, int level) override;
    virtual CIPC2581_DicDraw_Moire & operator=(const CIPC2581_DicDraw_Moire & other) = default;
};

template <>
struct ipc2581::Fields<CIPC2581_DicDraw_Moire> {
    using Object = CIPC2581_DicDraw_Moire;
    static constexpr std::string_view Name = "CIPC2581_DicDraw_Moire";
    static constexpr auto Moire =
        Element<Object>("Moire", Number("diameter", &Object::Diameter), Number("ringWidth", &Object::RingWidth),
                        Number("ringGap", &Object::RingGap), Integer("ringNumber", &Object::RingNumber),
                        Number("lineWidth", &Object::LineWidth), Number("lineLength", &Object::LineLength),
                        Number("lineAngle", &Object::LineAngle));
    static constexpr auto Elements = Pack{Moire};
    static constexpr auto Members =
        Pack{Member{"DrawType", &Object::DrawType},     Member{"Diameter", &Object::Diameter},
             Member{"RingWidth", &Object::RingWidth},   Member{"RingGap", &Object::RingGap},
             Member{"RingNumber", &Object::RingNumber}, Member{"LineWidth", &Object::LineWidth},
             Member{"LineLength", &Object::LineLength}, Member{"LineAngle", &Object::LineAngle}};
};

#endif
