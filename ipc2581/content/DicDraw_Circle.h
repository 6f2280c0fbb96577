#ifndef IPC2581_CONTENT_DICDRAW_CIRCLE_H
#define IPC2581_CONTENT_DICDRAW_CIRCLE_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/content/Primitive.h"

// The dictionary primitive Circle. The offsets are for hosts alone: neither read nor written nor copied.
class IPC2581_API CIPC2581_DicDraw_Circle : public ipc2581::detail::Primitive {
public:
    double Diameter = 0.0;
    double OffsetX = 0.0;
    double OffsetY = 0.0;

    CIPC2581_DicDraw_Circle();
    CIPC2581_DicDraw_Circle(const CIPC2581_DicDraw_Circle & other);
    ~CIPC2581_DicDraw_Circle() override;
    using CIPC2581_DrawObj::operator=;
    using Primitive::Import;
    CIPC2581_DicDraw_Circle * clone() const override { return new CIPC2581_DicDraw_Circle(*this); }
    int Import(CArray<CString, CString> & tokens) override;
    int Export(CStdioFile & file, int level) override;
    virtual CIPC2581_DicDraw_Circle & operator=(const CIPC2581_DicDraw_Circle & other);

    void Init();
    double GetDiameter() const { return Diameter; }
    void SetDiameter(double value) { Diameter = value; }
    double GetOffsetX() const { return OffsetX; }
    void SetOffsetX(double value) { OffsetX = value; }
    double GetOffsetY() const { return OffsetY; }
    void SetOffsetY(double value) { OffsetY = value; }
};

template <>
struct ipc2581::Fields<CIPC2581_DicDraw_Circle> {
    using Object = CIPC2581_DicDraw_Circle;
    static constexpr std::string_view Name = "CIPC2581_DicDraw_Circle";
    static constexpr auto Circle = Element<Object>("Circle", Number("diameter", &Object::Diameter));
    static constexpr auto Elements = Pack{Circle};
    static constexpr auto Members = Pack{Member{"DrawType", &Object::DrawType}, Member{"Diameter", &Object::Diameter},
                                         Member{"OffsetX", &Object::OffsetX}, Member{"OffsetY", &Object::OffsetY}};
};

#endif
