#ifndef IPC2581_HOSTS_IPC2581_OUTPUT_STANDARDSTREAMS_H
#define IPC2581_HOSTS_IPC2581_OUTPUT_STANDARDSTREAMS_H

namespace ipc2581::host {

// Takes the places of standard streams that the caller has closed, so that no file gets one of them and is then read
// or written for it. Reading and writing there fails as before. Call it once, before anything else.
void TakeClosedStandardStreams();

}  // namespace ipc2581::host

#endif
