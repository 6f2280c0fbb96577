#ifndef IPC2581_CONTENT_DICDRAW_DONUT_H
#define IPC2581_CONTENT_DICDRAW_DONUT_H

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/content/Primitive.h"

// The dictionary primitive Donut. Written under the name Diamond, with a capital Shape=.
class IPC2581_API CIPC2581_DicDraw_Donut : public ipc2581::detail::Primitive {
public:
    int Shape = ipc2581::OuterForms::Unknown;  // code of the outer form, -1 where none was read
    double OuterDiameter = 0.0;
    double InnerDiameter = 0.0;

    CIPC2581_DicDraw_Donut() : Primitive(ipc2581::DrawTypes::Donut) {}
    CIPC2581_DicDraw_Donut(const CIPC2581_DicDraw_Donut & other) = default;
    ~CIPC2581_DicDraw_Donut() override;
    using CIPC2581_DrawObj::operator=;
    using Primitive::Import;
    CIPC2581_DicDraw_Donut * clone() const override { return new CIPC2581_DicDraw_Donut(*this); }
    int Import(CArray<CString, CString> & tokens) override;
    int Export(CStdioFile & file, int level) override;
    virtual CIPC2581_DicDraw_Donut & operator=(const CIPC2581_DicDraw_Donut & other) = default;

    void Init();
    int GetShape() const { return Shape; }
    void SetShape(int value) { Shape = value; }
    double GetOuterDiameter() const { return OuterDiameter; }
    void SetOuterDiameter(double value) { OuterDiameter = value; }
    double GetInnerDiameter() const { return InnerDiameter; }
    void SetInnerDiameter(double value) { InnerDiameter = value; }
};

template <>
struct ipc2581::Fields<CIPC2581_DicDraw_Donut> {
    using Object = CIPC2581_DicDraw_Donut;
    static constexpr std::string_view Name = "CIPC2581_DicDraw_Donut";
    static constexpr auto Donut = Element<Object>("Donut", Attribute{"shape", Reading::OuterForm, Pack{&Object::Shape}},
                                                  Number("outerDiameter", &Object::OuterDiameter),
                                                  Number("innerDiameter", &Object::InnerDiameter));
    static constexpr auto Elements = Pack{Donut};
    static constexpr auto Members =
        Pack{Member{"DrawType", &Object::DrawType}, Member{"Shape", &Object::Shape},
             Member{"OuterDiameter", &Object::OuterDiameter}, Member{"InnerDiameter", &Object::InnerDiameter}};
};

#endif
