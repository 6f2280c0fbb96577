#ifndef IPC2581_IMPORT_FACTVALUES_H
#define IPC2581_IMPORT_FACTVALUES_H

#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>

// The attributes of the facts of a report, one behind the other in one text, since there may be as many as there are
// pads on a board: the number of the name, whether it is held, the length of the value, and the value.
namespace ipc2581::detail {

struct FactValue {
    std::uint16_t name = 0;
    // It is a fact only until somebody refers to it.
    bool isHeld = false;
    std::string_view value = {};
};

constexpr std::uint8_t HeldMark = 0x80;
// Stands for a length that follows in four bytes.
constexpr std::uint8_t LongMark = 0x7F;

inline void AppendFactValue(std::string & text, const FactValue & own)
{
    const bool isLong = own.value.size() >= LongMark;
    const auto mark = static_cast<std::uint8_t>((own.isHeld ? HeldMark : 0U) | (isLong ? LongMark : own.value.size()));
    char head[sizeof(own.name) + sizeof(mark)];
    std::memcpy(head, &own.name, sizeof(own.name));
    std::memcpy(head + sizeof(own.name), &mark, sizeof(mark));
    text.append(head, sizeof(head));
    std::string_view value = own.value;
    if (isLong) {
        // A value of more than four thousand million bytes is cut.
        value = value.substr(0, std::numeric_limits<std::uint32_t>::max());
        const auto length = static_cast<std::uint32_t>(value.size());
        char bytes[sizeof(length)];
        std::memcpy(bytes, &length, sizeof(length));
        text.append(bytes, sizeof(bytes));
    }
    text.append(value);
}

// Takes the first from the text, which is not empty.
inline FactValue TakeFactValue(std::string_view & text)
{
    FactValue own;
    std::uint8_t mark = 0;
    std::memcpy(&own.name, text.data(), sizeof(own.name));
    std::memcpy(&mark, text.data() + sizeof(own.name), sizeof(mark));
    text.remove_prefix(sizeof(own.name) + sizeof(mark));
    own.isHeld = (mark & HeldMark) != 0;
    std::uint32_t length = mark & LongMark;
    if (length == LongMark) {
        std::memcpy(&length, text.data(), sizeof(length));
        text.remove_prefix(sizeof(length));
    }
    own.value = text.substr(0, length);
    text.remove_prefix(length);
    return own;
}

}  // namespace ipc2581::detail

#endif
