#include "ipc2581/content/DicDraw_Octagon.h"

CIPC2581_DicDraw_Octagon::~CIPC2581_DicDraw_Octagon() = default;
