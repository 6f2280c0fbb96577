#include "ipc2581/base/FirstToken.h"

#include <algorithm>

#include "ipc2581/base/TokenList.h"

namespace ipc2581::detail {

FirstToken Examine(std::string_view token)
{
    FirstToken examined;
    examined.set = SetOf(token);
    if (!token.empty() && IsBracket(token.front())) {
        examined.front = 1;
        token.remove_prefix(1);
    }
    if (!token.empty() && IsBracket(token.back())) {
        examined.back = 1;
        token.remove_suffix(1);
    }
    examined.isDirty = std::any_of(token.begin(), token.end(), IsBracket);
    return examined;
}

}  // namespace ipc2581::detail
