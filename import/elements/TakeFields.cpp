#include "import/elements/TakeFields.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string>

#include "import/EscapedText.h"
#include "ipc2581/base/Codes.h"
#include "ipc2581/base/platform/Number.h"

namespace ipc2581::detail {
namespace {

constexpr std::array<bool, 256> MakeEscaped()
{
    std::array<bool, 256> escaped = {};
    for (const char own : {'&', '<', '>', '"'}) {
        escaped[static_cast<unsigned char>(own)] = true;
    }
    return escaped;
}
constexpr std::array<bool, 256> Escaped = MakeEscaped();

bool IsEscaped(char own)
{
    return Escaped[static_cast<unsigned char>(own)];
}

std::string_view WithoutBlanks(std::string_view value)
{
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t first = value.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return value.substr(first, value.find_last_not_of(blanks) - first + 1);
}

// What may stand in a number.
enum CharKind : unsigned char { Other, Digit, Point, Sign, Exponent };

constexpr std::array<CharKind, 256> MakeCharKinds()
{
    std::array<CharKind, 256> kinds = {};
    for (unsigned char digit = '0'; digit <= '9'; ++digit) {
        kinds[digit] = Digit;
    }
    kinds['.'] = Point;
    kinds['+'] = kinds['-'] = Sign;
    kinds['e'] = kinds['E'] = Exponent;
    return kinds;
}
constexpr std::array<CharKind, 256> CharKinds = MakeCharKinds();

// A number of XML but for its named ones: digits with one point at most, a sign in front, an exponent behind.
bool IsNumber(std::string_view value)
{
    bool hasDigit = false;
    bool mayHavePoint = true;
    bool mayHaveExponent = true;
    bool maySign = true;
    for (const char own : value) {
        const CharKind kind = CharKinds[static_cast<unsigned char>(own)];
        if (kind == Digit) {
            hasDigit = true;
        }
        else if (kind == Point && mayHavePoint) {
            mayHavePoint = false;
        }
        else if (kind == Exponent && mayHaveExponent && hasDigit) {
            mayHaveExponent = mayHavePoint = hasDigit = false;
            maySign = true;
            continue;
        }
        else if (kind != Sign || !maySign) {
            return false;
        }
        maySign = false;
    }
    return hasDigit;
}

}  // namespace

void TakeText(std::string_view value, CString & text, ObjectBlocks & blocks)
{
    const bool isPlain = std::none_of(value.begin(), value.end(), IsEscaped);
    text.Assign(isPlain ? value : std::string_view(EscapedText(value)), &blocks);
}

bool TakeNumber(std::string_view value, double & number)
{
    number = ParseDoubleAhead(value);
    return (IsNumber(value) || IsNumber(WithoutBlanks(value))) && std::isfinite(number);
}

bool TakeInteger(std::string_view value, int & number)
{
    double whole = 0.0;
    const bool isWhole = TakeNumber(value, whole) && whole == std::trunc(whole);
    if (!isWhole || whole < std::numeric_limits<int>::min() || whole > std::numeric_limits<int>::max()) {
        number = ParseInteger(value);
        return false;
    }
    number = static_cast<int>(whole);
    return true;
}

bool TakeTruth(std::string_view value, bool & isTrue)
{
    const std::string_view word = WithoutBlanks(value);
    isTrue = word == "true" || word == "1" || word == "TRUE" || word == "True";
    return isTrue || word == "false" || word == "0" || word == "FALSE" || word == "False";
}

bool TakeForm(std::string_view value, int & form)
{
    const auto * const found = std::find(OuterFormWords.begin(), OuterFormWords.end(), WithoutBlanks(value));
    if (found == OuterFormWords.end()) {
        return false;
    }
    form = static_cast<int>(found - OuterFormWords.begin());
    return true;
}

bool IsTrue(std::string_view value)
{
    bool isTrue = false;
    TakeTruth(value, isTrue);
    return isTrue;
}

void TakeTextOf(const XmlElement & element, Word name, CString & text, ObjectBlocks & blocks)
{
    element.TakeAttributes([&](Word own, std::string_view value) {
        if (own == name) {
            TakeText(value, text, blocks);
        }
        return own == name;
    });
}

void TakeNumberOf(const XmlElement & element, Word name, double & number)
{
    element.TakeAttributes([&](Word own, std::string_view value) { return own == name && TakeNumber(value, number); });
}

void TakeXform(const XmlElement & element, CIPC2581_Xform & xform)
{
    element.Take();
    TakeNumberOf(element, W("xOffset"), xform.XOffset);
    TakeNumberOf(element, W("yOffset"), xform.YOffset);
    TakeNumberOf(element, W("rotation"), xform.Rotation);
    TakeNumberOf(element, W("scale"), xform.Scale);
    element.TakeAttributes([&](Word name, std::string_view value) {
        bool isMirrored = false;
        const bool isTaken = name == W("mirror") && TakeTruth(value, isMirrored);
        xform.Mirror = isTaken ? static_cast<int>(isMirrored) : xform.Mirror;
        return isTaken;
    });
}

}  // namespace ipc2581::detail
