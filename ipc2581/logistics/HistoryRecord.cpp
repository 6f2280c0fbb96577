#include "ipc2581/logistics/HistoryRecord.h"

CIPC2581_HistoryRecord::CIPC2581_HistoryRecord() = default;
CIPC2581_HistoryRecord::CIPC2581_HistoryRecord(const CIPC2581_HistoryRecord & other) = default;
CIPC2581_HistoryRecord & CIPC2581_HistoryRecord::operator=(const CIPC2581_HistoryRecord & other) = default;
CIPC2581_HistoryRecord::~CIPC2581_HistoryRecord() = default;
