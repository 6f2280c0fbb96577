#ifndef IPC2581_HOSTS_IPC2581_GEOMETRY_ARCLENGTH_H
#define IPC2581_HOSTS_IPC2581_GEOMETRY_ARCLENGTH_H

#include <import/shapes/Path.h>

namespace ipc2581::host {

double Distance(const Vertex & from, const Vertex & to);

// How long a circular arc round the centre is; a whole circle if it ends where it starts.
double ArcLength(const Vertex & from, const Vertex & to, const Vertex & center, bool isClockwise);

}  // namespace ipc2581::host

#endif
