#ifndef IPC2581_LOGISTICS_LOGISTICHEADER_H
#define IPC2581_LOGISTICS_LOGISTICHEADER_H

#include "ipc2581/base/Export.h"
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

#endif
