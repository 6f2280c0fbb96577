#include "ipc2581/base/lines/FirstToken.h"

#include <algorithm>

#include "ipc2581/base/lines/TokenList.h"

namespace ipc2581::detail {

FirstToken Examine(std::string_view token)
{
    FirstToken examined;
    examined.set = SetOf(token);
    examined.size = static_cast<std::uint32_t>(token.size());
    examined.mayHavePlainRest = (examined.set & SetOf('=')) == 0;
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

// The place beside an entry keeps what was in it, so that two tokens that take turns do not drive each other out.
const FirstToken & FirstTokenMemory::FindBeside(Entry & entry, std::string_view token)
{
    const ShortText text(token);
    Entry & beside = m_entries[static_cast<std::size_t>(&entry - m_entries.data()) ^ 1];
    if (beside.Is(text, token.size())) {
        return beside.token;
    }
    beside = entry;
    entry.token = Examine(token);
    text.StoreAt(entry.text.data());
    return entry.token;
}

}  // namespace ipc2581::detail
