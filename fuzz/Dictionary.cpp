// Writes the words of the tables that the reader reads with, as a dictionary for fuzzers: a word a line, in quotes.

#include <array>
#include <iostream>
#include <set>
#include <string>
#include <string_view>

#include <ipc2581/fields.h>

namespace {

using ipc2581::AttributeInfo;
using ipc2581::ClassInfo;
using ipc2581::FieldInfo;

using Words = std::set<std::string>;

// Quotes and line ends come escaped, as a dictionary has them.
constexpr std::string_view Quote = R"(\")";

// Without attributes, and the element of no member: no table names them.
constexpr std::array<std::string_view, 3> OtherElements = {"IPC-2581", "Contour", "Polyline"};

// What values are asked for, and what makes lines, tokens and values.
constexpr std::array<std::string_view, 11> OtherWords = {
    "TRUE", "FALSE", "TURE", "false", R"(\x01)", "/>", R"(\" />)", R"(\">\x0A)", "   ", R"(\x0D\x0A)", R"(\x09)"};

void AddElement(std::string_view element, Words & words)
{
    const std::string name(element);
    if (name.empty()) {
        return;
    }
    words.insert("<" + name);
    words.insert("<" + name + ">");
    words.insert("</" + name + ">");
    words.insert("<" + name + "/>");
}

void AddClass(const ClassInfo & info, Words & words)
{
    for (const FieldInfo & member : info.members) {
        AddElement(member.element, words);
    }
    for (const AttributeInfo & attribute : info.attributes) {
        AddElement(attribute.element, words);
        const std::string begin = std::string(attribute.word) + (attribute.IsWide() ? "=" : "");
        words.insert(begin + std::string(Quote));
    }
}

}  // namespace

int main()
{
    Words words;
    for (const ClassInfo & info : ipc2581::DescribeClasses()) {
        AddClass(info, words);
    }
    for (const std::string_view element : OtherElements) {
        AddElement(element, words);
    }
    words.insert(ipc2581::OuterFormWords.begin(), ipc2581::OuterFormWords.end());
    words.insert(OtherWords.begin(), OtherWords.end());
    for (const std::string & word : words) {
        std::cout << '"' << word << "\"\n";
    }
    return std::cout.flush() ? 0 : 1;
}
