#include "ipc2581/draw/Text.h"

#include "ipc2581/base/platform/ObjectBlocks.h"

CIPC2581_Text::CIPC2581_Text()
{
    CIPC2581_Text::Init();
}

CIPC2581_Text::CIPC2581_Text(ipc2581::detail::ObjectBlocks & blocks)
    : Xform(ipc2581::detail::MakeFrom<CIPC2581_Xform>(blocks))
{
}

CIPC2581_Text::CIPC2581_Text(const CIPC2581_Text & other) : CIPC2581_Text()
{
    CIPC2581_Text::operator=(other);
}

CIPC2581_Text::~CIPC2581_Text()
{
    delete Xform;
}

int CIPC2581_Text::Import(CStdioFile & /*file*/)
{
    return 1;
}

int CIPC2581_Text::Export(CStdioFile & /*file*/, int /*level*/)
{
    return 1;
}

CIPC2581_Text * CIPC2581_Text::clone()
{
    return new CIPC2581_Text(*this);
}

CIPC2581_Text & CIPC2581_Text::operator=(const CIPC2581_Text & other)
{
    if (this != &other) {
        TextString = other.TextString;
        FontSize = other.FontSize;
        *Xform = *other.Xform;
        BoundingBox_LowLeftX = other.BoundingBox_LowLeftX;
        BoundingBox_LowLeftY = other.BoundingBox_LowLeftY;
        BoundingBox_UppRightX = other.BoundingBox_UppRightX;
        BoundingBox_UppRightY = other.BoundingBox_UppRightY;
        FontRefID = other.FontRefID;
        ColorGroupID = other.ColorGroupID;
    }
    return *this;
}

void CIPC2581_Text::Init()
{
    TextString = "";
    FontSize = 0.0;
    // The old transform is let go, not deleted: hosts may still hold it.
    Xform = new CIPC2581_Xform();
    BoundingBox_LowLeftX = 0.0;
    BoundingBox_LowLeftY = 0.0;
    BoundingBox_UppRightX = 0.0;
    BoundingBox_UppRightY = 0.0;
    FontRefID = "";
    ColorGroupID = "";
}
