#ifndef IPC2581_TESTS_SUPPORT_PROGRESS_H
#define IPC2581_TESTS_SUPPORT_PROGRESS_H

#include <functional>
#include <string>
#include <vector>

#include "ipc2581/base/platform/CProgressCtrl.h"
#include "tests/support/Text.h"

namespace ipc2581::tests {

// A bar that keeps its positions and what was seen at each of them.
class Bar : public CProgressCtrl {
public:
    int SetPos(int position) override
    {
        positions.push_back(position);
        if (look) {
            seen.push_back(look());
        }
        return CProgressCtrl::SetPos(position);
    }

    std::vector<int> positions;
    std::function<std::string()> look;
    Texts seen;
};

}  // namespace ipc2581::tests

#endif
