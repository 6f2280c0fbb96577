#include "ipc2581/base/ReadObserver.h"

namespace ipc2581 {

ReadObserver::~ReadObserver() = default;

}  // namespace ipc2581
