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

const FirstToken & FirstTokenMemory::FindLong(std::string_view token)
{
    m_long = Examine(token);
    return m_long;
}

// The place beside an entry keeps what was here, so that two that take turns do not drive each other out.
const FirstToken & FirstTokenMemory::FindBeside(Entry & entry, std::string_view token)
{
    const ShortText text(token);
    const std::size_t place = static_cast<std::size_t>(&entry - m_entries.data());
    std::swap(entry, m_entries[place ^ 1]);
    if (!entry.Is(text, token.size())) {
        entry = {text, token.size(), Examine(token)};
    }
    return entry.token;
}

}  // namespace ipc2581::detail
