#ifndef IPC2581_CAD_PLAINOUTLINE_H
#define IPC2581_CAD_PLAINOUTLINE_H

#include "ipc2581/draw/Outline.h"

namespace ipc2581::detail {

// What Init of packages and assembly drawings does with their outline: a missing one is made; one that exists keeps its
// contents and takes the draw type of a plain shape.
inline void CreateOrMakePlain(CIPC2581_Outline *& outline)
{
    if (outline == nullptr) {
        outline = new CIPC2581_Outline();
    }
    else {
        outline->CIPC2581_DrawObj::Init();
    }
}

}  // namespace ipc2581::detail

#endif
