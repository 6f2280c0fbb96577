#ifndef IPC2581_HOSTS_IPC2581_OUTPUT_PROGRESS_H
#define IPC2581_HOSTS_IPC2581_OUTPUT_PROGRESS_H

#include <string>

#include <ipc2581/ipc2581.h>

namespace ipc2581::host {

// A bar on the standard error stream, if that is a terminal with escapes and nobody has said NO_COLOR; otherwise
// nothing. It is erased at the end.
class Progress : public CProgressCtrl {
public:
    explicit Progress(std::string label);
    Progress(const Progress &) = delete;
    Progress & operator=(const Progress &) = delete;
    ~Progress() override;

    int SetPos(int position) override;

private:
    void Draw();

    std::string m_label;
    bool m_isShown;
};

}  // namespace ipc2581::host

#endif
