#include "ipc2581/base/platform/CStringArray.h"

CStringArray::CStringArray() = default;
CStringArray::~CStringArray() = default;
