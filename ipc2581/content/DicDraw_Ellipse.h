#ifndef IPC2581_CONTENT_DICDRAW_ELLIPSE_H
#define IPC2581_CONTENT_DICDRAW_ELLIPSE_H

#include "ipc2581/base/Export.h"
#include "ipc2581/content/Primitive.h"

// The dictionary primitive Ellipse.
class IPC2581_API CIPC2581_DicDraw_Ellipse : public ipc2581::detail::Primitive {
public:
    double Width = 0.0;
    double Height = 0.0;

    CIPC2581_DicDraw_Ellipse() : Primitive(6) {}
    CIPC2581_DicDraw_Ellipse(const CIPC2581_DicDraw_Ellipse & other) = default;
    ~CIPC2581_DicDraw_Ellipse() override;
    using CIPC2581_DrawObj::operator=;
    using Primitive::Import;
    CIPC2581_DicDraw_Ellipse * clone() const override { return new CIPC2581_DicDraw_Ellipse(*this); }
    int Import(CArray<CString, CString> & tokens) override;
    int Export(CStdioFile & file, int level) override;
    virtual CIPC2581_DicDraw_Ellipse & operator=(const CIPC2581_DicDraw_Ellipse & other) = default;
};

#endif
