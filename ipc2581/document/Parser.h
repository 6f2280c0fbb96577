#ifndef IPC2581_DOCUMENT_PARSER_H
#define IPC2581_DOCUMENT_PARSER_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/cad/Ecad.h"
#include "ipc2581/content/Content.h"
#include "ipc2581/logistics/Bom.h"
#include "ipc2581/logistics/HistoryRecord.h"
#include "ipc2581/logistics/LogisticHeader.h"

// The root of the model: one document. Reading a second file into it overwrites the attributes that are read again and
// adds to every list.
class IPC2581_API CIPC2581_Parser {
public:
    CIPC2581_Content m_Content;
    CIPC2581_LogisticHeader m_LogisticHeader;
    CIPC2581_HistoryRecord m_HistoryRecord;
    CIPC2581_Bom m_Bom;
    CIPC2581_Ecad m_Ecad;

    CIPC2581_Parser();
    CIPC2581_Parser(const CIPC2581_Parser &) = delete;
    CIPC2581_Parser & operator=(const CIPC2581_Parser &) = delete;
    virtual ~CIPC2581_Parser();
};

template <>
struct ipc2581::Fields<CIPC2581_Parser> {
    using Object = CIPC2581_Parser;
    static constexpr std::string_view Name = "CIPC2581_Parser";
    static constexpr auto Elements = Pack<>{};
    static constexpr auto Members =
        Pack{Member{"m_Content", &Object::m_Content, "Content"},
             Member{"m_LogisticHeader", &Object::m_LogisticHeader, "LogisticHeader"},
             Member{"m_HistoryRecord", &Object::m_HistoryRecord, "HistoryRecord"},
             Member{"m_Bom", &Object::m_Bom, "Bom"}, Member{"m_Ecad", &Object::m_Ecad, "Ecad"}};
};

#endif
