#ifndef IPC2581_CONTENT_DICDRAW_HEXAGON_H
#define IPC2581_CONTENT_DICDRAW_HEXAGON_H

#include "ipc2581/base/Export.h"
#include "ipc2581/content/Primitive.h"

// The dictionary primitive Hexagon.
class IPC2581_API CIPC2581_DicDraw_Hexagon : public ipc2581::detail::Primitive {
public:
    double Length = 0.0;

    CIPC2581_DicDraw_Hexagon() : Primitive(7) {}
    CIPC2581_DicDraw_Hexagon(const CIPC2581_DicDraw_Hexagon & other) = default;
    ~CIPC2581_DicDraw_Hexagon() override;
    using CIPC2581_DrawObj::operator=;
    using Primitive::Import;
    CIPC2581_DicDraw_Hexagon * clone() const override { return new CIPC2581_DicDraw_Hexagon(*this); }
    int Import(CArray<CString, CString> & tokens) override;
    int Export(CStdioFile & file, int level) override;
    virtual CIPC2581_DicDraw_Hexagon & operator=(const CIPC2581_DicDraw_Hexagon & other) = default;
};

#endif
