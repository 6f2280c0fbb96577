#include "ipc2581/base/AttributeScan.h"

#include "ipc2581/base/platform/Number.h"

namespace ipc2581::detail {
namespace {

template <typename Field>
Attribute Row(std::string_view word, Field & field, void (*store)(AttributeHit &, void *))
{
    return {word, store, &field};
}

bool IsTrue(std::string_view value)
{
    return value.find("TRUE") != std::string_view::npos;
}

void TestToken(const TokenList & tokens, int & index, Attributes rows)
{
    const std::string_view token = tokens[index];
    for (const Attribute & row : rows) {
        if (token.find(row.word) != std::string_view::npos) {
            AttributeHit hit(tokens, index);
            row.store(hit, row.field);
            return;
        }
    }
}

}  // namespace

Attribute Text(std::string_view word, CString & field)
{
    return Row(word, field, [](AttributeHit & hit, void * to) { *static_cast<CString *>(to) = hit.Take(); });
}

Attribute Number(std::string_view word, double & field)
{
    return Row(word, field,
               [](AttributeHit & hit, void * to) { *static_cast<double *>(to) = ParseDouble(hit.Take()); });
}

Attribute Integer(std::string_view word, int & field)
{
    return Row(word, field, [](AttributeHit & hit, void * to) { *static_cast<int *>(to) = ParseInteger(hit.Take()); });
}

Attribute Flag(std::string_view word, bool & field)
{
    return Row(word, field, [](AttributeHit & hit, void * to) { *static_cast<bool *>(to) = IsTrue(hit.Take()); });
}

Attribute Flag(std::string_view word, int & field)
{
    return Row(word, field,
               [](AttributeHit & hit, void * to) { *static_cast<int *>(to) = IsTrue(hit.Take()) ? 1 : 0; });
}

Attribute ControlFlag(std::string_view word, int & field)
{
    return Row(word, field, [](AttributeHit & hit, void * to) {
        constexpr std::string_view control = "\x01";
        *static_cast<int *>(to) = hit.Take() == control ? 1 : 0;
    });
}

void ScanAttributes(const TokenList & tokens, Attributes rows)
{
    ScanAttributes(tokens, rows, {});
}

void ScanAttributes(const TokenList & tokens, Attributes first, Attributes second)
{
    for (int index = 0; index < tokens.Size(); ++index) {
        TestToken(tokens, index, first);
        TestToken(tokens, index, second);
    }
}

}  // namespace ipc2581::detail
