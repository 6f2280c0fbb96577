#include "ipc2581/base/platform/CString.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <cstring>
#include <new>
#include <string>
#include <utility>

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/base/platform/ObjectBlocks.h"

using ipc2581::detail::ObjectBlocks;

namespace {

constexpr std::string_view WhiteSpace = " \t\n\v\f\r";

std::string_view View(const char * text)
{
    return text == nullptr ? std::string_view() : std::string_view(text);
}

int Position(std::size_t found)
{
    return found == std::string_view::npos ? -1 : static_cast<int>(found);
}

std::size_t Clamp(int count, int length)
{
    return static_cast<std::size_t>(std::clamp(count, 0, length));
}

}  // namespace

CString::CString(const char * text)
{
    Init(View(text), nullptr);
}

CString::CString(std::string_view text)
{
    Init(text, nullptr);
}

CString::CString(const CString & other)
{
    if (other.IsOnHeap()) {
        Init(other, nullptr);
    }
    else {
        std::memcpy(m_bytes, other.m_bytes, sizeof(m_bytes));
    }
}

CString::CString(CString && other) noexcept
{
    std::memcpy(m_bytes, other.m_bytes, sizeof(m_bytes));
    other.SetInlineLength(0);
}

CString & CString::operator=(const CString & other)
{
    return operator=(std::string_view(other));
}

CString & CString::operator=(CString && other) noexcept
{
    if (this != &other) {
        if (IsOnHeap()) {
            Free();
        }
        std::memcpy(m_bytes, other.m_bytes, sizeof(m_bytes));
        other.SetInlineLength(0);
    }
    return *this;
}

CString & CString::operator=(const char * text)
{
    return operator=(View(text));
}

CString & CString::operator=(std::string_view text)
{
    Assign(text, nullptr);
    return *this;
}

void CString::Assign(std::string_view text, ObjectBlocks * blocks)
{
    if (!Overwrite(text)) {
        CString fresh;
        fresh.Init(text, blocks);
        operator=(std::move(fresh));
    }
}

CString & CString::operator+=(const CString & other)
{
    const std::size_t length = static_cast<std::size_t>(GetLength());
    const std::size_t added = static_cast<std::size_t>(other.GetLength());
    if (length + added <= Room()) {
        std::memmove(Data() + length, other.GetString(), added);
        SetLength(length + added);
        return *this;
    }
    CString sum;
    char * const data = sum.Allocate(length + added, nullptr);
    std::memcpy(data, GetString(), length);
    std::memcpy(data + length, other.GetString(), added);
    return operator=(std::move(sum));
}

CString & CString::operator+=(char ch)
{
    return operator+=(CString(std::string_view(&ch, 1)));
}

CString operator+(const CString & left, const CString & right)
{
    CString sum(left);
    sum += right;
    return sum;
}

CString operator+(const CString & left, char right)
{
    CString sum(left);
    sum += right;
    return sum;
}

CString operator+(char left, const CString & right)
{
    CString sum;
    sum += left;
    sum += right;
    return sum;
}

char CString::operator[](int position) const
{
    if (position < 0 || position >= GetLength()) {
        AfxThrowInvalidArgException();
    }
    return GetString()[position];
}

void CString::SetAt(int position, char ch)
{
    if (position < 0 || position >= GetLength()) {
        AfxThrowInvalidArgException();
    }
    Data()[position] = ch;
}

int CString::Find(const char * sub, int start) const
{
    if (start < 0 || start >= GetLength()) {
        return -1;
    }
    return Position(std::string_view(*this).find(View(sub), static_cast<std::size_t>(start)));
}

int CString::Find(char ch, int start) const
{
    if (start < 0) {
        return -1;
    }
    return Position(std::string_view(*this).find(ch, static_cast<std::size_t>(start)));
}

int CString::ReverseFind(char ch) const
{
    return Position(std::string_view(*this).rfind(ch));
}

int CString::Compare(const char * text) const
{
    return std::string_view(*this).compare(View(text));
}

CString CString::Tokenize(const char * delims, int & pos) const
{
    const std::string_view text(*this);
    const std::size_t from = pos < 0 ? text.size() : std::min(static_cast<std::size_t>(pos), text.size());
    const std::size_t start = text.find_first_not_of(View(delims), from);
    if (start == std::string_view::npos) {
        pos = -1;
        return {};
    }
    const std::size_t end = std::min(text.find_first_of(View(delims), start), text.size());
    pos = static_cast<int>(end + 1);
    return CString(text.substr(start, end - start));
}

