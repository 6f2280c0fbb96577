#ifndef IPC2581_CONTENT_DICDRAW_H
#define IPC2581_CONTENT_DICDRAW_H

#include "ipc2581/content/DicDraw_Butterfly.h"
#include "ipc2581/content/DicDraw_Circle.h"
#include "ipc2581/content/DicDraw_Contour.h"
#include "ipc2581/content/DicDraw_Diamond.h"
#include "ipc2581/content/DicDraw_Donut.h"
#include "ipc2581/content/DicDraw_Ellipse.h"
#include "ipc2581/content/DicDraw_Hexagon.h"
#include "ipc2581/content/DicDraw_Moire.h"
#include "ipc2581/content/DicDraw_Octagon.h"
#include "ipc2581/content/DicDraw_Oval.h"
#include "ipc2581/content/DicDraw_RectCenter.h"
#include "ipc2581/content/DicDraw_RectCham.h"
#include "ipc2581/content/DicDraw_RectCorner.h"
#include "ipc2581/content/DicDraw_RectRound.h"
#include "ipc2581/content/DicDraw_Thermal.h"
#include "ipc2581/content/DicDraw_Triangle.h"

// All shapes that a dictionary entry can hold.

#endif
