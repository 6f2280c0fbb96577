#ifndef IPC2581_HOSTS_IPC2581_HTML_INTEGERCOLUMN_H
#define IPC2581_HOSTS_IPC2581_HTML_INTEGERCOLUMN_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

namespace ipc2581::host {

// Integers of one meaning, one behind the other, in as few bytes as their size asks for.
class IntegerColumn {
public:
    IntegerColumn(std::string name, bool isDelta) : m_name(std::move(name)), m_isDelta(isDelta) {}

    void Add(std::int64_t number);

    [[nodiscard]] const std::string & Name() const { return m_name; }
    // Whether each is told by what it is more than the one before.
    [[nodiscard]] bool IsDelta() const { return m_isDelta; }
    [[nodiscard]] std::size_t Count() const { return m_count; }
    [[nodiscard]] const std::string & Bytes() const { return m_bytes; }

private:
    std::string m_name;
    bool m_isDelta;
    std::size_t m_count = 0;
    std::int64_t m_last = 0;
    std::string m_bytes;
};

}  // namespace ipc2581::host

#endif