int CString::Replace(const char * old, const char * replacement)
{
    const std::string_view sought = View(old);
    if (sought.empty()) {
        return 0;
    }
    const std::string_view text(*this);
    std::string replaced;
    int count = 0;
    std::size_t from = 0;
    for (std::size_t at = text.find(sought); at != std::string_view::npos; at = text.find(sought, from)) {
        replaced.append(text, from, at - from).append(View(replacement));
        from = at + sought.size();
        ++count;
    }
    if (count != 0) {
        replaced.append(text, from);
        operator=(std::string_view(replaced));
    }
    return count;
}

CString CString::Right(int n) const
{
    const std::string_view text(*this);
    return CString(text.substr(text.size() - Clamp(n, GetLength())));
}

CString CString::Left(int n) const
{
    return CString(std::string_view(*this).substr(0, Clamp(n, GetLength())));
}

CString CString::Mid(int first, int count) const
{
    return CString(std::string_view(*this).substr(Clamp(first, GetLength()), Clamp(count, GetLength())));
}

CString & CString::Trim()
{
    const std::string_view text(*this);
    const std::size_t first = std::min(text.find_first_not_of(WhiteSpace), text.size());
    const std::size_t end = text.find_last_not_of(WhiteSpace) + 1;
    return operator=(text.substr(first, end - std::min(first, end)));
}

// Bytes for a text of this length, its length and its zero byte. A function of the length alone, so that no capacity is
// stored; it grows in steps, so that appending byte by byte stays cheap.
std::size_t CString::HeapSize(std::size_t length)
{
    const std::size_t bytes = sizeof(HeapText) + length + 1;
    const std::size_t step = bytes < 256 ? 16 : std::bit_floor(bytes) / 4;
    return (bytes + step - 1) / step * step;
}

std::size_t CString::Room() const
{
    if (!IsOnHeap()) {
        return InlineLength;
    }
    return HeapSize(static_cast<std::size_t>(HeapLength())) - sizeof(HeapText) - 1;
}

// Writes the text over the old one if it fits there and does not waste a room of its own; false if not.
bool CString::Overwrite(std::string_view text)
{
    if (text.size() > Room() || (IsOnHeap() && text.size() <= InlineLength)) {
        return false;
    }
    if (!text.empty()) {
        std::memmove(Data(), text.data(), text.size());
    }
    SetLength(text.size());
    return true;
}

// Sets what is not a text yet.
void CString::Init(std::string_view text, ObjectBlocks * blocks)
{
    if (text.size() > InlineLength) {
        std::memcpy(Allocate(text.size(), blocks), text.data(), text.size());
        return;
    }
    if (!text.empty()) {
        std::memcpy(m_bytes + TextAt, text.data(), text.size());
    }
    SetInlineLength(text.size());
}

void CString::Free() noexcept
{
    if (IsInBlock()) {
        ObjectBlocks::Release(Heap());
    }
    else {
        ::operator delete(Heap());
    }
}

void CString::SetInlineLength(std::size_t length)
{
    m_bytes[TextAt + length] = '\0';
    m_bytes[TagAt] = static_cast<char>(length * 2 + 1);
}

// Sets a length that the place has room for.
void CString::SetLength(std::size_t length)
{
    if (IsOnHeap()) {
        Heap()->length = static_cast<int>(length);
        HeapData()[length] = '\0';
    }
    else {
        SetInlineLength(length);
    }
}

// Gives the object, which has no text yet, a room for one of this length; returns where its bytes go.
char * CString::Allocate(std::size_t length, ObjectBlocks * blocks)
{
    if (length >= INT_MAX) {
        throw std::bad_alloc();
    }
    const std::size_t size = HeapSize(length);
    const bool isInBlock = blocks != nullptr && size <= ObjectBlocks::Largest;
    char * const room = static_cast<char *>(isInBlock ? blocks->Take(size) : ::operator new(size));
    if (blocks != nullptr && !isInBlock) {
        blocks->Count(size + ipc2581::detail::HeapOverhead);
    }
    const char * const address = room + (isInBlock ? InBlock : 0);
    std::memcpy(m_bytes + AddressAt, &address, sizeof(address));
    SetLength(length);
    return HeapData();
}
