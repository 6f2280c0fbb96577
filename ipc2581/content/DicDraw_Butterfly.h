#ifndef IPC2581_CONTENT_DICDRAW_BUTTERFLY_H
#define IPC2581_CONTENT_DICDRAW_BUTTERFLY_H

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/content/Primitive.h"

// The dictionary primitive Butterfly. Written with a capital Shape=, which its reader does not look for; a butterfly
// whose shape was never read is not written at all.
class IPC2581_API CIPC2581_DicDraw_Butterfly : public ipc2581::detail::Primitive {
public:
    int Shape = ipc2581::OuterForms::Unknown;  // code of the outer form, -1 where none was read
    double Size = 0.0;

    CIPC2581_DicDraw_Butterfly() : Primitive(ipc2581::DrawTypes::Butterfly) {}
    CIPC2581_DicDraw_Butterfly(const CIPC2581_DicDraw_Butterfly & other) = default;
    ~CIPC2581_DicDraw_Butterfly() override;
    using CIPC2581_DrawObj::operator=;
    using Primitive::Import;
    CIPC2581_DicDraw_Butterfly * clone() const override { return new CIPC2581_DicDraw_Butterfly(*this); }
    int Import(CArray<CString, CString> & tokens) override;
    int Export(CStdioFile & file, int level) override;
    virtual CIPC2581_DicDraw_Butterfly & operator=(const CIPC2581_DicDraw_Butterfly & other) = default;
};

template <>
struct ipc2581::Fields<CIPC2581_DicDraw_Butterfly> {
    using Object = CIPC2581_DicDraw_Butterfly;
    static constexpr std::string_view Name = "CIPC2581_DicDraw_Butterfly";
    static constexpr auto Butterfly =
        Element<Object>("Butterfly", Attribute{"shape", Reading::RoundOrSquare, Pack{&Object::Shape}},
                        Number("diameter", &Object::Size), Number("side", &Object::Size));
    static constexpr auto Elements = Pack{Butterfly};
    static constexpr auto Members =
        Pack{Member{"DrawType", &Object::DrawType}, Member{"Shape", &Object::Shape}, Member{"Size", &Object::Size}};
};

#endif
