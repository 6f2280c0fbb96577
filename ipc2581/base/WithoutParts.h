#ifndef IPC2581_BASE_WITHOUTPARTS_H
#define IPC2581_BASE_WITHOUTPARTS_H

namespace ipc2581::detail {

// Tag of a constructor that leaves the owned parts of its object null. The others delegate to it and make the parts
// then, so that the parts made so far go with the object if there is no memory for the next one.
struct WithoutParts {};

}  // namespace ipc2581::detail

#endif
