#include "import/xml/XmlParser.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>
#include <system_error>

#include <gtest/gtest.h>

#include "tests/import/xml/XmlEvents.h"
#include "tests/support/Files.h"
#include "tests/support/Text.h"

namespace ipc2581::detail {
namespace {

using tests::PiecesSource;
using tests::Texts;
using tests::Writer;

Texts EventsOf(ByteReader & source)
{
    WordTable words;
    Writer writer(words);
    ParseXml(source, words, writer);
    return writer.events;
}

Texts EventsOf(std::string_view text)
{
    PiecesSource source(text, text.size());
    return EventsOf(source);
}

XmlFault FaultOf(std::string_view text)
{
    try {
        EventsOf(text);
    }
    catch (const XmlFault & fault) {
        return fault;
    }
    ADD_FAILURE() << "no fault: " << text;
    return {"", 0, 0};
}

TEST(XmlParser, TellsElementsWithTheirLinesAndAttributes)
{
    EXPECT_EQ(EventsOf("<a>\n<b x='1' y=\"2\"/>\n\n<c\n z='3'\n>\n</c></a>"),
              (Texts{"1 <a", "2 <b x=1 y=2", ">", "4 <c z=3", ">", ">"}));
}

TEST(XmlParser, TellsTheSameInPiecesOfAnySize)
{
    std::string text = "<?xml version='1.0'?>\n<a>\n";
    for (int i = 0; i < 500; ++i) {
        text += "<b n='" + std::to_string(i) + "'\n>\u00E4 &amp; text</b>\n";
    }
    text += "</a>";
    const Texts whole = EventsOf(text);
    ASSERT_EQ(whole.size(), 1502U);
    EXPECT_EQ(whole[1], "3 <b n=0");
    for (const std::size_t size : {50U, 100U, 4000U, 4096U}) {
        PiecesSource source(text, size);
        EXPECT_EQ(EventsOf(source), whole) << size;
    }
}

TEST(XmlParser, ResolvesEntitiesAndCharacterReferences)
{
    EXPECT_EQ(EventsOf("<a x='&lt;&gt;&amp;&quot;&apos;&#65;&#x42;&#xE4;'>&lt;b&gt;, &#x20AC;</a>"),
              (Texts{"1 <a x=<>&\"'AB\u00E4", "'<b>, \u20AC", ">"}));
}

TEST(XmlParser, MakesBlanksOfLineEndsInAValue)
{
    EXPECT_EQ(EventsOf("<a x='1\n2\t3\r\n4&#10;5'/>"), (Texts{"1 <a x=1 2 3 4\n5", ">"}));
}

TEST(XmlParser, LeavesOutCommentsInstructionsAndBlanks)
{
    EXPECT_EQ(EventsOf("<?xml version='1.0'?><!-- c --><a> \n<?pi?>\t<!-- <b/> --></a><!-- d -->"),
              (Texts{"1 <a", ">"}));
}

TEST(XmlParser, TakesForTextWhatIsMoreThanBlanksWhereverItStands)
{
    const std::string blanks = "\t \n \t \n ";
    for (std::size_t length = 1; length <= 40; ++length) {
        std::string text;
        while (text.size() < length) {
            text += blanks[text.size() % blanks.size()];
        }
        EXPECT_EQ(EventsOf("<a>" + text + "</a>"), (Texts{"1 <a", ">"})) << length;
        for (std::size_t place = 0; place < length; ++place) {
            for (const std::string_view own : {"!", "~", "\u00A0", "\u4E2D"}) {
                const std::string mixed = text.substr(0, place).append(own).append(text.substr(place + 1));
                EXPECT_EQ(EventsOf("<a>" + mixed + "</a>"), (Texts{"1 <a", "'" + mixed, ">"})) << length;
            }
        }
    }
}

TEST(XmlParser, KeepsBlanksOfATextThatACommentOrASectionParts)
{
    EXPECT_EQ(EventsOf("<a> <!-- c --> x</a>"), (Texts{"1 <a", "'  x", ">"}));
    EXPECT_EQ(EventsOf("<a> <?pi?> x</a>"), (Texts{"1 <a", "'  x", ">"}));
    EXPECT_EQ(EventsOf("<a> <![CDATA[ ]]> x </a>"), (Texts{"1 <a", "'   x ", ">"}));
    EXPECT_EQ(EventsOf("<!DOCTYPE a [<!ENTITY e ' '><!ENTITY f ' x'>]><a> &e; &f; </a>"),
              (Texts{"1 <a", "'    x ", ">"}));
    EXPECT_EQ(EventsOf("<!DOCTYPE a [<!ENTITY e ' <b/> y'>]><a> x &e; </a>"),
              (Texts{"1 <a", "' x  ", "1 <b", ">", "' y ", ">"}));
}

TEST(XmlParser, TellsSectionsAsText)
{
    EXPECT_EQ(EventsOf("<a><![CDATA[<b> & ]]></a>"), (Texts{"1 <a", "'<b> & ", ">"}));
}

TEST(XmlParser, KnowsElementsByTheNamespaceOfTheRoot)
{
    const Texts plain = {"1 <Content", "1 <Layer name=A", ">", ">"};
    EXPECT_EQ(EventsOf("<Content><Layer name='A'/></Content>"), plain);
    EXPECT_EQ(EventsOf("<Content xmlns='u'><Layer name='A'/></Content>"), plain);
    EXPECT_EQ(EventsOf("<p:Content xmlns:p='u'><p:Layer name='A'/></p:Content>"), plain);
    EXPECT_EQ(EventsOf("<p:Content xmlns:p='u'><q:Layer xmlns:q='u' name='A'/></p:Content>"), plain);
    EXPECT_EQ(EventsOf("<p:Content xmlns:p='u'><p:Layer p:name='A'/></p:Content>"), plain);
}

TEST(XmlParser, KnowsNoElementOfAnotherNamespace)
{
    const Texts foreign = {"1 <Content", "1 <Layer? name=A", ">", ">"};
    EXPECT_EQ(EventsOf("<Content><q:Layer xmlns:q='v' name='A'/></Content>"), foreign);
    EXPECT_EQ(EventsOf("<Content xmlns='u'><Layer xmlns='' name='A'/></Content>"), foreign);
    EXPECT_EQ(EventsOf("<p:Content xmlns:p='u'><Layer name='A'/></p:Content>"), foreign);
}

TEST(XmlParser, TellsTheLineOfALongTag)
{
    std::string text = "<a>\n<b";
    for (int i = 0; i < 5'000; ++i) {
        text += "\n x" + std::to_string(i) + "='" + std::string(100, 'v') + "'";
    }
    text += "/>\n<c/></a>";
    const Texts events = EventsOf(text);
    EXPECT_EQ(events[1].substr(0, 5), "2 <b ");
    EXPECT_EQ(events[3], "5003 <c");
}

TEST(XmlParser, TellsTheLinesOfAFileWithCarriageReturns)
{
    EXPECT_EQ(EventsOf("<a>\r\n<b/>\r\n<c\r\n/></a>"), (Texts{"1 <a", "2 <b", ">", "3 <c", ">", ">"}));
}

TEST(XmlParser, SaysWhereADocumentIsBroken)
{
    const XmlFault fault = FaultOf("<a>\n<b>\n  </c></a>");
    EXPECT_EQ(fault.line, 3U);
    EXPECT_GT(fault.column, 3U);
    EXPECT_STRNE(fault.what(), "");
}

TEST(XmlParser, SaysWhyInOneLine)
{
    const std::string cause = FaultOf("<a b='\xff'/>").what();
    EXPECT_EQ(cause.find('\n'), std::string::npos) << cause;
    EXPECT_NE(cause.find(" Bytes: 0xFF"), std::string::npos) << cause;
}

TEST(XmlParser, SaysThatADocumentIsNotWholeWhereverItIsCut)
{
    const std::string_view whole = "<?xml version='1.0'?><a b='1' c=\"2\"> <d/> text <e>f</e> <!-- g --> </a>";
    for (std::size_t length = whole.find("<a") + 1; length < whole.size(); ++length) {
        EXPECT_TRUE(std::string_view(FaultOf(whole.substr(0, length)).what())
                        .starts_with("the file ends here and is not whole: "))
            << length << ": " << FaultOf(whole.substr(0, length)).what();
    }
}

TEST(XmlParser, SaysOfNoOtherFaultThatTheDocumentIsNotWhole)
{
    for (const std::string_view text :
         {"", "<a><b></a>", "<a><b></a>\n", "<a/>b", "<a/><b/>", "<a/>\n<", "<a b></a>", "<a>&b;</a>", "a", "abc"}) {
        EXPECT_FALSE(std::string_view(FaultOf(text).what()).starts_with("the file ends"))
            << text << ": " << FaultOf(text).what();
    }
}

TEST(XmlParser, TellsWhatStandsInFrontOfAFault)
{
    WordTable words;
    Writer writer(words);
    PiecesSource source("<a><b/><c></a>", 100);
    EXPECT_THROW(ParseXml(source, words, writer), XmlFault);
    ASSERT_GE(writer.events.size(), 3U);
    EXPECT_EQ(writer.events[1], "1 <b");
}

// Throws at one of its calls, and must not be called again.
class Thrower final : public XmlListener {
public:
    struct Thrown {};
    enum class At { Open, Text, Close };

