#ifndef IPC2581_LOGISTICS_HISTORYRECORD_H
#define IPC2581_LOGISTICS_HISTORYRECORD_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/platform/CString.h"

// The HistoryRecord element: when the document was made. Read and never written. Dates stay text.
class IPC2581_API CIPC2581_HistoryRecord {
public:
    int number = 0;
    CString origination;
    CString toolRef;
    CString lastChange;

    CIPC2581_HistoryRecord();
    CIPC2581_HistoryRecord(const CIPC2581_HistoryRecord & other);
    CIPC2581_HistoryRecord & operator=(const CIPC2581_HistoryRecord & other);
    virtual ~CIPC2581_HistoryRecord();
};

template <>
struct ipc2581::Fields<CIPC2581_HistoryRecord> {
    using Object = CIPC2581_HistoryRecord;
    static constexpr std::string_view Name = "CIPC2581_HistoryRecord";
    static constexpr auto HistoryRecord = Element<Object>(
        "HistoryRecord", Integer("number=", &Object::number), Text("origination=", &Object::origination),
        Text("toolRef=", &Object::toolRef), Text("lastChange=", &Object::lastChange));
    static constexpr auto Elements = Pack{HistoryRecord};
    static constexpr auto Members =
        Pack{Member{"number", &Object::number}, Member{"origination", &Object::origination},
             Member{"toolRef", &Object::toolRef}, Member{"lastChange", &Object::lastChange}};
};

#endif
