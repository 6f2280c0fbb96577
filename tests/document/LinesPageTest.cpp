// Runs the examples of docs/lines.md.

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/ipc2581.h"
#include "tests/document/ModelValues.h"
#include "tests/support/Files.h"
#include "tests/support/Text.h"

namespace ipc2581::tests {
namespace {

constexpr const char * Page = IPC2581_SOURCE_FOLDER "/docs/lines.md";
constexpr std::string_view Fence = "```";
constexpr std::string_view LineByItself = "a line by itself";
constexpr std::string_view WholeFile = "a whole file";

// An example of the page: the lines of a file, what becomes of them, and, where it is shown, what is written back.
struct Example {
    int number = 0;
    std::string place;
    std::vector<Texts> blocks;
};

struct Examples {
    std::vector<Example> all;
    int blocksOutside = 0;
};

// The text with each control picture as the character that it stands for: in UTF-8 that is the third byte, less 0x80.
std::string WithoutPictures(std::string text)
{
    constexpr std::string_view picture = "\xe2\x90";
    for (std::size_t at = 0; (at = text.find(picture, at)) != std::string::npos; ++at) {
        const char ch = static_cast<char>(text[at + picture.size()] & 0x7f);
        text.replace(at, picture.size() + 1, 1, ch);
    }
    return text;
}

// "**Example 7**, inside `Ecad/CadData`. Words." gives 7 and Ecad/CadData.
Example FromHead(const std::string & line)
{
    Example example;
    example.number = std::atoi(line.c_str() + line.find(' '));
    const std::size_t place = line.find("**, ") + 4;
    const std::size_t tick = line.find('`');
    example.place = line.substr(place, line.find_first_of(".:", place) - place);
    if (example.place.starts_with("inside `")) {
        example.place = line.substr(tick + 1, line.find('`', tick + 1) - tick - 1);
    }
    return example;
}

Examples ExamplesOf(const std::string & page)
{
    Examples examples;
    bool isFenced = false;
    bool isOutside = true;
    for (const std::string & line : Split(page)) {
        if (line.starts_with(Fence)) {
            isFenced = !isFenced;
            if (isFenced && isOutside) {
                ++examples.blocksOutside;
            }
            else if (isFenced) {
                examples.all.back().blocks.emplace_back();
            }
        }
        else if (isFenced && !isOutside) {
            examples.all.back().blocks.back().push_back(WithoutPictures(line));
        }
        else if (line.starts_with("**Example ")) {
            examples.all.push_back(FromHead(line));
            isOutside = false;
        }
        else if (line.starts_with("#")) {
            isOutside = true;
        }
    }
    return examples;
}

bool IsKnownPlace(const std::string & place)
{
    return place == LineByItself || place == WholeFile || place.find(' ') == std::string::npos;
}

// What is wrong with the page itself.
Texts Faults(const std::string & page)
{
    Texts faults;
    const Examples examples = ExamplesOf(page);
    if (examples.blocksOutside != 0) {
        faults.emplace_back("a block outside of the examples");
    }
    int expected = 1;
    for (const Example & example : examples.all) {
        const std::string name = "example " + std::to_string(example.number);
        if (example.number != expected) {
            faults.push_back(name + " stands where " + std::to_string(expected) + " should");
        }
        if (example.blocks.size() < 2 || example.blocks.size() > 3) {
            faults.push_back(name + " has " + std::to_string(example.blocks.size()) + " blocks");
        }
        if (!IsKnownPlace(example.place)) {
            faults.push_back(name + " stands in no known place: " + example.place);
        }
        expected = example.number + 1;
    }
    return faults;
}

// The file of an example: its lines between the opening and the closing tags of the place.
std::string FileOf(const Example & example)
{
    std::string front;
    std::string back;
    if (example.place != WholeFile) {
        for (std::size_t at = 0; at < example.place.size();) {
            const std::size_t end = std::min(example.place.find('/', at), example.place.size());
            const std::string element = example.place.substr(at, end - at);
            front.append("<").append(element).append(">\n");
            back.insert(0, "</" + element + ">\n");
            at = end + 1;
        }
    }
    std::string lines;
    for (const std::string & line : example.blocks.front()) {
        lines.append(line).append("\n");
    }
    return front + lines + back;
}

// What comes of an example, in the words of the page.
struct Outcome {
    Texts values;
    Texts written;
};

Outcome TokensOf(const Texts & lines)
{
    Outcome outcome;
    for (const std::string & line : lines) {
        Tokens tokens(line);
        for (std::int64_t i = 0; i < tokens->GetSize(); ++i) {
            const std::string token = Str(tokens->GetAt(i));
            outcome.values.push_back("token[" + std::to_string(i) + (token.empty() ? "] =" : "] = ") + token);
        }
    }
    return outcome;
}

Outcome Read(const Example & example)
{
    if (example.place == LineByItself) {
        return TokensOf(example.blocks.front());
    }
    const TempFolder folder;
    CString from(folder.Save("read.cvg", FileOf(example)));
    CString to(folder.Path("written.cvg"));
    CIPC2581_Parser root;
    bool hasThrown = false;
    try {
        CIPC2581_XmlLiteReader().OpenPath(from, root);
    }
    catch (const CInvalidArgException &) {
        hasThrown = true;
    }
    Outcome outcome{ModelValues(root).Lines(), {}};
    if (outcome.values.empty()) {
        outcome.values.emplace_back("nothing");
    }
    if (hasThrown) {
        outcome.values.emplace_back("throws CInvalidArgException");
    }
    CIPC2581_XmlLiteReader().WriteFilePath(to, root);
    for (const std::string & line : Split(WrittenText(Str(to)))) {
        outcome.written.push_back(line.substr(std::min(line.find_first_not_of(' '), line.size())));
    }
    return outcome;
}

TEST(LinesPage, HasNoFaults)
{
    const std::string page = Bytes(Page);
    EXPECT_GT(ExamplesOf(page).all.size(), 50U);
    EXPECT_EQ(Faults(page), Texts{});
}

TEST(LinesPage, FaultsAreFound)
{
    const std::string first = "**Example 1**, a whole file.\n```cvg\na\n```\n```text\nnothing\n```\n";
    const std::string third = "**Example 3**, inside `Ecad`.\n```cvg\na\n```\n```text\nnothing\n```\n";
    const std::string bare = "**Example 2**, a whole file.\n```cvg\na\n```\n";
    const std::string lost = "**Example 2**, in the dark.\n```cvg\na\n```\n```text\nnothing\n```\n";
    EXPECT_EQ(Faults(first), Texts{});
    EXPECT_EQ(Faults(first + first), Texts{"example 1 stands where 2 should"});
    EXPECT_EQ(Faults(first + third), Texts{"example 3 stands where 2 should"});
    EXPECT_EQ(Faults(first + bare + third), Texts{"example 2 has 1 blocks"});
    EXPECT_EQ(Faults(first + lost), Texts{"example 2 stands in no known place: in the dark"});
    EXPECT_EQ(Faults(first + "## Next\n```text\na\n```\n"), Texts{"a block outside of the examples"});
}

TEST(LinesPage, ControlPicturesStandForCharacters)
{
    EXPECT_EQ(WithoutPictures("a\xe2\x90\x89z\xe2\x90\xa0\xe2\x90\x8d\xe2\x90\x81"), "a\tz \r\x01");
}

TEST(LinesPage, ExamplesHold)
{
    for (const Example & example : ExamplesOf(Bytes(Page)).all) {
        ASSERT_GE(example.blocks.size(), 2U);
        const Outcome outcome = Read(example);
        EXPECT_EQ(Joined(outcome.values), Joined(example.blocks[1])) << "example " << example.number;
        if (example.blocks.size() == 3) {
            EXPECT_NE(Joined(outcome.written).find("\n" + Joined(example.blocks[2])), std::string::npos)
                << "example " << example.number << " writes\n"
                << Joined(outcome.written);
        }
    }
}

}  // namespace
}  // namespace ipc2581::tests
