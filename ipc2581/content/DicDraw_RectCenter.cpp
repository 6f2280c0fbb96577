#include "ipc2581/content/DicDraw_RectCenter.h"

CIPC2581_DicDraw_RectCenter::~CIPC2581_DicDraw_RectCenter() = default;

void CIPC2581_DicDraw_RectCenter::Init()
{
    CIPC2581_DicDraw_RectCenter::operator=(CIPC2581_DicDraw_RectCenter());
}
