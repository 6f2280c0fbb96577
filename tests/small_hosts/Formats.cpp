// Texts are formatted as printf does it in the C locale, by a literal or by a format that was computed.
#include <climits>
#include <clocale>
#include <cstdint>

#include "tests/small_hosts/Expect.h"

namespace {

// Declared and never defined, as for printf.
struct Limits {
    static const int Pins = 5;
};

template <typename Format, typename... Arguments>
CString Formatted(const Format & format, const Arguments &... arguments)
{
    CString text;
    text.Format(format, arguments...);
    return text;
}

template <typename... Arguments>
void ExpectRefused(const char * format, const Arguments &... arguments)
{
    CString text("kept");
    Expect(Throws<CInvalidArgException>([&] { text.Format(format, arguments...); }), format);
    Expect(text == "kept", "a refused format changes nothing");
}

void FormatEverything()
{
    CString text;
    text.Format("%5.2f|%x|%ld|%c|%*d", 1.005, 255, 7L, 'a', 6, 42);
    Expect(text == " 1.00|ff|7|a|    42", "a literal has flags, widths and lengths");
    text.Format("%-8s|%08.3f|%+d|%#X|%e|%g", CString("R1"), -1.5, 3, 255, 12345.678, 0.0001);
    Expect(text == "R1      |-001.500|+3|0XFF|1.234568e+04|0.0001", "and everything else");
    text.Format("%.3s|%lld|%zu|%hhd|%i%%", "abcdef", 1LL << 40, sizeof(int), 300, 5);
    Expect(text == "abc|1099511627776|4|44|5%", "precisions, long and short numbers");
    text.Format("%s is %s", text, nullptr);
    Expect(text == "abc|1099511627776|4|44|5% is ", "the text itself, and a null text");

    const char * pointer = "%5.1f mm";
    Expect(Formatted(pointer, 2.54) == "  2.5 mm", "a format behind a pointer");
    const CString computed = CString("%0") + '4' + "d";
    Expect(Formatted(computed, 12) == "0012", "a format that was put together");
    char buffer[16] = "%s=%d";
    text.Format(buffer, "n", 1);
    Expect(text == "n=1", "a format in a buffer");
    Expect(Formatted(pointer, 1.0f) == "  1.0 mm", "a float counts as a double");
    const char * const null = nullptr;
    Expect(Formatted(null) == "", "a null format is empty");

    const char withoutZero[3] = {'a', 'b', 'c'};
    text.Format("%.3s|%.*s", withoutZero, 2, withoutZero);
    Expect(text == "abc|ab", "a precision keeps off what is behind a text");
    static constexpr char padded[16] = "%d pins";
    text.Format(padded, Limits::Pins);
    Expect(text == "5 pins", "a format ends at its zero byte, and an argument is a value");

    ExpectRefused("%d", 1.5);
    ExpectRefused("%d", 1LL);
    ExpectRefused("%s", 5);
    ExpectRefused("%f", "1.5");
    ExpectRefused("%d");
    ExpectRefused("%d", 1, 2);
    ExpectRefused("%*d", 1.0, 2);
    ExpectRefused("%");
    ExpectRefused("%y", 1);
    ExpectRefused("100%");
    ExpectRefused("%ls", "a");
    ExpectRefused("%1$d", 1);
    int count = 0;
    ExpectRefused("%n", &count);
    ExpectRefused("%99999999999d", 1);
}

}  // namespace

int main()
{
    FormatEverything();
    if (std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr) {
        FormatEverything();
    }
}
