#include "ipc2581/content/DicDraw_RectCenter.h"

CIPC2581_DicDraw_RectCenter::~CIPC2581_DicDraw_RectCenter() = default;

void CIPC2581_DicDraw_RectCenter::Init()
{
    *this = CIPC2581_DicDraw_RectCenter();
}
