#ifndef IPC2581_CONTENT_DICDRAW_DIAMOND_H
#define IPC2581_CONTENT_DICDRAW_DIAMOND_H

#include "ipc2581/base/Export.h"
#include "ipc2581/content/Primitive.h"

// The dictionary primitive Diamond.
class IPC2581_API CIPC2581_DicDraw_Diamond : public ipc2581::detail::Primitive {
public:
    double Width = 0.0;
    double Height = 0.0;

    CIPC2581_DicDraw_Diamond() : Primitive(4) {}
    CIPC2581_DicDraw_Diamond(const CIPC2581_DicDraw_Diamond & other) = default;
    ~CIPC2581_DicDraw_Diamond() override;
    using CIPC2581_DrawObj::operator=;
    using Primitive::Import;
    CIPC2581_DicDraw_Diamond * clone() const override { return new CIPC2581_DicDraw_Diamond(*this); }
    int Import(CArray<CString, CString> & tokens) override;
    int Export(CStdioFile & file, int level) override;
    virtual CIPC2581_DicDraw_Diamond & operator=(const CIPC2581_DicDraw_Diamond & other) = default;
};

#endif
