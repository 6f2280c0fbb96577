#include "ipc2581/base/lines/AttributeScan.h"

#include <cstdint>

#include "ipc2581/base/lines/Scan.h"
#include "ipc2581/base/platform/Number.h"

namespace ipc2581::detail {
namespace {

bool IsTrue(std::string_view value)
{
    return HoldsText(value, "TRUE");
}

void TestToken(const TokenList & tokens, int & index, Attributes rows)
{
    const std::string_view token = tokens[index];
    for (const Attribute & row : rows) {
        if (row.word.IsIn(token)) {
            AttributeHit hit(tokens, index);
            row.store(hit, row.field);
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

// A token of the form key="value" has one "=", so a word that ends in one is held exactly if the key and its "=" end in
// it.
void TestPlain(std::string_view keyWithEqual, AttributeHit & value, Attributes rows)
{
    const std::uint64_t tail = Word::Tail(keyWithEqual.data() + keyWithEqual.size());
    for (const Attribute & row : rows) {
        if (row.word.MayEnd(tail) && row.word.Ends(keyWithEqual)) {
            row.store(value, row.field);
            return;
        }
    }
}

// Scans what stands behind the first token of a line as long as it has the plain form; false from there on.
bool ScanPlain(const TokenList & tokens, std::string_view rest, Attributes first, Attributes second)
{
    const char * const end = rest.data() + rest.size();
    AttributeHit value(tokens);
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
        value.SetPlain({equal + 2, static_cast<std::size_t>(quote - equal - 2)});
        const std::string_view keyWithEqual(key, static_cast<std::size_t>(equal + 1 - key));
        TestPlain(keyWithEqual, value, first);
        if (second.size() != 0) {
            TestPlain(keyWithEqual, value, second);
        }
        if (isLast) {
            return true;
        }
        walk.Skip();
        key = behind + 1;
    }
    return true;
}

// Any other word may be held by the first token, or by one without "=".
bool AreAttributes(Attributes rows)
{
    for (const Attribute & row : rows) {
        if (!row.word.IsAttribute()) {
            return false;
        }
    }
    return true;
}

}  // namespace

void StoreText(AttributeHit & hit, void * field)
{
    hit.TakeInto(*static_cast<CString *>(field));
}

void StoreNumber(AttributeHit & hit, void * field)
{
    *static_cast<double *>(field) = hit.TakeNumber();
}

void StoreInteger(AttributeHit & hit, void * field)
{
    *static_cast<int *>(field) = ParseInteger(hit.Take());
}

void StoreBoolFlag(AttributeHit & hit, void * field)
{
    *static_cast<bool *>(field) = IsTrue(hit.Take());
}

void StoreIntFlag(AttributeHit & hit, void * field)
{
    *static_cast<int *>(field) = IsTrue(hit.Take()) ? 1 : 0;
}

void StoreControlFlag(AttributeHit & hit, void * field)
{
    constexpr std::string_view control = "\x01";
    *static_cast<int *>(field) = hit.Take() == control ? 1 : 0;
}

void ScanAttributes(const TokenList & tokens, Attributes first, Attributes second)
{
    std::string_view rest;
    const bool mayBePlain = tokens.HasRest(rest) && AreAttributes(first) && AreAttributes(second);
    if (!mayBePlain || !ScanPlain(tokens, rest, first, second)) {
        ScanTokens(tokens, first, second);
    }
}

void ScanTokens(const TokenList & tokens, Attributes first, Attributes second)
{
    for (int index = 0; index < tokens.Size(); ++index) {
        TestToken(tokens, index, first);
        TestToken(tokens, index, second);
    }
}

}  // namespace ipc2581::detail
