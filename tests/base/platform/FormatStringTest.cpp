#include "ipc2581/base/platform/FormatString.h"

#include <bit>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/base/platform/CString.h"
#include "tests/support/Files.h"
#include "tests/support/Locales.h"

namespace ipc2581::tests {
namespace {

// What printf of C gives in the C locale.
template <typename... Arguments>
std::string PrintedByC(const std::string & format, const Arguments &... arguments)
{
    const PlainLocale plain;
    const int length = std::snprintf(nullptr, 0, format.c_str(), arguments...);
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    std::snprintf(text.data(), text.size(), format.c_str(), arguments...);
    text.pop_back();
    return text;
}

template <typename... Arguments>
std::string Formatted(const std::string & format, const Arguments &... arguments)
{
    CString text;
    text.Format(format, arguments...);
    return Str(text);
}

template <typename... Arguments>
bool IsRefused(const std::string & format, const Arguments &... arguments)
{
    CString text("before");
    try {
        text.Format(format, arguments...);
        return false;
    }
    catch (const CInvalidArgException &) {
        return text == "before";
    }
}

// Conversions of all forms, of which half have each part that one may have.
class AnyConversion {
public:
    explicit AnyConversion(unsigned seed) : m_random(seed) {}

    std::string Of(const std::string & lengths, const std::string & letters)
    {
        std::string format = "[%";
        for (const char flag : std::string("-+ #0")) {
            format += Half() ? std::string(1, flag) : "";
        }
        format += Half() ? std::to_string(1 + m_random() % 30) : "";
        format += Half() ? "." + (Half() ? std::to_string(m_random() % 25) : "") : "";
        return format + lengths + letters[static_cast<std::size_t>(m_random() % letters.size())] + "]";
    }
    std::uint64_t Bits() { return m_random(); }
    bool Half() { return m_random() % 2 == 0; }

private:
    std::mt19937_64 m_random;
};

// Flags that C gives no meaning with a letter are left out of what is compared.
std::string Without(std::string format, const std::string & flags)
{
    std::erase_if(format, [&flags](char ch) { return flags.find(ch) != std::string::npos; });
    return format;
}

template <typename Value>
void CompareIntegers(const std::string & length, unsigned seed)
{
    AnyConversion any(seed);
    for (int i = 0; i < 2000; ++i) {
        const Value value = any.Half() ? static_cast<Value>(any.Bits()) : static_cast<Value>(any.Bits() % 200) - 100;
        const std::string isSigned = Without(any.Of(length, "di"), "#");
        ASSERT_EQ(Formatted(isSigned, value), PrintedByC(isSigned, value)) << isSigned;
        const std::string isNot = Without(any.Of(length, "oxX"), "+ ");
        ASSERT_EQ(Formatted(isNot, value), PrintedByC(isNot, value)) << isNot;
        const std::string plain = Without(any.Of(length, "u"), "+ #");
        ASSERT_EQ(Formatted(plain, value), PrintedByC(plain, value)) << plain;
    }
}

// The C library of mingw-w64 fills a hexadecimal number with zeros also where a "-" wants blanks.
std::string ForNumbers(const std::string & format)
{
#if defined(_WIN32)
    return format.find_first_of("aA") != std::string::npos ? Without(format, "-") : format;
#else
    return format;
#endif
}

void CompareNumbers()
{
    AnyConversion any(3);
    for (int i = 0; i < 20000; ++i) {
        const double wild = std::bit_cast<double>(any.Bits());
        const double usual = static_cast<double>(static_cast<std::int64_t>(any.Bits() % 20000001) - 10000000) / 1e4;
        const double value = i % 3 == 0 ? wild : usual;
        const std::string format = ForNumbers(any.Of("", "fFeEgGaA"));
        ASSERT_EQ(Formatted(format, value), PrintedByC(format, value)) << format;
        const std::string longFormat = ForNumbers(any.Of("L", "fFeEgGaA"));
        const long double longValue = static_cast<long double>(value) / 3;
        ASSERT_EQ(Formatted(longFormat, longValue), PrintedByC(longFormat, longValue)) << longFormat;
    }
}

}  // namespace

TEST(FormatString, PrintsIntegersAsCDoes)
{
    CompareIntegers<int>("", 1);
    CompareIntegers<int>("h", 2);
    CompareIntegers<int>("hh", 3);
    CompareIntegers<long>("l", 4);
    CompareIntegers<long long>("ll", 5);
    CompareIntegers<std::intmax_t>("j", 6);
    CompareIntegers<std::ptrdiff_t>("t", 7);
    CompareIntegers<std::ptrdiff_t>("z", 8);
}

TEST(FormatString, PrintsNumbersAsCDoes)
{
    CompareNumbers();
}

TEST(FormatString, PrintsAPointInEveryLocale)
{
    const GermanLocale german;
    if (!german.IsSet()) {
        GTEST_SKIP() << "no German locale is installed";
    }
    EXPECT_EQ(Formatted("%.2f|%e|%g|%a|%'d", 1234.5, 1234.5, 0.5, 1.5, 1234567),
              "1234.50|1.234500e+03|0.5|0x1.8p+0|1234567");
    CompareNumbers();
}

TEST(FormatString, PrintsTextsAsCDoes)
{
    AnyConversion any(9);
    for (int i = 0; i < 2000; ++i) {
        const std::string text(static_cast<std::size_t>(any.Bits() % 40), 'x');
        const std::string format = Without(any.Of("", "s"), "+ #0");
        ASSERT_EQ(Formatted(format, text), PrintedByC(format, text.c_str())) << format;
        const std::string character = Without(Without(any.Of("", "c"), "+ #0"), ".");
        const int ch = 'a' + static_cast<int>(any.Bits() % 26);
        ASSERT_EQ(Formatted(character, ch), PrintedByC(character, ch)) << character;
    }
}

TEST(FormatString, TakesWidthAndPrecisionFromArguments)
{
    for (const int width : {-12, -1, 0, 1, 12}) {
        for (const int precision : {-3, 0, 3}) {
            EXPECT_EQ(Formatted("[%*.*f]", width, precision, 2.71828),
                      PrintedByC("[%*.*f]", width, precision, 2.71828));
            EXPECT_EQ(Formatted("[%0*d]", width, 42), PrintedByC("[%0*d]", width, 42));
            EXPECT_EQ(Formatted("[%.*s]", precision, "abcdef"), PrintedByC("[%.*s]", precision, "abcdef"));
        }
    }
}

TEST(FormatString, PrintsPointersAsCDoes)
{
    const int here = 0;
    const std::string pointer = PrintedByC("%p", &here);
    const std::string blanks(20 - pointer.size(), ' ');
    EXPECT_EQ(Formatted("%p|%20p|%-20p|", &here, &here, &here),
              pointer + "|" + blanks + pointer + "|" + pointer + blanks + "|");
    EXPECT_EQ(Formatted("%p", nullptr), PrintedByC("%p", static_cast<void *>(nullptr)));
}

TEST(FormatString, KeepsZeroBytesOfATextAndNoneOfAFormat)
{
    EXPECT_EQ(Formatted("<%s>", std::string("a\0b", 3)), std::string("<a\0b>", 5));
    CString text;
    const char * const format = "ab\0cd";
    text.Format(format);
    EXPECT_EQ(text, "ab");
}

TEST(FormatString, TakesSmallAndUnscopedValuesAsIntegers)
{
    enum Side { Top, Bottom };
    const short number = -3;
    EXPECT_EQ(Formatted("%d %d %d %d %c", number, true, Bottom, 'a', 'b'), "-3 1 1 97 b");
    EXPECT_EQ(Formatted("%u", 4000000000U), "4000000000");
    EXPECT_EQ(Formatted("%d", 4000000000U), "-294967296");
    EXPECT_EQ(Formatted("%x", -1), "ffffffff");
}

TEST(FormatString, RefusesWhatDoesNotFit)
{
    const int value = 1;
    int count = 0;
    EXPECT_TRUE(IsRefused("%d"));
    EXPECT_TRUE(IsRefused("none", value));
    EXPECT_TRUE(IsRefused("%d", value, value));
    EXPECT_TRUE(IsRefused("%d %d", value));
    EXPECT_TRUE(IsRefused("%f", value));
    EXPECT_TRUE(IsRefused("%d", 1.0));
    EXPECT_TRUE(IsRefused("%s", value));
    EXPECT_TRUE(IsRefused("%d", "text"));
    EXPECT_TRUE(IsRefused("%d", nullptr));
    EXPECT_TRUE(IsRefused("%Lf", 1.0));
    EXPECT_TRUE(IsRefused("%f", 1.0L));
    EXPECT_TRUE(IsRefused("%lld", value));
    EXPECT_TRUE(IsRefused("%d", 1LL));
    EXPECT_TRUE(IsRefused("%c", 1LL));
    EXPECT_TRUE(IsRefused("%*d", 1LL, value));
    EXPECT_TRUE(IsRefused("%.*d", 1.0, value));
    EXPECT_TRUE(IsRefused("%*d", value));
    EXPECT_TRUE(IsRefused("%n", &count));
    EXPECT_TRUE(IsRefused("%hn", &count));
    EXPECT_TRUE(IsRefused("%p", value));
    EXPECT_TRUE(IsRefused("%s", &count));
}

TEST(FormatString, RefusesWhatIsNotWellFormed)
{
    for (const char * format : {"%", "100%", "%-", "%5", "%5.", "%l", "%y", "%hs", "%lc", "%Ld", "%1$d", "%-%", "%5%",
                                "% ", "%k", "%100000000d", "%.999999999999d"}) {
        EXPECT_TRUE(IsRefused(format, 1)) << format;
        EXPECT_TRUE(IsRefused(format)) << format;
    }
}

TEST(FormatString, MayBeComputedInEveryWay)
{
    CString text;
    char buffer[8] = "%03d";
    text.Format(buffer, 7);
    EXPECT_EQ(text, "007");
    const char * const pointer = buffer;
    text.Format(pointer, 8);
    EXPECT_EQ(text, "008");
    const CString computed(buffer);
    text.Format(computed, 9);
    EXPECT_EQ(text, "009");
    static constexpr char constant[] = "%02d";
    text.Format(constant, 1);
    EXPECT_EQ(text, "01");
    text = "%s again";
    text.Format(text, text);
    EXPECT_EQ(text, "%s again again");
}

}  // namespace ipc2581::tests
