#ifndef IPC2581_BASE_PLATFORM_CSTRING_H
#define IPC2581_BASE_PLATFORM_CSTRING_H

#include <array>
#include <bit>
#include <compare>
#include <cstddef>
#include <cstring>
#include <ostream>
#include <string_view>

#include "ipc2581/base/Export.h"
#include "ipc2581/base/platform/FormatString.h"

namespace ipc2581::detail {
class ObjectBlocks;
}  // namespace ipc2581::detail

// Text of bytes, copied by value. Positions and lengths count bytes, nothing is decoded, comparisons are
// case-sensitive. Up to 6 bytes are held inside the object, which is as large as a pointer, longer text on the heap.
// The text always has a zero byte behind it; zero bytes inside it are bytes like any other, except for what takes a
// plain const char *. A null const char * is an empty text, wherever a text is taken.
class IPC2581_API CString {
public:
    CString() noexcept : m_bytes{} { m_bytes[TagAt] = 1; }
    // A copy of the text.
    CString(const char * text);
    explicit CString(std::string_view text);
    CString(const CString & other);
    CString(CString && other) noexcept;
    CString & operator=(const CString & other);
    CString & operator=(CString && other) noexcept;
    // Replaces the text.
    CString & operator=(const char * text);
    // Replaces the text; the new one may be a piece of the old one.
    CString & operator=(std::string_view text);
    ~CString()
    {
        if (IsOnHeap()) {
            Free();
        }
    }

    // Appends.
    CString & operator+=(const CString & other);
    CString & operator+=(char ch);
    // Both, one behind the other.
    friend IPC2581_API CString operator+(const CString & left, const CString & right);
    friend IPC2581_API CString operator+(const CString & left, char right);
    friend IPC2581_API CString operator+(char left, const CString & right);

    // Length in bytes.
    int GetLength() const { return IsOnHeap() ? HeapLength() : m_bytes[TagAt] / 2; }
    // True for a length of 0.
    bool IsEmpty() const { return GetLength() == 0; }
    // The bytes, up to the next change of the text.
    const char * GetString() const { return IsOnHeap() ? HeapData() : m_bytes + TextAt; }
    // The bytes, as GetString gives them.
    operator const char *() const { return GetString(); }
    // The bytes with their length, zero bytes included.
    operator std::string_view() const
    {
        if (IsOnHeap()) {
            HeapText * const heap = Heap();
            return {heap->Data(), static_cast<std::size_t>(heap->length)};
        }
        return {m_bytes + TextAt, static_cast<std::size_t>(m_bytes[TagAt] / 2)};
    }

    // The byte at a position. Throws CInvalidArgException for one outside the text.
    char operator[](int position) const;
    // Overwrites one byte. Throws CInvalidArgException for a position outside the text; the empty text has none.
    void SetAt(int position, char ch);

    // Position of the first occurrence at or behind start; -1 if there is none, and always in the empty text.
    int Find(const char * sub, int start = 0) const;
    int Find(char ch, int start = 0) const;
    // Position of the last occurrence, or -1.
    int ReverseFind(char ch) const;
    // 0 if equal, otherwise below or above 0.
    int Compare(const char * text) const;

    // The next run of bytes that are not in delims, starting at pos, which is set one past the delimiter behind
    // the run. Without a further run pos becomes -1 and the result is empty; it stays so for a pos of -1.
    CString Tokenize(const char * delims, int & pos) const;
    // Replaces every occurrence, left to right, and returns the count.
    int Replace(const char * old, const char * replacement);
    // The last or first n bytes; an n outside the text gives all of it or nothing.
    CString Right(int n) const;
    CString Left(int n) const;
    // At most count bytes from first on; negative arguments count as 0.
    CString Mid(int first, int count) const;
    // Takes white space off both ends of this text.
    CString & Trim();

    // Replaces the text as printf prints it in the C locale: every conversion but %n, with its flags, widths,
    // precisions and lengths; %s takes a CString too, and no wide text. A literal that does not fit its arguments does
    // not compile; a computed format then throws CInvalidArgException. An array of const char is a literal, and so has
    // to be constexpr; a choice between two literals of one length is not, and goes through a pointer.
    template <typename... Arguments>
    void Format(ipc2581::detail::FormatString<Arguments...> format, Arguments... arguments)
    {
        const std::array<ipc2581::detail::FormatArgument, sizeof...(Arguments)> list = {
            ipc2581::detail::FormatArgument(arguments)...};
        operator=(std::string_view(ipc2581::detail::Formatted(format.Text(), list)));
    }

    // Compares all bytes.
    friend bool operator==(const CString & left, const CString & right)
    {
        return std::string_view(left) == std::string_view(right);
    }
    friend bool operator==(const CString & left, std::string_view right) { return std::string_view(left) == right; }
    friend bool operator==(const CString & left, const char * right)
    {
        return std::string_view(left) == (right == nullptr ? std::string_view() : std::string_view(right));
    }
    // Orders by the bytes.
    friend auto operator<=>(const CString & left, const CString & right)
    {
        return std::string_view(left).compare(std::string_view(right)) <=> 0;
    }
    friend auto operator<=>(const CString & left, const char * right) { return left <=> CString(right); }
    // Writes all bytes.
    friend std::ostream & operator<<(std::ostream & out, const CString & text) { return out << std::string_view(text); }

    // For a reader: as the assignment, with what does not fit into the object in these blocks, if there are any.
    void Assign(std::string_view text, ipc2581::detail::ObjectBlocks * blocks);

private:
    // Short text stands in the object itself behind a byte with twice its length plus one: an odd number, which the
    // lowest byte of an address never is. Longer text stands behind its length in memory of its own, and the object
    // holds the address of that, with InBlock added to it if the memory is part of a block. Nothing points into the
    // object: an array may move it as raw memory.
    struct HeapText {
        int length;
        char * Data() { return reinterpret_cast<char *>(this + 1); }
    };
    static constexpr int InBlock = 2;
    static constexpr int Size = 8;
    static constexpr int InlineLength = Size - 2;
    static constexpr int TagAt = std::endian::native == std::endian::little ? 0 : Size - 1;
    static constexpr int TextAt = std::endian::native == std::endian::little ? 1 : 0;
    static constexpr int AddressAt = std::endian::native == std::endian::little ? 0 : Size - int(sizeof(char *));

    bool IsOnHeap() const { return (m_bytes[TagAt] & 1) == 0; }
    bool IsInBlock() const { return (m_bytes[TagAt] & InBlock) != 0; }
    HeapText * Heap() const
    {
        char * address = nullptr;
        std::memcpy(&address, m_bytes + AddressAt, sizeof(address));
        return reinterpret_cast<HeapText *>(address - (m_bytes[TagAt] & InBlock));
    }
    char * HeapData() const { return Heap()->Data(); }
    int HeapLength() const { return Heap()->length; }
    static std::size_t HeapSize(std::size_t length);
    // The bytes of text that the place can hold.
    std::size_t Room() const;
    void Init(std::string_view text, ipc2581::detail::ObjectBlocks * blocks);
    bool Overwrite(std::string_view text);
    void Free() noexcept;
    char * Data() { return IsOnHeap() ? HeapData() : m_bytes + TextAt; }
    void SetInlineLength(std::size_t length);
    void SetLength(std::size_t length);
    char * Allocate(std::size_t length, ipc2581::detail::ObjectBlocks * blocks);

    alignas(char *) char m_bytes[Size];
};

#endif
