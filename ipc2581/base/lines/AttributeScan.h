#ifndef IPC2581_BASE_LINES_ATTRIBUTESCAN_H
#define IPC2581_BASE_LINES_ATTRIBUTESCAN_H

#include <initializer_list>
#include <string_view>

#include "ipc2581/base/lines/TokenList.h"
#include "ipc2581/base/lines/Word.h"
#include "ipc2581/base/platform/CString.h"
#include "ipc2581/base/platform/Number.h"

namespace ipc2581::detail {

// The token that a test has hit, while its value is taken.
class AttributeHit {
public:
    // A token of a list.
    AttributeHit(const TokenList & tokens, int & index) : m_tokens(tokens), m_index(&index), m_text(tokens[index]) {}
    // A token that is known to hold nothing beside its key and its value.
    explicit AttributeHit(const TokenList & tokens) : m_tokens(tokens) {}
    void SetPlain(std::string_view value) { m_text = value; }

    // The token as it stands, without taking a value. Asked only of rows whose word has no "=".
    bool TokenHolds(std::string_view word) const { return HoldsText(m_text, word); }
    // Takes the value, which may move the scan on to a later token; a second call starts at the token that the first
    // one ended on.
    std::string_view Take() { return m_index == nullptr ? m_text : m_tokens.Value(*m_index); }
    // Takes the value as atof reads it.
    double TakeNumber() { return m_index == nullptr ? ParseDoubleAhead(m_text) : ParseDouble(Take()); }
    // Takes the value into a text.
    void TakeInto(CString & text) { text.Assign(Take(), m_tokens.Blocks()); }

private:
    const TokenList & m_tokens;
    int * m_index = nullptr;
    std::string_view m_text;
};

// One row of an attribute table: a token that holds the word is stored in the field.
struct Attribute {
    Word word;
    void (*store)(AttributeHit & hit, void * field);
    void * field;
};

using Attributes = std::initializer_list<Attribute>;

void StoreText(AttributeHit & hit, void * field);
void StoreNumber(AttributeHit & hit, void * field);
void StoreInteger(AttributeHit & hit, void * field);
void StoreBoolFlag(AttributeHit & hit, void * field);
void StoreIntFlag(AttributeHit & hit, void * field);
void StoreControlFlag(AttributeHit & hit, void * field);

// The value as text.
inline Attribute Text(Word word, CString & field)
{
    return {word, &StoreText, &field};
}
// The value as atof reads it.
inline Attribute Number(Word word, double & field)
{
    return {word, &StoreNumber, &field};
}
// The value as atoi reads it.
inline Attribute Integer(Word word, int & field)
{
    return {word, &StoreInteger, &field};
}
// True, or 1, if the value holds "TRUE" in upper case, else false, or 0.
inline Attribute Flag(Word word, bool & field)
{
    return {word, &StoreBoolFlag, &field};
}
inline Attribute Flag(Word word, int & field)
{
    return {word, &StoreIntFlag, &field};
}
// 1 if the value is the one character with the code 1, else 0: no word that a real file carries gives 1.
inline Attribute ControlFlag(Word word, int & field)
{
    return {word, &StoreControlFlag, &field};
}

// Walks the tokens from the first one on. Each is tested against the rows in their order, and the first word that the
// token holds takes its value. A repeated attribute overwrites, an absent one leaves its field as it was.
//
// A store must only assign: a line that turns out not to be of the plain form key="value" is scanned again from its
// first token, by the token list.
//
// The double form: after each token has passed the first rows, the token on which the scan then stands is tested
// against the second rows, whatever the first have done.
void ScanAttributes(const TokenList & tokens, Attributes first, Attributes second = {});

// The scan by the token list alone, which the scan of plain lines must agree with on every input.
void ScanTokens(const TokenList & tokens, Attributes first, Attributes second);

}  // namespace ipc2581::detail

#endif
