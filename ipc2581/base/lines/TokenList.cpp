#include "ipc2581/base/lines/TokenList.h"

#include <algorithm>

namespace ipc2581::detail {
namespace {

constexpr bool IsQuoteOrSlash(char ch)
{
    return ch == '"' || ch == '/';
}

// The text with what stands at its ends taken off as long as the test holds.
template <typename Test>
std::string_view Stripped(std::string_view text, Test test)
{
    while (!text.empty() && test(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && test(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

}  // namespace

TokenList::TokenList(const CArray<CString, CString> & tokens)
{
    if (const auto * const ofLine = dynamic_cast<const LineTokens *>(&tokens)) {
        m_reader = ofLine->reader;
    }
    m_tokens.reserve(static_cast<std::size_t>(tokens.GetSize()));
    for (std::int64_t i = 0; i < tokens.GetSize(); ++i) {
        m_tokens.emplace_back(tokens.GetAt(i));
    }
}

void TokenList::SetWhole(std::string_view line)
{
    m_restAt = NoPlainRest;
    m_isCut = true;
    m_tokens.assign(1, line);
}

void TokenList::CutLine() const
{
    m_isCut = true;
    m_tokens.clear();
    m_cleaned.clear();
    std::size_t end = 0;
    for (;;) {
        const std::size_t start = m_line.find_first_not_of(' ', end);
        if (start == std::string_view::npos) {
            return;
        }
        end = std::min(m_line.find(' ', start), m_line.size());
        m_tokens.push_back(WithoutBrackets(m_line.substr(start, end - start)));
    }
}

std::string_view TokenList::Value(int & index) const
{
    if (index < 0 || index >= Size()) {
        AfxThrowInvalidArgException();
    }
    const std::string_view token = (*this)[index];
    if (token.find('"') != token.rfind('"')) {
        return RightPart(token);
    }
    m_value = RightPart(token);
    for (++index; index < Size(); ++index) {
        m_value += ' ';
        m_value += RightPart((*this)[index]);
        if ((*this)[index].find('"') != std::string_view::npos) {
            return m_value;
        }
    }
    AfxThrowInvalidArgException();
}

void TokenList::AppendTo(CArray<CString, CString> & tokens) const
{
    Cut();
    for (const std::string_view token : m_tokens) {
        tokens.Add(CString(token));
    }
}

// What stands behind the first "=", or all of a token without one, less its quotes and slashes.
std::string_view TokenList::RightPart(std::string_view token) const
{
    const std::string_view part = Stripped(token.substr(token.find('=') + 1), IsQuoteOrSlash);
    if (std::none_of(part.begin(), part.end(), IsQuoteOrSlash)) {
        return part;
    }
    m_part.clear();
    std::remove_copy_if(part.begin(), part.end(), std::back_inserter(m_part), IsQuoteOrSlash);
    return m_part;
}

std::string_view TokenList::WithoutBrackets(std::string_view token) const
{
    const std::string_view inner = Stripped(token, IsBracket);
    if (std::none_of(inner.begin(), inner.end(), IsBracket)) {
        return inner;
    }
    // Room for the whole line, so that the views of earlier tokens stay where they are.
    m_cleaned.reserve(m_line.size());
    const std::size_t start = m_cleaned.size();
    std::remove_copy_if(inner.begin(), inner.end(), std::back_inserter(m_cleaned), IsBracket);
    return std::string_view(m_cleaned).substr(start);
}

}  // namespace ipc2581::detail
