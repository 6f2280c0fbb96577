#ifndef IPC2581_IMPORT_SECTIONS_NAMES_H
#define IPC2581_IMPORT_SECTIONS_NAMES_H

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

// Names of a file, as keys that a piece of text finds.
namespace ipc2581::detail {

struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
};
template <typename Value>
using ByName = std::unordered_map<std::string, Value, TextHash, std::equal_to<>>;
using Names = std::unordered_set<std::string, TextHash, std::equal_to<>>;

// The value that stands under the name; null if there is none.
template <typename Value>
Value * FindIn(ByName<Value> & values, std::string_view name)
{
    const auto found = values.find(name);
    return found == values.end() ? nullptr : &found->second;
}

}  // namespace ipc2581::detail

#endif
