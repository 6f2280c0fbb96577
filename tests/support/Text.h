#ifndef IPC2581_TESTS_SUPPORT_TEXT_H
#define IPC2581_TESTS_SUPPORT_TEXT_H

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace ipc2581::tests {

using Texts = std::vector<std::string>;
using LineList = std::initializer_list<std::string_view>;

// The lines as the bytes of a file.
template <typename Lines>
std::string Joined(const Lines & lines)
{
    std::string bytes;
    for (const std::string_view line : lines) {
        bytes.append(line).append("\n");
    }
    return bytes;
}

inline std::string Joined(LineList lines)
{
    return Joined<LineList>(lines);
}

// The lines of a file, without their line ends.
inline Texts Split(std::string_view bytes)
{
    Texts lines;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t end = std::min(bytes.find('\n', at), bytes.size());
        lines.emplace_back(bytes.substr(at, end - at));
        at = end + 1;
    }
    return lines;
}

// A literal that stands below the line where it begins, without the line end in front of it.
constexpr const char * Below(const char * text)
{
    return *text == '\n' ? text + 1 : text;
}

}  // namespace ipc2581::tests

#endif
