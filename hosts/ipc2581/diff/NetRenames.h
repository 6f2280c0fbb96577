#ifndef IPC2581_HOSTS_IPC2581_DIFF_NETRENAMES_H
#define IPC2581_HOSTS_IPC2581_DIFF_NETRENAMES_H

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace ipc2581::host {

// A net and its pins, each as "U1.7".
struct NetPins {
    std::string name;
    std::vector<std::string> pins;
};

// The nets that have other names than before: the pins of each are those that another name had.
class NetRenames {
public:
    NetRenames() = default;
    NetRenames(const std::vector<NetPins> & before, const std::vector<NetPins> & after);

    // Of a net of the board before; its own where that has stayed.
    [[nodiscard]] std::string_view NewName(std::string_view name) const;
    // From the old name to the new one.
    [[nodiscard]] const std::map<std::string, std::string, std::less<>> & All() const { return m_names; }

private:
    std::map<std::string, std::string, std::less<>> m_names;
};

}  // namespace ipc2581::host

#endif
