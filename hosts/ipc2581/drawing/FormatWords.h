#ifndef IPC2581_HOSTS_IPC2581_DRAWING_FORMATWORDS_H
#define IPC2581_HOSTS_IPC2581_DRAWING_FORMATWORDS_H

#include <string_view>

#include "hosts/ipc2581/drawing/Drawing.h"

// What words of a file mean for a drawing.
namespace ipc2581::host {

struct UnitMeasure {
    std::string_view word;
    double millimetres;  // 0 for an unknown unit
    int decimals;        // good for about two thousandths of a millimetre
    bool isImperial;
};
UnitMeasure UnitMeasureOf(std::string_view units);

LayerRole LayerRoleOf(std::string_view layerFunction);
Side SideOf(std::string_view layerSide);
StrokeEnds StrokeEndsOf(std::string_view lineEnd);

}  // namespace ipc2581::host

#endif
