#ifndef IPC2581_CONTENT_DICDRAW_RECTCHAM_H
#define IPC2581_CONTENT_DICDRAW_RECTCHAM_H

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/content/PrimitiveFamilies.h"

// The dictionary primitive RectCham. A corner flag is set only by "TURE" and written as "TRUE", without a blank between
// two of them.
class IPC2581_API CIPC2581_DicDraw_RectCham : public ipc2581::detail::Primitive {
public:
    double Width = 0.0;
    double Height = 0.0;
    double Chamfer = 0.0;
    int UpperRight = 0;
    int UpperLeft = 0;
    int LowerLeft = 0;
    int LowerRight = 0;

    CIPC2581_DicDraw_RectCham() : Primitive(ipc2581::DrawTypes::RectCham) {}
    CIPC2581_DicDraw_RectCham(const CIPC2581_DicDraw_RectCham & other) = default;
    ~CIPC2581_DicDraw_RectCham() override;
    using CIPC2581_DrawObj::operator=;
    using Primitive::Import;
    CIPC2581_DicDraw_RectCham * clone() const override { return new CIPC2581_DicDraw_RectCham(*this); }
    int Import(CArray<CString, CString> & tokens) override;
    int Export(CStdioFile & file, int level) override;
    virtual CIPC2581_DicDraw_RectCham & operator=(const CIPC2581_DicDraw_RectCham & other) = default;

    void Init();
    double GetWidth() const { return Width; }
    void SetWidth(double value) { Width = value; }
    double GetHeight() const { return Height; }
    void SetHeight(double value) { Height = value; }
    double GetChamfer() const { return Chamfer; }
    void SetChamfer(double value) { Chamfer = value; }
    int GetUpperRight() const { return UpperRight; }
    void SetUpperRight(int value) { UpperRight = value; }
    int GetUpperLeft() const { return UpperLeft; }
    void SetUpperLeft(int value) { UpperLeft = value; }
    int GetLowerLeft() const { return LowerLeft; }
    void SetLowerLeft(int value) { LowerLeft = value; }
    int GetLowerRight() const { return LowerRight; }
    void SetLowerRight(int value) { LowerRight = value; }
};

template <>
struct ipc2581::Fields<CIPC2581_DicDraw_RectCham> {
    using Object = CIPC2581_DicDraw_RectCham;
    static constexpr std::string_view Name = "CIPC2581_DicDraw_RectCham";
    static constexpr auto RectCham = detail::CorneredRectElement("RectCham", "chamfer", &Object::Chamfer);
    static constexpr auto Elements = Pack{RectCham};
    static constexpr auto Members =
        Pack{Member{"DrawType", &Object::DrawType},     Member{"Width", &Object::Width},
             Member{"Height", &Object::Height},         Member{"Chamfer", &Object::Chamfer},
             Member{"UpperRight", &Object::UpperRight}, Member{"UpperLeft", &Object::UpperLeft},
             Member{"LowerLeft", &Object::LowerLeft},   Member{"LowerRight", &Object::LowerRight}};
};

#endif
