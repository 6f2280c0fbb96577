#ifndef IPC2581_CONTENT_DICDRAW_THERMAL_H
#define IPC2581_CONTENT_DICDRAW_THERMAL_H

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/content/Primitive.h"

// The dictionary primitive Thermal. The spoke count is read and kept, but always written as 4.
class IPC2581_API CIPC2581_DicDraw_Thermal : public ipc2581::detail::Primitive {
public:
    int Shape = ipc2581::OuterForms::Unknown;  // code of the outer form, -1 where none was read
    double OuterDiameter = 0.0;
    double InnerDiameter = 0.0;
    int SpokeCount = 0;
    double Gap = 0.0;
    double SpokeStartAngle = 0.0;

    CIPC2581_DicDraw_Thermal() : Primitive(ipc2581::DrawTypes::Thermal) {}
    CIPC2581_DicDraw_Thermal(const CIPC2581_DicDraw_Thermal & other) = default;
    ~CIPC2581_DicDraw_Thermal() override;
    using CIPC2581_DrawObj::operator=;
    using Primitive::Import;
    CIPC2581_DicDraw_Thermal * clone() const override { return new CIPC2581_DicDraw_Thermal(*this); }
    int Import(CArray<CString, CString> & tokens) override;
    int Export(CStdioFile & file, int level) override;
    virtual CIPC2581_DicDraw_Thermal & operator=(const CIPC2581_DicDraw_Thermal & other) = default;

    void Init();
    int GetShape() const { return Shape; }
    void SetShape(int value) { Shape = value; }
    double GetOuterDiameter() const { return OuterDiameter; }
    void SetOuterDiameter(double value) { OuterDiameter = value; }
    double GetInnerDiameter() const { return InnerDiameter; }
    void SetInnerDiameter(double value) { InnerDiameter = value; }
    int GetSpokeCount() const { return SpokeCount; }
    void SetSpokeCount(int value) { SpokeCount = value; }
    double GetGap() const { return Gap; }
    void SetGap(double value) { Gap = value; }
    double GetSpokeStartAngle() const { return SpokeStartAngle; }
    void SetSpokeStartAngle(double value) { SpokeStartAngle = value; }
};

template <>
struct ipc2581::Fields<CIPC2581_DicDraw_Thermal> {
    using Object = CIPC2581_DicDraw_Thermal;
    static constexpr std::string_view Name = "CIPC2581_DicDraw_Thermal";
    static constexpr auto Thermal =
        Element<Object>("Thermal", Attribute{"shape", Reading::OuterForm, Pack{&Object::Shape}},
                        Number("outerDiameter", &Object::OuterDiameter),
                        Number("innerDiameter", &Object::InnerDiameter), Integer("spokeCount", &Object::SpokeCount),
                        Number("gap", &Object::Gap), Number("spokeStartAngle", &Object::SpokeStartAngle));
    static constexpr auto Elements = Pack{Thermal};
    static constexpr auto Members = Pack{Member{"DrawType", &Object::DrawType},
                                         Member{"Shape", &Object::Shape},
                                         Member{"OuterDiameter", &Object::OuterDiameter},
                                         Member{"InnerDiameter", &Object::InnerDiameter},
                                         Member{"SpokeCount", &Object::SpokeCount},
                                         Member{"Gap", &Object::Gap},
                                         Member{"SpokeStartAngle", &Object::SpokeStartAngle}};
};

#endif
