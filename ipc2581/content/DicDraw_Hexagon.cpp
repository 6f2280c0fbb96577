#include "ipc2581/content/DicDraw_Hexagon.h"

CIPC2581_DicDraw_Hexagon::~CIPC2581_DicDraw_Hexagon() = default;
