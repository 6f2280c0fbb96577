#ifndef IPC2581_HOSTS_IPC2581_BOARD_BOMFACTS_H
#define IPC2581_HOSTS_IPC2581_BOARD_BOMFACTS_H

#include <optional>
#include <string>
#include <unordered_map>

#include "hosts/ipc2581/board/Board.h"

namespace ipc2581::host {

// What the bill of materials says of each designator.
class BomFacts {
public:
    explicit BomFacts(Board & board);

    // Whether it is fitted; nothing for a designator that is in no item.
    [[nodiscard]] std::optional<bool> IsFitted(const std::string & designator) const;
    // The value of its item: "100nF".
    [[nodiscard]] std::string Value(const std::string & designator) const;

private:
    struct Facts {
        bool isFitted = false;
        std::string value;
    };

    std::unordered_map<std::string, Facts> m_facts;
};

}  // namespace ipc2581::host

#endif
