#ifndef IPC2581_CONTENT_DICDRAW_RECTCORNER_H
#define IPC2581_CONTENT_DICDRAW_RECTCORNER_H

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/content/Primitive.h"

// The dictionary primitive RectCorner.
class IPC2581_API CIPC2581_DicDraw_RectCorner : public ipc2581::detail::Primitive {
public:
    double Lower_LeftX = 0.0;
    double Lower_LeftY = 0.0;
    double Upper_RightX = 0.0;
    double Upper_RightY = 0.0;

    CIPC2581_DicDraw_RectCorner() : Primitive(ipc2581::DrawTypes::RectCorner) {}
    CIPC2581_DicDraw_RectCorner(const CIPC2581_DicDraw_RectCorner & other) = default;
    ~CIPC2581_DicDraw_RectCorner() override;
    using CIPC2581_DrawObj::operator=;
    using Primitive::Import;
    CIPC2581_DicDraw_RectCorner * clone() const override { return new CIPC2581_DicDraw_RectCorner(*this); }
    int Import(CArray<CString, CString> & tokens) override;
    int Export(CStdioFile & file, int level) override;
    virtual CIPC2581_DicDraw_RectCorner & operator=(const CIPC2581_DicDraw_RectCorner & other) = default;

    void Init();
    double GetLower_LeftX() const { return Lower_LeftX; }
    void SetLower_LeftX(double value) { Lower_LeftX = value; }
    double GetLower_LeftY() const { return Lower_LeftY; }
    void SetLower_LeftY(double value) { Lower_LeftY = value; }
    double GetUpper_RightX() const { return Upper_RightX; }
    void SetUpper_RightX(double value) { Upper_RightX = value; }
    double GetUpper_RightY() const { return Upper_RightY; }
    void SetUpper_RightY(double value) { Upper_RightY = value; }
};

template <>
struct ipc2581::Fields<CIPC2581_DicDraw_RectCorner> {
    using Object = CIPC2581_DicDraw_RectCorner;
    static constexpr std::string_view Name = "CIPC2581_DicDraw_RectCorner";
    static constexpr auto RectCorner = Element<Object>(
        "RectCorner", Number("lowerLeftX", &Object::Lower_LeftX), Number("lowerLeftY", &Object::Lower_LeftY),
        Number("upperRightX", &Object::Upper_RightX), Number("upperRightY", &Object::Upper_RightY));
    static constexpr auto Elements = Pack{RectCorner};
    static constexpr auto Members =
        Pack{Member{"DrawType", &Object::DrawType}, Member{"Lower_LeftX", &Object::Lower_LeftX},
             Member{"Lower_LeftY", &Object::Lower_LeftY}, Member{"Upper_RightX", &Object::Upper_RightX},
             Member{"Upper_RightY", &Object::Upper_RightY}};
};

#endif
