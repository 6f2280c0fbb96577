#ifndef IPC2581_VERSION_H
#define IPC2581_VERSION_H

namespace ipc2581 {

// The one place that states the version: the build, the packages and the programs read it from here.
inline constexpr const char * Version = "1.0.0";

}  // namespace ipc2581

#endif
