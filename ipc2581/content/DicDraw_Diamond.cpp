#include "ipc2581/content/DicDraw_Diamond.h"

CIPC2581_DicDraw_Diamond::~CIPC2581_DicDraw_Diamond() = default;
