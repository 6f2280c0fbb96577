#include "ipc2581/base/platform/CProgressCtrl.h"

#include <utility>

CProgressCtrl::~CProgressCtrl() = default;

int CProgressCtrl::SetPos(int position)
{
    return std::exchange(m_position, position);
}

int SendMessageA(CProgressCtrl * control, unsigned message, int position, int /*unused*/)
{
    if (control == nullptr || message != PBM_SETPOS) {
        return 0;
    }
    return control->SetPos(position);
}
