#ifndef IPC2581_HOSTS_IPC2581_DIFF_SETTEXT_H
#define IPC2581_HOSTS_IPC2581_DIFF_SETTEXT_H

#include <string>

#include <ipc2581/ipc2581.h>

#include "hosts/ipc2581/board/Lengths.h"

namespace ipc2581::host {

// What a set of a layer is, and which one, as a person would point at it.
struct SetDescription {
    std::string kind;  // "pad", "hole", or the element of its shape: "Polyline"
    std::string text;  // "RECT_1 at 12.3,4.5, net GND"
};
SetDescription DescribeSet(const CIPC2581_Ecad_CadData_Step_LayerFeature_Set & set, const Lengths & lengths);

}  // namespace ipc2581::host

#endif