    explicit Thrower(At at) : m_at(at) {}

    void Open(Word /*name*/, std::size_t /*line*/, std::span<const XmlAttribute> /*attributes*/) override
    {
        Look(At::Open);
    }
    void Text(std::string_view /*text*/) override { Look(At::Text); }
    void Close() override { Look(At::Close); }

private:
    void Look(At at)
    {
        EXPECT_FALSE(m_hasThrown);
        if (at == m_at) {
            m_hasThrown = true;
            throw Thrown();
        }
    }

    At m_at;
    bool m_hasThrown = false;
};

TEST(XmlParser, LetsThroughWhatAListenerThrowsAndCallsItNoMore)
{
    for (const Thrower::At at : {Thrower::At::Open, Thrower::At::Text, Thrower::At::Close}) {
        for (const char * const text : {"<a><b>text</b><c/>more</a>", "<a><b>text</b><c></a>"}) {
            WordTable words;
            Thrower thrower(at);
            PiecesSource source(text, 100);
            EXPECT_THROW(ParseXml(source, words, thrower), Thrower::Thrown);
        }
    }
}

// Fails behind some bytes.
class BrokenSource final : public ByteReader {
public:
    explicit BrokenSource(int calls) : m_calls(calls) {}

    std::size_t Read(std::span<char> room) override
    {
        if (m_calls-- == 0) {
            throw std::system_error(EIO, std::generic_category());
        }
        constexpr std::string_view text = "<a b='1'>";
        const std::size_t count = std::min(room.size(), text.size());
        std::memcpy(room.data(), text.data(), count);
        return count;
    }

private:
    int m_calls;
};

TEST(XmlParser, LetsThroughWhatTheSourceThrows)
{
    for (const int calls : {0, 1, 2, 20}) {
        WordTable words;
        Writer writer(words);
        BrokenSource source(calls);
        EXPECT_THROW(ParseXml(source, words, writer), std::system_error) << calls;
    }
}

TEST(XmlParser, ParsesAgainAfterAFault)
{
    EXPECT_THROW(EventsOf("<a>"), XmlFault);
    EXPECT_EQ(EventsOf("<a/>"), (Texts{"1 <a", ">"}));
}

TEST(XmlParser, ParsesTextsOfAnyLength)
{
    const std::string text(11'000'000, 't');
    const Texts events = EventsOf("<a>" + text + "</a>");
    ASSERT_EQ(events.size(), 3U);
    EXPECT_EQ(events[1].size(), text.size() + 1);
}

TEST(ByteSource, ReadsAFileFromItsBeginToItsEnd)
{
    const tests::TempFolder folder;
    const std::string bytes = std::string("one\0two", 7);
    FileSource source(folder.Save("file", bytes));
    EXPECT_EQ(source.Size(), 7U);
    EXPECT_TRUE(source.IsWorthReadingAhead());
    std::string room(5, '?');
    EXPECT_EQ(source.Read(room), 5U);
    EXPECT_EQ(room, bytes.substr(0, 5));
    EXPECT_EQ(source.Read(room), 2U);
    EXPECT_EQ(room.substr(0, 2), bytes.substr(5));
    EXPECT_EQ(source.Read(room), 0U);
}

TEST(ByteSource, SaysWhyAFileCannotBeRead)
{
    const tests::TempFolder folder;
    try {
        const FileSource source(folder.Path("missing"));
        FAIL() << "opened";
    }
    catch (const std::system_error & error) {
        EXPECT_EQ(error.code(), std::errc::no_such_file_or_directory);
    }
    try {
        const FileSource source(folder.Path(""));
        FAIL() << "opened";
    }
    catch (const std::system_error & error) {
        EXPECT_EQ(error.code(), std::errc::is_a_directory);
    }
}

TEST(ByteSource, ReadsBytesInMemory)
{
    const std::string bytes = "abc";
    MemorySource source(std::as_bytes(std::span(bytes)));
    EXPECT_EQ(source.Size(), 3U);
    EXPECT_FALSE(source.IsWorthReadingAhead());
    std::string room(2, '?');
    EXPECT_EQ(source.Read(room), 2U);
    EXPECT_EQ(room, "ab");
    EXPECT_EQ(source.Read(room), 1U);
    EXPECT_EQ(room[0], 'c');
    EXPECT_EQ(source.Read(room), 0U);
    MemorySource empty({});
    EXPECT_EQ(empty.Read(room), 0U);
}

TEST(XmlParser, TellsTheTextBetweenTwoTagsInOnePiece)
{
    EXPECT_EQ(EventsOf("<a>a&amp;b<!-- c -->d<?pi?>&#32;e<![CDATA[<f>]]></a>"), (Texts{"1 <a", "'a&bd e<f>", ">"}));
    EXPECT_EQ(EventsOf("<a> &#32;b <c/> d\n</a>"), (Texts{"1 <a", "'  b ", "1 <c", ">", "' d\n", ">"}));
    const std::string longText(1'000'000, 'x');
    EXPECT_EQ(EventsOf("<a>" + longText + "</a>"), (Texts{"1 <a", "'" + longText, ">"}));
}

TEST(XmlParser, TellsNoBlanksHoweverManyThereAre)
{
    EXPECT_EQ(EventsOf("<a> <b/>\n\t<!-- c -->\r\n&#32;</a>"), (Texts{"1 <a", "1 <b", ">", ">"}));
    EXPECT_EQ(EventsOf("<a>" + std::string(1'000'000, ' ') + "</a>"), (Texts{"1 <a", ">"}));
}

TEST(XmlParser, NamesAttributesOfOtherNamespacesWithTheirPrefix)
{
    EXPECT_EQ(EventsOf("<p:a xmlns:p='u' xmlns:v='w' v:name='1' name='2' p:side='3' xml:lang='en'/>"),
              (Texts{"1 <a v:name=1 name=2 side=3 xml:lang=en", ">"}));
}

}  // namespace
}  // namespace ipc2581::detail
