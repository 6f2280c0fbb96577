#include "ipc2581/content/DicDraw_Oval.h"

CIPC2581_DicDraw_Oval::~CIPC2581_DicDraw_Oval() = default;

void CIPC2581_DicDraw_Oval::Init()
{
    CIPC2581_DicDraw_Oval::operator=(CIPC2581_DicDraw_Oval());
}
