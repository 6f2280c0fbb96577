#ifndef IPC2581_CONTENT_DICDRAW_TRIANGLE_H
#define IPC2581_CONTENT_DICDRAW_TRIANGLE_H

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/content/Primitive.h"

// The dictionary primitive Triangle.
class IPC2581_API CIPC2581_DicDraw_Triangle : public ipc2581::detail::Primitive {
public:
    double Base = 0.0;
    double Height = 0.0;

    CIPC2581_DicDraw_Triangle() : Primitive(ipc2581::DrawTypes::Triangle) {}
    CIPC2581_DicDraw_Triangle(const CIPC2581_DicDraw_Triangle & other) = default;
    ~CIPC2581_DicDraw_Triangle() override;
    using CIPC2581_DrawObj::operator=;
    using Primitive::Import;
    CIPC2581_DicDraw_Triangle * clone() const override { return new CIPC2581_DicDraw_Triangle(*this); }
    int Import(CArray<CString, CString> & tokens) override;
    int Export(CStdioFile & file, int level) override;
    virtual CIPC2581_DicDraw_Triangle & operator=(const CIPC2581_DicDraw_Triangle & other) = default;
};

template <>
struct ipc2581::Fields<CIPC2581_DicDraw_Triangle> {
    using Object = CIPC2581_DicDraw_Triangle;
    static constexpr std::string_view Name = "CIPC2581_DicDraw_Triangle";
    static constexpr auto Triangle =
        Element<Object>("Triangle", Number("base", &Object::Base), Number("height", &Object::Height));
    static constexpr auto Elements = Pack{Triangle};
    static constexpr auto Members =
        Pack{Member{"DrawType", &Object::DrawType}, Member{"Base", &Object::Base}, Member{"Height", &Object::Height}};
};

#endif
