#include "ipc2581/content/DicDraw_Ellipse.h"

CIPC2581_DicDraw_Ellipse::~CIPC2581_DicDraw_Ellipse() = default;
