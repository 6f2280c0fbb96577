#include "ipc2581/base/platform/CObject.h"

namespace {

CRuntimeClass g_objectClass = {"CObject", static_cast<int>(sizeof(CObject))};

}  // namespace

CRuntimeClass * CObject::GetRuntimeClass() const
{
    return &g_objectClass;
}

CObject::~CObject() = default;

void CObject::Serialize(CArchive & /*archive*/) {}

void CObject::AssertValid() const {}

void CObject::Dump(CDumpContext & out) const
{
    out << GetRuntimeClass()->m_lpszClassName << '\n';
}
