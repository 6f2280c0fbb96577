#ifndef IPC2581_LOGISTICS_LOGISTICHEADER_H
#define IPC2581_LOGISTICS_LOGISTICHEADER_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CString.h"

// The LogisticHeader element: who made the document. Read and never written. Of several roles or persons the last one
// counts.
class IPC2581_API CIPC2581_LogisticHeader : public CIPC2581_XmlDataAdd_Function {
public:
    CString m_strRoleName;
    CString m_strPersonName;

    CIPC2581_LogisticHeader();
    ~CIPC2581_LogisticHeader() override;
};

template <>
struct ipc2581::Fields<CIPC2581_LogisticHeader> {
    using Object = CIPC2581_LogisticHeader;
    static constexpr std::string_view Name = "CIPC2581_LogisticHeader";
    static constexpr auto Role = Element<Object>("Role", Text("name", &Object::m_strRoleName));
    static constexpr auto Person = Element<Object>("Person", Text("name", &Object::m_strPersonName));
    static constexpr auto Elements = Pack{Role, Person};
    static constexpr auto Members =
        Pack{Member{"m_strRoleName", &Object::m_strRoleName}, Member{"m_strPersonName", &Object::m_strPersonName}};
};

#endif
