#ifndef IPC2581_TESTS_IMPORT_SUPPORT_SHAPETEXT_H
#define IPC2581_TESTS_IMPORT_SUPPORT_SHAPETEXT_H

#include <string>

#include "ipc2581/ipc2581.h"

namespace ipc2581::tests {

// A number to nine places, which is what two ways of reckoning agree in.
std::string NumberText(double number);

std::string PointText(const CPointD & point);

// A shape in one line, with all that is drawn of it:
//
//     Line 0,0 to 1,0 pen 0.25 ROUND
//     Polyline 0,0 line 4,0 arc 6,2 about 4,2 clockwise 7,2 about 6.5,2 pen 0.3 SQUARE
//     Contour 0,0 line 4,0 line 0,4 without 1,1 line 2,1 line 1,2
//     Circle Diameter=2 OffsetX=0.5
std::string ShapeText(const CIPC2581_DrawObj & shape);

// The same of the line of a polygon alone: "0,0 line 4,0".
std::string StepsText(const CIPC2581_Point & begin, const CIPC2581_PolyStepArray & steps);

std::string XformText(const CIPC2581_Xform & xform);

}  // namespace ipc2581::tests

#endif
