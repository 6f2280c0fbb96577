#ifndef IPC2581_BASE_PLATFORM_CPROGRESSCTRL_H
#define IPC2581_BASE_PLATFORM_CPROGRESSCTRL_H

#include "ipc2581/base/Export.h"

// The host's progress bar. A host derives from it, overrides SetPos and hands it to the reader, which never
// owns it. Positions run from 0 to 100 and may go backwards.
class IPC2581_API CProgressCtrl {
public:
    CProgressCtrl() = default;
    CProgressCtrl(const CProgressCtrl &) = default;
    CProgressCtrl & operator=(const CProgressCtrl &) = default;
    virtual ~CProgressCtrl();

    // Stores the position and returns the one before.
    virtual int SetPos(int position);
    int GetPos() const { return m_position; }

private:
    int m_position = 0;
};

// The message that sets a bar's position.
inline constexpr unsigned PBM_SETPOS = 1026;

// Sends a message to a bar: PBM_SETPOS ends in SetPos(position), whose result is returned. Every other
// message, and a null control, give 0.
IPC2581_API int SendMessageA(CProgressCtrl * control, unsigned message, int position, int unused);

#endif
