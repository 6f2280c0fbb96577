#include "hosts/ipc2581/board/Copper.h"

#include <algorithm>
#include <array>

namespace ipc2581::host {

bool IsCopper(std::string_view layerFunction)
{
    constexpr std::array<std::string_view, 8> functions = {"CONDUCTOR", "CONDFILM", "CONDFOIL", "SIGNAL",
                                                           "PLANE",     "MIXED",    "POWER",    "GROUND"};
    return std::any_of(functions.begin(), functions.end(),
                       [&](std::string_view function) { return layerFunction.starts_with(function); });
}

}  // namespace ipc2581::host
