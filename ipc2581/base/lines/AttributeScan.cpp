#include "ipc2581/base/lines/AttributeScan.h"

#include <cstdint>

#include "ipc2581/base/lines/Scan.h"

namespace ipc2581::detail {
namespace {

// The outer forms, in the order of their codes.
constexpr std::array<std::string_view, 4> Forms = {"ROUND", "SQUARE", "HEXAGON", "OCTAGON"};

void TestToken(const TokenList & tokens, int & index, const AttributeRows & table, void * object)
{
    const std::string_view token = tokens[index];
    for (const AttributeRow & row : table.rows) {
        if (row.word.IsIn(token)) {
            if (tokens.Observer() != nullptr) {
                tokens.Observer()->AttributeTaken(row.word.Text(), row.reading, token);
            }
            AttributeHit hit(tokens, index);
            row.store(hit, object);
            return;
        }
    }
}

// The end of a line: an optional "/" and an optional ">", with nothing but blanks behind them.
bool IsTail(const char * at, const char * end)
{
    if (at != end && *at == '/') {
        ++at;
    }
    if (at != end && *at == '>') {
        ++at;
    }
    return at == end || SkipBlanks(at, end) == end;
}

// The attributes of a line stand in the order of the table more often than not, so that the row behind the one that was
// hit last is tried first.
class PlainRows {
public:
    PlainRows(const AttributeRows & table, void * object) : m_table(table), m_object(object) {}

    // A token of the form key="value" has one "=", so a word that ends in one is held exactly if the key and its "="
    // end in it.
    void Test(std::string_view keyWithEqual, AttributeHit & hit)
    {
        const std::uint64_t tail = Word::Tail(keyWithEqual.data() + keyWithEqual.size());
        const std::size_t size = m_table.rows.size();
        if (m_table.areApart && m_next < size && IsHit(m_table.rows[m_next], tail, keyWithEqual)) {
            m_table.rows[m_next].store(hit, m_object);
            ++m_next;
            return;
        }
        for (std::size_t i = 0; i < size; ++i) {
            if (IsHit(m_table.rows[i], tail, keyWithEqual)) {
                m_table.rows[i].store(hit, m_object);
                m_next = i + 1;
                return;
            }
        }
    }

private:
    static bool IsHit(const AttributeRow & row, std::uint64_t tail, std::string_view keyWithEqual)
    {
        return row.word.MayEnd(tail) && row.word.Ends(keyWithEqual);
    }

    const AttributeRows & m_table;
    void * m_object;
    std::size_t m_next = 0;
};

// Scans what stands behind the first token of a line as long as it has the plain form; false from there on.
bool ScanPlain(const TokenList & tokens, std::string_view rest, PlainRows first, PlainRows second)
{
    const char * const end = rest.data() + rest.size();
    SpecialWalk walk(rest.data(), end);
    walk.Skip();
    for (const char * key = rest.data() + 1; key < end;) {
        const auto [equal, quote] = walk.FirstAndThird(key);
        const bool isAttribute = equal != key && *equal == '=' && equal[1] == '"' && *quote == '"' && quote < end;
        if (!isAttribute) {
            if (equal == key && *equal == ' ') {
                walk.Restart(++key);
                continue;
            }
            return equal == key ? IsTail(equal, end) : equal >= end;
        }
        const char * const behind = quote + 1;
        const bool isLast = behind == end || *behind != ' ';
        if (isLast && !IsTail(behind, end)) {
            return false;
        }
        AttributeHit hit(tokens, {equal + 2, static_cast<std::size_t>(quote - equal - 2)});
        const std::string_view keyWithEqual(key, static_cast<std::size_t>(equal + 1 - key));
        first.Test(keyWithEqual, hit);
        second.Test(keyWithEqual, hit);
        if (isLast) {
            return true;
        }
        walk.Skip();
        key = behind + 1;
    }
    return true;
}

}  // namespace

bool TakeControlFlag(AttributeHit & hit)
{
    return hit.Take() == "\x01";
}

bool TakeCornerFlag(AttributeHit & hit)
{
    return HoldsText(hit.Take(), "TURE");
}

// The second word is looked for in a value taken anew, from the token on which the first one ended.
bool TakeDirection(AttributeHit & hit)
{
    return HoldsText(hit.Take(), "FALSE") || HoldsText(hit.Take(), "false");
}

void TakeForm(const AttributeHit & hit, int knownForms, int & form)
{
    for (int code = 0; code < knownForms; ++code) {
        if (HoldsText(hit.Token(), Forms[static_cast<std::size_t>(code)])) {
            form = code;
            return;
        }
    }
}

void ScanRows(const TokenList & tokens, const AttributeRows & first, const AttributeRows & second, void * object)
{
    std::string_view rest;
    const bool mayBePlain = first.areAttributes && second.areAttributes && tokens.HasRest(rest);
    if (!mayBePlain || !ScanPlain(tokens, rest, {first, object}, {second, object})) {
        ScanTokens(tokens, first, second, object);
    }
}

void ScanTokens(const TokenList & tokens, const AttributeRows & first, const AttributeRows & second, void * object)
{
    TakeOrPassOver(tokens, [&] {
        for (int index = 0; index < tokens.Size(); ++index) {
            TestToken(tokens, index, first, object);
            TestToken(tokens, index, second, object);
        }
    });
}

}  // namespace ipc2581::detail
