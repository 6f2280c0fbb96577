#include "hosts/ipc2581/text/Text.h"

#include <algorithm>

namespace ipc2581::host {

std::string OneLine(std::string text)
{
    std::replace_if(
        text.begin(), text.end(), [](unsigned char ch) { return ch < ' ' || ch == 0x7f; }, '?');
    return text;
}

std::string LowerCase(std::string text)
{
    for (char & ch : text) {
        ch = ch >= 'A' && ch <= 'Z' ? static_cast<char>(ch - 'A' + 'a') : ch;
    }
    return text;
}

}  // namespace ipc2581::host
