#include "ipc2581/base/lines/Word.h"

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace {

using ipc2581::detail::CharacterSet;
using ipc2581::detail::HoldsText;
using ipc2581::detail::SetOf;
using ipc2581::detail::Word;

// Words of one character up to more than a tail has bytes, with and without their "=".
constexpr Word Words[] = {"=",           "x=",    "y=",        "id=",     "name=",          "number=",
                          "packageRef=", "pin=",  "refDes=",   "via=",    "lowerLeftX=",    "componentRef=",
                          "Step",        "/Step", "LayerHole", "x=y=",    "lineWidth",      "<Pad>",
                          "\xC3\xA4",    "1.5",   "a=b",       "minus=t", "electricalType="};

// Whether there are eight readable bytes in front of the end of a text is its owner's business.
bool IsTail(const Word & word, std::string_view text)
{
    const std::string owner = "xxxxxxxx" + std::string(text);
    const std::string_view inOwner = std::string_view(owner).substr(8);
    return word.MayEnd(Word::Tail(owner.data() + owner.size())) && word.Ends(inOwner);
}

// Texts that hold a word whole, in part, twice, in another case or not at all.
std::vector<std::string> TextsAround(std::string_view word)
{
    const std::string text(word);
    std::vector<std::string> texts = {
        "", text, "a" + text, text + "a", text + text, "(" + text + ")", text + " " + text, text.substr(1)};
    for (std::size_t i = 0; i < text.size(); ++i) {
        texts.push_back(text.substr(0, i));
        texts.push_back(text.substr(i));
        texts.push_back(text.substr(i) + text);
        texts.push_back(text.substr(0, i) + text);
        texts.push_back(text.substr(0, i) + '#' + text.substr(i + 1));
    }
    return texts;
}

TEST(Word, KeepsItsText)
{
    EXPECT_EQ(Word("refDes=").Text(), "refDes=");
    EXPECT_EQ(Word("refDes=").Set(), SetOf("refDes="));
}

TEST(Word, IsAnAttributeIfItsOneEqualSignIsItsLastCharacter)
{
    EXPECT_TRUE(Word("x=").IsAttribute());
    EXPECT_TRUE(Word("=").IsAttribute());
    EXPECT_FALSE(Word("x").IsAttribute());
    EXPECT_FALSE(Word("x=y").IsAttribute());
    EXPECT_FALSE(Word("x=y=").IsAttribute());
    EXPECT_FALSE(Word("=x").IsAttribute());
}

TEST(Word, IsFoundAnywhereInAText)
{
    for (const Word & word : Words) {
        for (const std::string & text : TextsAround(word.Text())) {
            const bool isHeld = text.find(word.Text()) != std::string::npos;
            EXPECT_EQ(word.IsIn(text), isHeld) << word.Text() << " in " << text;
            EXPECT_EQ(word.IsIn(text, SetOf(text)), isHeld) << word.Text() << " in " << text;
        }
    }
}

TEST(Word, IsNotLookedForWhereTheSetLacksACharacter)
{
    EXPECT_FALSE(Word("Step").IsIn("Step", SetOf("Ste")));
    EXPECT_TRUE(Word("Step").IsIn("Step", ~CharacterSet(0)));
}

TEST(Word, IsTheTailOfATextThatEndsInIt)
{
    for (const Word & word : Words) {
        for (const std::string & text : TextsAround(word.Text())) {
            EXPECT_EQ(IsTail(word, text), text.ends_with(word.Text())) << word.Text() << " at the end of " << text;
        }
    }
}

TEST(Word, TakesNoTailFromTheBytesInFrontOfTheText)
{
    const std::string owner = "xxxxrefDes=";
    const std::string_view text = std::string_view(owner).substr(owner.size() - 4);
    const std::uint64_t tail = Word::Tail(owner.data() + owner.size());
    EXPECT_TRUE(Word("refDes=").MayEnd(tail));
    EXPECT_FALSE(Word("refDes=").Ends(text));
    EXPECT_TRUE(Word("Des=").MayEnd(tail));
    EXPECT_TRUE(Word("Des=").Ends(text));
}

TEST(Word, AgreesWithThePlainSearchOnMadeTexts)
{
    constexpr std::string_view alphabet = "xyXY=refDs/Step<>mn";
    std::mt19937 random(2581);
    int held = 0;
    for (int i = 0; i < 20000; ++i) {
        std::string text;
        for (std::size_t count = random() % 14; count > 0; --count) {
            text += alphabet[random() % alphabet.size()];
        }
        for (const Word & word : Words) {
            const bool isHeld = text.find(word.Text()) != std::string::npos;
            held += isHeld ? 1 : 0;
            ASSERT_EQ(word.IsIn(text, SetOf(text)), isHeld) << word.Text() << " in " << text;
            ASSERT_EQ(IsTail(word, text), text.ends_with(word.Text())) << word.Text() << " at the end of " << text;
        }
    }
    EXPECT_GT(held, 1000);
}

TEST(HoldsText, FindsAnEmptyWordEverywhere)
{
    EXPECT_TRUE(HoldsText("", ""));
    EXPECT_TRUE(HoldsText("a", ""));
    EXPECT_FALSE(HoldsText("", "a"));
}

TEST(HoldsText, LooksBehindANulAndAtAllBytes)
{
    using namespace std::string_view_literals;
    EXPECT_TRUE(HoldsText("a\0Step"sv, "Step"));
    EXPECT_TRUE(HoldsText("\xFFTRUE", "TRUE"));
    EXPECT_FALSE(HoldsText("TR\0UE"sv, "TRUE"));
    EXPECT_TRUE(HoldsText("TRTRUE", "TRUE"));
}

TEST(SetOf, HoldsTheSetOfEveryPart)
{
    std::string all;
    for (int ch = 0; ch < 256; ++ch) {
        all += static_cast<char>(ch);
    }
    for (std::size_t i = 0; i < all.size(); ++i) {
        EXPECT_NE(SetOf(all[i]), CharacterSet(0));
        EXPECT_EQ(SetOf(all) & SetOf(all[i]), SetOf(all[i]));
        EXPECT_EQ(SetOf(std::string_view(all).substr(i, 1)), SetOf(all[i]));
    }
    EXPECT_EQ(SetOf(""), CharacterSet(0));
}

TEST(SetOf, TellsLettersSlashAndEqualSignFromAllElse)
{
    constexpr std::string_view told = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ/=";
    for (const char ch : told) {
        for (int other = 0; other < 256; ++other) {
            const bool isSame = static_cast<char>(other) == ch;
            EXPECT_EQ((SetOf(ch) & SetOf(static_cast<char>(other))) != 0, isSame) << ch << " and " << other;
        }
    }
}

}  // namespace
