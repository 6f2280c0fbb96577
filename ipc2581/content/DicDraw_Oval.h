#ifndef IPC2581_CONTENT_DICDRAW_OVAL_H
#define IPC2581_CONTENT_DICDRAW_OVAL_H

#include "ipc2581/base/Export.h"
#include "ipc2581/content/Primitive.h"

// The dictionary primitive Oval.
class IPC2581_API CIPC2581_DicDraw_Oval : public ipc2581::detail::Primitive {
public:
    double Width = 0.0;
    double Height = 0.0;

    CIPC2581_DicDraw_Oval() : Primitive(10) {}
    CIPC2581_DicDraw_Oval(const CIPC2581_DicDraw_Oval & other) = default;
    ~CIPC2581_DicDraw_Oval() override;
    using CIPC2581_DrawObj::operator=;
    using Primitive::Import;
    CIPC2581_DicDraw_Oval * clone() const override { return new CIPC2581_DicDraw_Oval(*this); }
    int Import(CArray<CString, CString> & tokens) override;
    int Export(CStdioFile & file, int level) override;
    virtual CIPC2581_DicDraw_Oval & operator=(const CIPC2581_DicDraw_Oval & other) = default;

    void Init();
    double GetWidth() const { return Width; }
    void SetWidth(double value) { Width = value; }
    double GetHeight() const { return Height; }
    void SetHeight(double value) { Height = value; }
};

#endif
