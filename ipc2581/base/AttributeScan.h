#ifndef IPC2581_BASE_ATTRIBUTESCAN_H
#define IPC2581_BASE_ATTRIBUTESCAN_H

#include <initializer_list>
#include <string_view>

#include "ipc2581/base/TokenList.h"
#include "ipc2581/base/platform/CString.h"

namespace ipc2581::detail {

// The token that a test has hit, while its value is taken.
class AttributeHit {
public:
    AttributeHit(const TokenList & tokens, int & index) : m_tokens(tokens), m_index(index), m_token(tokens[index]) {}

    // The token as it stands, without taking a value.
    bool TokenHolds(std::string_view word) const { return m_token.find(word) != std::string_view::npos; }
    // Takes the value, which may move the scan on to a later token; a second call starts at the token that the first
    // one ended on.
    std::string_view Take() { return m_tokens.Value(m_index); }

private:
    const TokenList & m_tokens;
    int & m_index;
    std::string_view m_token;
};

// One row of an attribute table: a token that holds the word is stored in the field.
struct Attribute {
    std::string_view word;
    void (*store)(AttributeHit & hit, void * field);
    void * field;
};

using Attributes = std::initializer_list<Attribute>;

// The value as text.
Attribute Text(std::string_view word, CString & field);
// The value as atof reads it.
Attribute Number(std::string_view word, double & field);
// The value as atoi reads it.
Attribute Integer(std::string_view word, int & field);
// True, or 1, if the value holds "TRUE" in upper case, else false, or 0.
Attribute Flag(std::string_view word, bool & field);
Attribute Flag(std::string_view word, int & field);
// 1 if the value is the one character with the code 1, else 0: no word that a real file carries gives 1.
Attribute ControlFlag(std::string_view word, int & field);

// Walks the tokens from the first one on. Each is tested against the rows in their order, and the first word that the
// token holds takes its value. A repeated attribute overwrites, an absent one leaves its field as it was.
void ScanAttributes(const TokenList & tokens, Attributes rows);

// The double form: after each token has passed the first rows, the token on which the scan then stands is tested
// against the second rows, whatever the first have done.
void ScanAttributes(const TokenList & tokens, Attributes first, Attributes second);

}  // namespace ipc2581::detail

#endif
