#ifndef IPC2581_CAD_KEPTPROGRESS_H
#define IPC2581_CAD_KEPTPROGRESS_H

#include "ipc2581/base/platform/CProgressCtrl.h"

namespace ipc2581::detail {

// What a destructor does with the control that its object has kept, before the members go: an element of a host's own
// that is deleted among them finds it null. A compiler may drop a plain store to an object that is about to end.
inline void ForgetProgress(CProgressCtrl * volatile & control)
{
    control = nullptr;
}

}  // namespace ipc2581::detail

#endif
