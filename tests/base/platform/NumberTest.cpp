#include "ipc2581/base/platform/Number.h"

#include <array>
#include <bit>
#include <climits>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <locale>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/Locales.h"

namespace ipc2581::tests {
namespace {

using ipc2581::detail::FixedLength;
using ipc2581::detail::ParseDouble;
using ipc2581::detail::ParseDoubleAhead;
using ipc2581::detail::ParseInteger;
using ipc2581::detail::WriteFixed;

std::string Fixed(double value)
{
    std::array<char, FixedLength> text;
    return {text.data(), WriteFixed(text.data(), value)};
}

// What C reads and prints in the C locale.
double Read(const std::string & text)
{
    const PlainLocale plain;
    char * rest = nullptr;
    const double value = std::strtod(text.c_str(), &rest);
    // Some libraries give a negative 0 where there is a sign and no number.
    return rest == text.c_str() ? 0.0 : value;
}

std::string Printed(const char * format, double value)
{
    // Some libraries tell less of it, or more.
    if (std::isnan(value)) {
        return std::signbit(value) ? "-nan" : "nan";
    }
    const PlainLocale plain;
    const int length = std::snprintf(nullptr, 0, format, value);
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    std::snprintf(text.data(), text.size(), format, value);
    text.pop_back();
    return text;
}

void PrintPlain(std::vector<char> & digits, long double value)
{
    const PlainLocale plain;
    std::snprintf(digits.data(), digits.size(), "%.800Le", value);
}

// The same number with the same sign, where every nan of one sign counts as the same.
bool Same(double a, double b)
{
    if (std::isnan(a) || std::isnan(b)) {
        return std::isnan(a) && std::isnan(b) && std::signbit(a) == std::signbit(b);
    }
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

testing::AssertionResult ParsesAsInC(const std::string & text)
{
    const double expected = Read(text);
    const double actual = ParseDouble(text);
    // Digits in front of the text are no part of it.
    const std::string inBuffer = "98765432" + text;
    const bool isSameAhead = Same(ParseDoubleAhead(std::string_view(inBuffer).substr(8)), expected);
    if (Same(actual, expected) && isSameAhead) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << '"' << text << R"(" gives )" << Printed("%a", actual) << " in place of "
                                       << Printed("%a", expected);
}

testing::AssertionResult PrintsAsInC(double value)
{
    const std::string expected = Printed("%f", value);
    const std::string actual = Fixed(value);
    if (actual == expected) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << Printed("%a", value) << " gives " << actual << " in place of " << expected;
}

// Any bit pattern, so that very large, very small and special values come as often as others.
double AnyDouble(std::mt19937_64 & random)
{
    return std::bit_cast<double>(random());
}

std::vector<std::string> Words(const char * text)
{
    std::istringstream in(text);
    return {std::istream_iterator<std::string>(in), std::istream_iterator<std::string>()};
}

// A length as it stands in a board file: up to some hundred units, with few or with many decimals.
double BoardLength(std::mt19937_64 & random)
{
    static constexpr double steps[] = {1.0, 10.0, 1e3, 1e4, 1e6, 25.4, 128.0, 3e9};
    const double scale = steps[random() % std::size(steps)];
    const auto whole = static_cast<std::int64_t>(random() % 2'000'000'000) - 1'000'000'000;
    return static_cast<double>(whole) / scale;
}

// Number signs as in Germany for everything that asks the global locale of C++.
class CommaNumbers : public std::numpunct<char> {
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

class CommaLocale {
public:
    CommaLocale() : m_before(std::locale::global(std::locale(std::locale(), new CommaNumbers))) {}
    ~CommaLocale() { std::locale::global(m_before); }
    CommaLocale(const CommaLocale &) = delete;
    CommaLocale & operator=(const CommaLocale &) = delete;

private:
    std::locale m_before;
};

void ExpectPointsAndNoGroups()
{
    EXPECT_EQ(ParseDouble("1.5"), 1.5);
    EXPECT_EQ(ParseDouble("-12.25e1 mm"), -122.5);
    EXPECT_EQ(ParseDouble("1,5"), 1.0);
    EXPECT_EQ(ParseDouble("1.234.567"), 1.234);
    EXPECT_EQ(ParseDouble("0x1.8p1"), 3.0);
    EXPECT_EQ(ParseInteger("1.234"), 1);
    EXPECT_EQ(ParseInteger("1234567"), 1234567);
    EXPECT_EQ(Fixed(1.5), "1.500000");
    EXPECT_EQ(Fixed(-1234567.25), "-1234567.250000");
    EXPECT_EQ(Fixed(1e21), "1000000000000000000000.000000");
}

}  // namespace

TEST(Number, IsReadWithItsSignPointAndExponent)
{
    for (const std::string & text :
         Words("0 1 -1 +1 12.5 -12.5 +12.5 5. .5 -.5 +.5 -5. 1e3 1E3 1e+3 1e-3 1.5e3 .5e1 5.e1 1e03 1e0 "
               "1e-0 00012 -000.500 1e00005 25.4 0.1 0.3 123456789 1e22 1e23 -0 -0.0 +0 0.000000 -0e5 "
               "3.14159265358979323846 2.2250738585072011e-308 9007199254740993 9007199254740992.5")) {
        EXPECT_TRUE(ParsesAsInC(text));
    }
    EXPECT_EQ(ParseDouble("12.5"), 12.5);
    EXPECT_EQ(ParseDouble("+1.5e3"), 1500.0);
    EXPECT_TRUE(std::signbit(ParseDouble("-0.0")));
}

TEST(Number, OfAnyCountsOfDigitsIsReadAsInC)
{
    std::mt19937 random(2581);
    const auto digits = [&random](int count) {
        std::string text;
        for (; count > 0; --count) {
            text += static_cast<char>('0' + random() % 10);
        }
        return text;
    };
    for (int whole = 0; whole <= 20; ++whole) {
        for (int decimals = 0; decimals <= 20; ++decimals) {
            for (const char * const sign : {"", "-", "+", "--"}) {
                const std::string text = sign + digits(whole) + "." + digits(decimals);
                ASSERT_TRUE(ParsesAsInC(text));
                ASSERT_TRUE(ParsesAsInC(sign + digits(whole)));
                std::string spoiled = text;
                spoiled[random() % spoiled.size()] = "/:.-e x\xB1"[random() % 8];
                ASSERT_TRUE(ParsesAsInC(spoiled));
            }
        }
    }
}

TEST(Number, IsReadBehindWhiteSpaceOfEveryKind)
{
    for (const std::string space : {" ", "\t", "\n", "\v", "\f", "\r", " \t\n\v\f\r "}) {
        for (const char * number : {"1.5", "-1.5", "+1.5", ".5", "inf", "0x1p3"}) {
            EXPECT_TRUE(ParsesAsInC(space + number));
            EXPECT_TRUE(ParsesAsInC(number + space + "7"));
        }
        EXPECT_TRUE(ParsesAsInC(space));
        EXPECT_TRUE(ParsesAsInC("-" + space + "1"));
        EXPECT_EQ(ParseDouble(space + "1.5"), 1.5);
        EXPECT_EQ(ParseInteger(space + "-15"), -15);
        EXPECT_EQ(ParseInteger("-" + space + "15"), 0);
    }
    for (const std::string no_space : {"\xa0", "\x85", "\x1c", "\b", "\x01"}) {
        EXPECT_EQ(ParseDouble(no_space + "1.5"), 0.0);
        EXPECT_EQ(ParseInteger(no_space + "15"), 0);
    }
}

TEST(Number, IsTheLongestPrefixThatIsOne)
{
    for (const char * text :
         {"1.5mm", "1.5.5", "1,5",  "1 5",   "1_000", "12abc", "1e",    "1e+",    "1e-",      "1e+x",   "1ex",
          "1e5.5", "1e 5",  "1.e",  "1.5e-", "7-3",   "7+3",   "1.5f",  "1.5L",   "1.5/",     R"(2")",  "3e1e1",
          "1d5",   "0b11",  "0o17", "1'000", "5..5",  "1e5e5", "1.5\n", "1.5\t2", "0.5-0.25", "1e2-e3", "4%"}) {
        EXPECT_TRUE(ParsesAsInC(text));
    }
    EXPECT_EQ(ParseDouble("1.5mm"), 1.5);
    EXPECT_EQ(ParseDouble("1e+"), 1.0);
}

TEST(Number, IsZeroWhereThereIsNone)
{
    for (const char * text :
         {"",    " ",  "+", "-",      ".",  "-.", "+.",   "e5",  ".e5", "E",   "abc", "--1",      "+-1", "-+1",
          "++1", "$1", "/", R"("1")", "x1", "#",  "TRUE", "..5", "+e1", ". 5", "(1)", "\xc2\xb5", "p3"}) {
        EXPECT_TRUE(ParsesAsInC(text));
        EXPECT_EQ(ParseDouble(text), 0.0) << text;
        EXPECT_EQ(ParseInteger(text), 0) << text;
    }
}

TEST(Number, IsReadUpToTheEndOfAViewOnly)
{
    constexpr std::string_view digits = "1234567";
    EXPECT_EQ(ParseDouble(digits.substr(0, 3)), 123.0);
    EXPECT_EQ(ParseInteger(digits.substr(0, 3)), 123);
    EXPECT_EQ(ParseDouble(std::string_view("1e5").substr(0, 2)), 1.0);
    EXPECT_EQ(ParseDouble(std::string_view("infinity").substr(0, 2)), 0.0);
    EXPECT_EQ(ParseDouble(std::string_view()), 0.0);
    EXPECT_EQ(ParseInteger(std::string_view()), 0);
    EXPECT_EQ(ParseDouble(std::string_view("1\0005", 3)), 1.0);
    EXPECT_EQ(ParseInteger(std::string_view("1\0005", 3)), 1);
}

TEST(Number, MayBeInfinityOrNoNumberByName)
{
    for (const char * text :
         {"inf",       "INF",     "Inf",    "iNf",     "-inf",    "+inf",        "infinity", "INFINITY", "-Infinity",
          "infinit",   "infx",    "in",     "i",       "-i",      "infinityx",   "inf1",     "nan",      "NAN",
          "NaN",       "-nan",    "+nan",   "nanx",    "na",      "n",           "nan()",    "nan(1)",   "nan(abc_1)",
          "nan(",      "nan(1",   "nan(-)", "-nan(7)", "nan(1)2", "nan(0x7fff)", " inf",     "\tnan",    "- inf",
          "infinity5", "inf inf", "1inf",   "1nan",    "--inf",   "nil",         "iNFiNiTy", "+-nan"}) {
        EXPECT_TRUE(ParsesAsInC(text));
    }
    EXPECT_EQ(ParseDouble("-infinity"), -std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(ParseDouble("nan")));
}

TEST(Number, MayBeHexadecimal)
{
    for (const std::string & text :
         Words("0x10 0X10 -0x10 +0x1f 0xAbC 0x 0x. 0xg -0x 0x1p3 0x1P3 0x1p+3 0x1p-3 0x1p 0x1p+ 0x1p- "
               "0x1px 0x1.8p1 0x.8p1 0x1.p1 0x.p1 0xp1 0x1.8 0x0p5 -0x0p0 0x1e5 0x1e+5 0x1g 0x1.8.8 "
               "0x-1 0x1p1.5 x10 00x10 0x1p1023 0x1.fffffffffffffp1023 0x1p1024 -0x1p1024 0x1p-1074 "
               "0x1p-1075 0x1.8p-1074 0x1.00000000000008p0 0x1.00000000000018p0 "
               "0x1.000000000000080000000000001p0 0x1.000000000000080000000000000p0 "
               "0x1.fffffffffffff8p1023 0x1.fffffffffffff7p1023 0x1.00000000000001p-1022 "
               "0x0.fffffffffffffp-1022 0x0.fffffffffffff8p-1022 0x1.8p-1075 0x1.0000001p-1075 "
               "0x1p999999999999999999999 0x1p-99999999999999999999 0x0p99999999999999999999 "
               "0x123456789abcdef0123456789abcdef 0x0.00000000000000000000000000000001p128 "
               "0x10000000000000000000000000000000000000p-148")) {
        EXPECT_TRUE(ParsesAsInC(text));
    }
    for (const char * text : {"0 x1", "0x 1", "0x1p 1", " 0x1", "\t-0x1p1", "0x1.8 p1"}) {
        EXPECT_TRUE(ParsesAsInC(text));
    }
    EXPECT_EQ(ParseDouble("0x1.8p1"), 3.0);
}

// The digits behind "p+-" were once taken for the exponent.
TEST(Number, WithTwoSignsInItsExponentEndsBeforeThem)
{
    for (const std::string & text : Words("0x9p+-5 0x9p+-1023 0x1p-+5 0x1p++5 0x1p--5 1e+-5 1e-+5 1e++5 1e--5")) {
        EXPECT_TRUE(ParsesAsInC(text));
    }
    EXPECT_EQ(ParseDouble("0x9p+-5"), 9.0);
    EXPECT_EQ(ParseDouble("9e+-5"), 9.0);
}

TEST(Number, TooLargeIsInfinityAndTooSmallIsZero)
{
    const std::string nines(400, '9');
    const std::string zeros(400, '0');
    for (const std::string & text :
         Words("1e308 1.7976931348623157e308 1.7976931348623158e308 1.7976931348623159e308 1e309 -1e309 1e400 1e99999 "
               "-1e999999999999999999999999 1e2147483647 1e2147483648 1e4294967296 1e4294967297 "
               "1e18446744073709551616 0e999999999999999999999 -0e99999999999999999999 0.0e-99999999999999999999 "
               "1e-307 1e-308 2.2250738585072014e-308 2.2250738585072011e-308 5e-324 4.9406564584124654e-324 "
               "2.4703282292062327e-324 2.4703282292062328e-324 3e-324 2e-324 -2e-324 1e-325 1e-400 -1e-400 "
               "1e-99999 1e-999999999999999999999 -1e-18446744073709551617")) {
        EXPECT_TRUE(ParsesAsInC(text));
    }
    for (const std::string & text :
         {nines, "-" + nines, nines + "e-400", "0." + zeros + "1", "0." + zeros + "1e400", "0." + zeros + "1e401",
          "1" + zeros + "e-400", "1" + zeros + "e-401", zeros + "7", zeros + "7.5", "." + zeros, "-." + zeros + "e5",
          "1" + zeros, "1." + zeros + "1"}) {
        EXPECT_TRUE(ParsesAsInC(text));
    }
    EXPECT_EQ(ParseDouble("1e400"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(ParseDouble("-1e400"), -std::numeric_limits<double>::infinity());
    EXPECT_TRUE(Same(ParseDouble("-1e-400"), -0.0));
}

TEST(Number, OfHundredsOfDigitsIsReadToTheLastOne)
{
    std::mt19937_64 random(1);
    for (int i = 0; i < 300; ++i) {
        std::string digits;
        for (int k = 0; k < 400; ++k) {
            digits.push_back(static_cast<char>('0' + random() % 10));
        }
        EXPECT_TRUE(ParsesAsInC(digits));
        EXPECT_TRUE(ParsesAsInC(digits + "e-" + std::to_string(random() % 800)));
        EXPECT_TRUE(ParsesAsInC(digits.substr(0, 200) + "." + digits));
        EXPECT_TRUE(ParsesAsInC("." + digits + "e" + std::to_string(random() % 400)));
    }
}

TEST(Number, HalfWayBetweenTwoDoublesGoesToTheEvenOne)
{
    if constexpr (std::numeric_limits<long double>::digits <= std::numeric_limits<double>::digits) {
        GTEST_SKIP() << "a long double here holds no half way between two doubles";
    }
    std::mt19937_64 random(2);
    std::vector<char> digits(1200);
    for (int i = 0; i < 2000; ++i) {
        const double low = i % 2 == 0 ? std::abs(AnyDouble(random)) : std::abs(BoardLength(random));
        const double high = std::nextafter(low, std::numeric_limits<double>::infinity());
        if (!std::isfinite(high)) {
            continue;
        }
        const long double half = (static_cast<long double>(low) + static_cast<long double>(high)) / 2;
        PrintPlain(digits, half);
        const std::string text = digits.data();
        const std::size_t end = text.find('e');
        std::string above = text;
        above.insert(end, "1");
        std::string below = text;
        const std::size_t last = below.find_last_of("123456789", end - 1);
        --below[last];
        below.replace(last + 1, end - last - 1, end - last - 1, '9');
        EXPECT_TRUE(ParsesAsInC(text));
        EXPECT_TRUE(ParsesAsInC(above));
        EXPECT_TRUE(ParsesAsInC(below));
    }
}

TEST(Number, WrittenInAnyFormIsReadBack)
{
    std::mt19937_64 random(3);
    for (int i = 0; i < 40'000; ++i) {
        const double value = i % 2 == 0 ? AnyDouble(random) : BoardLength(random);
        for (const char * format : {"%.17g", "%f", "%g", "%.20e", "%a", "%.3A"}) {
            ASSERT_TRUE(ParsesAsInC(Printed(format, value)));
        }
        if (!std::isnan(value)) {
            ASSERT_TRUE(Same(ParseDouble(Printed("%.17g", value)), value));
        }
    }
}

TEST(Number, IsReadAsInCFromArbitraryText)
{
    constexpr std::string_view marks = "0123456789012345678900..--++eeEExXpPinfINFatyAN() \t\r,\"/";
    std::mt19937_64 random(4);
    for (int i = 0; i < 200'000; ++i) {
        std::string text = i % 4 == 0 ? "0x" : "";
        for (auto length = random() % 12; length > 0; --length) {
            text.push_back(marks[static_cast<std::size_t>(random() % marks.size())]);
        }
        ASSERT_TRUE(ParsesAsInC(text));
    }
}

TEST(Number, IntegerIsTheLongestPrefixOfDigits)
{
    const struct {
        const char * text;
        int value;
    } table[] = {{"0", 0},     {"7", 7},      {"-7", -7}, {"+7", 7},   {"007", 7},   {"-007", -7}, {"1.9", 1},
                 {"-1.9", -1}, {"12abc", 12}, {"1e3", 1}, {"0x10", 0}, {"1,000", 1}, {"1 2", 1},   {" \t\n\v\f\r5", 5},
                 {"5 ", 5},    {"--5", 0},    {"+-5", 0}, {"-+5", 0},  {"", 0},      {" ", 0},     {"-", 0},
                 {"+", 0},     {"a1", 0},     {".5", 0},  {"- 5", 0},  {"-0", 0},    {"010", 10},  {R"(3")", 3},
                 {"4/", 4},    {"6-7", 6}};
    for (const auto & row : table) {
        EXPECT_EQ(ParseInteger(row.text), row.value) << row.text;
        EXPECT_EQ(std::atoi(row.text), row.value) << row.text;
    }
}

TEST(Number, IntegerStopsAtTheLimitsOfInt)
{
    const std::string max = std::to_string(INT_MAX);
    const std::string min = std::to_string(INT_MIN);
    EXPECT_EQ(ParseInteger(max), INT_MAX);
    EXPECT_EQ(ParseInteger(min), INT_MIN);
    EXPECT_EQ(ParseInteger("2147483646"), 2147483646);
    EXPECT_EQ(ParseInteger("-2147483647"), -2147483647);
    EXPECT_EQ(ParseInteger(std::string(30, '0') + max + ".5"), INT_MAX);
    for (const std::string digits :
         {"2147483648", "2147483650", "2147483657", "4294967295", "4294967296", "4294967301", "9999999999",
          "9223372036854775807", "9223372036854775808", "18446744073709551616", "18446744073709551621"}) {
        EXPECT_EQ(ParseInteger(digits), INT_MAX) << digits;
        EXPECT_EQ(ParseInteger("+" + digits + "x"), INT_MAX) << digits;
        EXPECT_EQ(ParseInteger("-" + digits), INT_MIN) << digits;
    }
    EXPECT_EQ(ParseInteger(std::string(500, '9')), INT_MAX);
    EXPECT_EQ(ParseInteger("-" + std::string(500, '9')), INT_MIN);
}

TEST(Number, IntegerIsReadAsInC)
{
    constexpr std::string_view marks = "01234567890123456789-+ \t\n.ex,";
    std::mt19937_64 random(5);
    for (int i = 0; i < 100'000; ++i) {
        std::string text;
        for (auto length = random() % 10; length > 0; --length) {
            text.push_back(marks[static_cast<std::size_t>(random() % marks.size())]);
        }
        ASSERT_EQ(ParseInteger(text), std::atoi(text.c_str())) << '"' << text << '"';
    }
}

TEST(Number, IsWrittenWithSixDecimals)
{
    EXPECT_EQ(Fixed(0.0), "0.000000");
    EXPECT_EQ(Fixed(-0.0), "-0.000000");
    EXPECT_EQ(Fixed(1.0), "1.000000");
    EXPECT_EQ(Fixed(-12.5), "-12.500000");
    EXPECT_EQ(Fixed(0.1234564), "0.123456");
    EXPECT_EQ(Fixed(0.1234566), "0.123457");
    EXPECT_EQ(Fixed(0.9999996), "1.000000");
    EXPECT_EQ(Fixed(-0.0000001), "-0.000000");
    EXPECT_EQ(Fixed(1e15), "1000000000000000.000000");
}

TEST(Number, AtTheEndsOfTheRangeIsWrittenInFull)
{
    using Limits = std::numeric_limits<double>;
    for (const std::string & number : Words(
             "1e308 1.7976931348623157e308 2.2250738585072014e-308 2.2250738585072009e-308 5e-324 1e-310 2.2e-16 1e-5 "
             "1e-6 1e-7 5e-7 4.9999999999999998e-7 5.0000000000000004e-7 1e17 1e18 1e19 1e20 1e21 1e22 1e23 1e100 "
             "1e200 9007199254740991 9007199254740992 9007199254740994 4503599627370495.5 4503599627370496.5 "
             "2251799813685247.75 9223372036854774784 9223372036854775808 18446744073709549568 18446744073709551616 "
             "9223372036854.5 9223372036854.775 18446744073709.55 4294967295.9999999 0.99999949999999994 0.9999995 "
             "0.99999950000000001 999999.9999995 9999999.9999995 123456789.123456789 0.3 0.1 25.4 inf nan")) {
        const double value = Read(number);
        EXPECT_TRUE(PrintsAsInC(value));
        EXPECT_TRUE(PrintsAsInC(-value));
    }
    EXPECT_EQ(Fixed(Limits::infinity()), "inf");
    EXPECT_EQ(Fixed(-Limits::infinity()), "-inf");
    EXPECT_EQ(Fixed(1e308).size(), 309U + 7U);
}

TEST(Number, HalfWayBetweenTwoSixthDecimalsIsWrittenAsTheEvenOne)
{
    EXPECT_EQ(Fixed(1.0 / 128), "0.007812");
    EXPECT_EQ(Fixed(3.0 / 128), "0.023438");
    EXPECT_EQ(Fixed(-5.0 / 128), "-0.039062");
    for (int k = 1; k < 20'000; k += 2) {
        for (const double whole : {0.0, 1000.0, 67108864.0, 34359738368.0}) {
            const double half = whole + k / 128.0;
            EXPECT_TRUE(PrintsAsInC(half));
            EXPECT_TRUE(PrintsAsInC(-half));
            EXPECT_TRUE(PrintsAsInC(std::nextafter(half, 0.0)));
            EXPECT_TRUE(PrintsAsInC(std::nextafter(half, 1e308)));
        }
    }
}

TEST(Number, NearHalfASixthDecimalIsWrittenByItsExactValue)
{
    for (int k = 0; k < 50'000; ++k) {
        const double half = (k + 0.5) * 1e-6;
        EXPECT_TRUE(PrintsAsInC(half));
        EXPECT_TRUE(PrintsAsInC(std::nextafter(half, 0.0)));
        EXPECT_TRUE(PrintsAsInC(std::nextafter(half, 1.0)));
        EXPECT_TRUE(PrintsAsInC(100.0 + half));
    }
}

TEST(Number, OfAnyBitsIsWrittenAsInC)
{
    std::mt19937_64 random(6);
    for (int i = 0; i < 200'000; ++i) {
        ASSERT_TRUE(PrintsAsInC(AnyDouble(random)));
    }
}

TEST(Number, OfABoardIsWrittenAsInC)
{
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> length(-1000.0, 1000.0);
    std::uniform_real_distribution<double> exponent(-9.0, 18.0);
    for (int i = 0; i < 200'000; ++i) {
        ASSERT_TRUE(PrintsAsInC(BoardLength(random)));
        ASSERT_TRUE(PrintsAsInC(length(random)));
        ASSERT_TRUE(PrintsAsInC(std::pow(10.0, exponent(random))));
    }
}

TEST(Number, AsksNoLocaleOfCxx)
{
    const CommaLocale comma;
    ExpectPointsAndNoGroups();
}

TEST(Number, AsksNoLocaleOfC)
{
    std::mt19937_64 random(8);
    std::vector<double> values;
    std::vector<std::string> texts;
    for (int i = 0; i < 20'000; ++i) {
        values.push_back(i % 2 == 0 ? AnyDouble(random) : BoardLength(random));
        texts.push_back(Printed("%f", values.back()));
    }
    const GermanLocale german;
    if (!german.IsSet()) {
        GTEST_SKIP() << "no German locale is installed";
    }
    ExpectPointsAndNoGroups();
    for (std::size_t i = 0; i < values.size(); ++i) {
        ASSERT_EQ(Fixed(values[i]), texts[i]);
        ASSERT_TRUE(Same(Fixed(ParseDouble(texts[i])) == texts[i] ? 0.0 : 1.0, 0.0)) << texts[i];
    }
}

}  // namespace ipc2581::tests
