#include "ipc2581/logistics/LogisticHeader.h"

CIPC2581_LogisticHeader::CIPC2581_LogisticHeader() = default;
CIPC2581_LogisticHeader::~CIPC2581_LogisticHeader() = default;
