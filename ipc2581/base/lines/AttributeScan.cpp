#include "ipc2581/base/lines/AttributeScan.h"

#include <cstdint>

#include "ipc2581/base/Codes.h"
#include "ipc2581/base/lines/Scan.h"

namespace ipc2581::detail {
namespace {

void TestToken(const TokenList & tokens, int & index, const AttributeRows & table, void * object)
{
    const std::string_view token = tokens[index];
    for (const AttributeRow & row : table.rows) {
        if (row.word.IsIn(token)) {
            TellTaken(tokens, row, index);
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

// A line of plain attributes and the places in it, of its second attribute:
//
//     <Location x="1.5" y="2.25"/>
//               |     ||  |    |||
//               |     ||  |    ||`-- end of the line; up to it there is nothing but a tail
//               |     ||  |    |`--- behind the attribute: a blank if another one follows
//               |     ||  |    `---- quote, the third character from the key on that is not ordinary
//               |     ||  `--------- value, behind the quote that follows the equal sign
//               |     |`------------ equal, the first character from the key on that is not ordinary
//               |     `------------- key
//               `------------------- key of the attribute before
//
// The line is scanned as long as it looks so. What does not goes to the token list, which takes any line.

// Gives the value to the first row of the table that the key hits, and returns the row behind that one; null if there
// is none. An attribute of the form key="value" has one "=", so a word that ends in one is held exactly if the key and
// its "=" end in it.
const AttributeRow * TakePlain(const AttributeRows & table, std::string_view keyWithEqual, AttributeHit & hit,
                               void * object)
{
    const std::uint64_t tail = Word::Tail(keyWithEqual.data() + keyWithEqual.size());
    for (const AttributeRow & row : table.rows) {
        if (row.word.MayEnd(tail) && row.word.Ends(keyWithEqual)) {
            row.store(hit, object);
            return &row + 1;
        }
    }
    return nullptr;
}

// Attributes stand in the order of their table more often than not. Takes those from the key on that do and that have a
// short value, and returns where the first other one begins; null if the line ends before. It stands on the row that
// is next.
const char * TakeInOrder(const TokenList & tokens, const char * key, const char * end, const AttributeRow *& next,
                         const AttributeRow * rowsEnd, void * object)
{
    while (next != rowsEnd && next->key.IsAt(key)) {
        const char * const value = key + next->key.Size();
        const char * const quote = FindNearSpecial(value);
        if (quote == nullptr || *quote != '"' || quote >= end) {
            return key;
        }
        const char * const behind = quote + 1;
        const bool isLast = behind == end || *behind != ' ';
        if (isLast && !IsTail(behind, end)) {
            return key;
        }
        AttributeHit hit(tokens, {value, static_cast<std::size_t>(quote - value)});
        next->store(hit, object);
        ++next;
        if (isLast) {
            return nullptr;
        }
        key = behind + 1;
    }
    return key;
}

// Scans what stands behind the first token of a line as long as it has the plain form; false from there on.
bool ScanPlain(const TokenList & tokens, std::string_view rest, const AttributeRows & first,
               const AttributeRows * second, void * object)
{
    const char * const end = rest.data() + rest.size();
    // Where a key can hit one row at most, the order of the table does not count.
    const bool mayBeInOrder = first.areApart && second == nullptr;
    const AttributeRow * const rowsEnd = first.rows.data() + first.rows.size();
    const AttributeRow * next = mayBeInOrder ? first.rows.data() : rowsEnd;
    SpecialWalk walk(rest.data(), end);
    const char * key = rest.data() + 1;
    for (;;) {
        key = TakeInOrder(tokens, key, end, next, rowsEnd, object);
        if (key == nullptr || key >= end) {
            return true;
        }
        const auto [equal, quote] = walk.FirstAndThird(key);
        const bool isAttribute = equal != key && *equal == '=' && equal[1] == '"' && *quote == '"' && quote < end;
        if (!isAttribute) {
            if (equal == key && *equal == ' ') {
                ++key;
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
        const AttributeRow * const following = TakePlain(first, keyWithEqual, hit, object);
        next = mayBeInOrder && following != nullptr ? following : next;
        if (second != nullptr) {
            TakePlain(*second, keyWithEqual, hit, object);
        }
        if (isLast) {
            return true;
        }
        key = behind + 1;
    }
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
        if (HoldsText(hit.Token(), OuterFormWords[static_cast<std::size_t>(code)])) {
            form = code;
            return;
        }
    }
}

void ScanRows(const TokenList & tokens, const AttributeRows & first, const AttributeRows * second, void * object)
{
    std::string_view rest;
    const bool mayBePlain = first.areAttributes && (second == nullptr || second->areAttributes) && tokens.HasRest(rest);
    if (!mayBePlain || !ScanPlain(tokens, rest, first, second, object)) {
        ScanTokens(tokens, first, second, object);
    }
}

void TellTaken(const TokenList & tokens, const AttributeRow & row, int index)
{
    if (tokens.Observer() != nullptr) {
        tokens.Observer()->AttributeTaken(row.word.Text(), row.reading, tokens[index]);
    }
}

void ScanTokens(const TokenList & tokens, const AttributeRows & first, const AttributeRows * second, void * object)
{
    TakeOrPassOver(tokens, [&] {
        for (int index = 0; index < tokens.Size(); ++index) {
            TestToken(tokens, index, first, object);
            if (second != nullptr) {
                TestToken(tokens, index, *second, object);
            }
        }
    });
}

}  // namespace ipc2581::detail
