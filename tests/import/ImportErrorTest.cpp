#include "import/ImportError.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <ctime>
#include <fstream>
#include <string>
#include <system_error>
#include <vector>

#include <gtest/gtest.h>

#include <netinet/in.h>
#include <sys/inotify.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include "import/Import.h"
#include "tests/import/support/Documents.h"
#include "tests/support/Files.h"
#include "tests/support/Sanitizers.h"

namespace ipc2581::tests {
namespace {

constexpr const char * Whole = R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- a board -->
<IPC-2581 revision="C" xmlns="http://webstds.ipc.org/2581">
<Content><FunctionMode mode="ASSEMBLY"/><LayerRef name="&#84;OP"/></Content>
<?pi data?>
<Ecad name='board'><CadHeader units="INCH"/><CadData><![CDATA[text]]>
<Layer name="TOP &amp; more"/></CadData></Ecad>
</IPC-2581>)";

// How much a test may take for an input that is refused, or that is made to grow: of the processor, since others may be
// at work on the machine.
constexpr double MostSeconds = HasSanitizer ? 100 : 20;
constexpr long MostKilobytes = HasSanitizer ? 4L << 20 : 512L << 10;

long PeakKilobytes()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

// Watches what happens while it lives.
class Bounds {
public:
    ~Bounds()
    {
        EXPECT_LT(static_cast<double>(std::clock() - m_begin) / CLOCKS_PER_SEC, MostSeconds);
        EXPECT_LT(PeakKilobytes() - m_peak, MostKilobytes);
    }
    Bounds() = default;
    Bounds(const Bounds &) = delete;
    Bounds & operator=(const Bounds &) = delete;

private:
    std::clock_t m_begin = std::clock();
    long m_peak = PeakKilobytes();
};

ImportError FileErrorOf(const std::string & path)
{
    try {
        Import(path);
    }
    catch (const ImportError & error) {
        return error;
    }
    ADD_FAILURE() << "imported all the same: " << path;
    return {"", 0, 0, ""};
}

std::string Repeated(std::string_view text, std::size_t count)
{
    std::string all;
    all.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i) {
        all.append(text);
    }
    return all;
}

TEST(ImportError, SaysFileLineColumnAndCause)
{
    const ImportError error("board.xml", 3, 14, "bad");
    EXPECT_STREQ(error.what(), "board.xml:3:14: bad");
    EXPECT_EQ(error.File(), "board.xml");
    EXPECT_EQ(error.Line(), 3U);
    EXPECT_EQ(error.Column(), 14U);
    EXPECT_EQ(error.Cause(), "bad");
}

TEST(ImportError, LeavesOutWhatIsNotKnown)
{
    EXPECT_STREQ(ImportError("board.xml", 3, 0, "bad").what(), "board.xml:3: bad");
    EXPECT_STREQ(ImportError("board.xml", 0, 0, "bad").what(), "board.xml: bad");
    EXPECT_STREQ(ImportError("", 3, 14, "bad").what(), "line 3:14: bad");
    EXPECT_STREQ(ImportError("", 0, 0, "bad").what(), "bad");
}

TEST(ImportError, SaysThatItWasStopped)
{
    const ImportStopped stopped("board.xml");
    EXPECT_STREQ(stopped.what(), "board.xml: stopped");
}

TEST(ImportError, NamesTheFileAndThePlaceInIt)
{
    const TempFolder folder;
    const std::string path = folder.Save("board.xml", "<IPC-2581>\n<Content>\n</Contnet></IPC-2581>");
    const ImportError error = FileErrorOf(path);
    EXPECT_EQ(error.File(), path);
    EXPECT_EQ(error.Line(), 3U);
    EXPECT_GT(error.Column(), 0U);
    EXPECT_NE(error.Cause(), "");
    EXPECT_EQ(error.Cause().find('\n'), std::string::npos);
    EXPECT_EQ(std::string(error.what()).rfind(path + ":3:", 0), 0U) << error.what();
}

// The words of the system, in its language.
std::string CauseOf(int number)
{
    return std::generic_category().message(number);
}

TEST(ImportError, OfAnEmptyFile)
{
    const TempFolder folder;
    EXPECT_NE(FileErrorOf(folder.Save("empty.xml", "")).Cause(), "");
    EXPECT_NE(ErrorOf("").Cause(), "");
    EXPECT_NE(ErrorOf(" \r\n\t ").Cause(), "");
}

TEST(ImportError, OfAFolder)
{
    const TempFolder folder;
    const ImportError error = FileErrorOf(folder.Path(""));
    EXPECT_EQ(error.File(), folder.Path(""));
    EXPECT_EQ(error.Line(), 0U);
    EXPECT_EQ(error.Cause(), CauseOf(EISDIR));
}

TEST(ImportError, OfAMissingFile)
{
    const TempFolder folder;
    EXPECT_EQ(FileErrorOf(folder.Path("missing.xml")).Cause(), CauseOf(ENOENT));
    EXPECT_EQ(FileErrorOf(folder.Path("missing/board.xml")).Cause(), CauseOf(ENOENT));
    EXPECT_EQ(FileErrorOf("").File(), "");
}

TEST(ImportError, OfAFileInAFile)
{
    const TempFolder folder;
    EXPECT_EQ(FileErrorOf(folder.Save("file", "x") + "/board.xml").Cause(), CauseOf(ENOTDIR));
}

TEST(ImportError, OfAFileCutAnywhere)
{
    const std::string whole = Whole;
    EXPECT_NO_THROW(ImportText(whole));
    for (std::size_t end = 0; end < whole.size(); ++end) {
        SCOPED_TRACE("cut behind " + std::to_string(end) + " bytes");
        EXPECT_NE(ErrorOf(whole.substr(0, end)).Cause(), "");
    }
}

TEST(ImportError, OfAFileWithBytesBehindItsRoot)
{
    for (const char * const behind : {"x", "<a/>", "&amp;", "<![CDATA[]]>", "</IPC-2581>"}) {
        EXPECT_NE(ErrorOf(std::string(Whole) + behind).Cause(), "") << behind;
    }
    EXPECT_NO_THROW(ImportText(std::string(Whole) + "\r\n <!-- end --> <?end?>\n"));
}

struct Refused {
    const char * name;
    std::string text;
    std::size_t line = 0;
};

void PrintTo(const Refused & refused, std::ostream * out)
{
    *out << refused.text.substr(0, 200);
}

class NotWellFormed : public testing::TestWithParam<Refused> {};

TEST_P(NotWellFormed, IsRefused)
{
    const ImportError error = ErrorOf(GetParam().text);
    EXPECT_NE(error.Cause(), "");
    if (GetParam().line != 0) {
        EXPECT_EQ(error.Line(), GetParam().line) << error.what();
    }
}

INSTANTIATE_TEST_SUITE_P(
    Documents, NotWellFormed,
    testing::Values(
        Refused{"Text", "no document at all", 1}, Refused{"Archive", std::string("PK\x03\x04\x14\0\0\0", 8), 1},
        Refused{"ZeroBytes", std::string(100, '\0'), 1},
        Refused{"ZeroByteInAValue", std::string("<IPC-2581>\n<Content a=\"x\0y\"/></IPC-2581>", 40), 2},
        Refused{"WrongEndTag", "<IPC-2581>\n<Content></Ecad></IPC-2581>", 2}, Refused{"EndTagAlone", "</IPC-2581>", 1},
        Refused{"OverlappingTags", "<IPC-2581><a><b></a></b></IPC-2581>", 1},
        Refused{"TwoRoots", "<IPC-2581/>\n<IPC-2581/>", 2}, Refused{"NoQuotes", "<IPC-2581 revision=C/>", 1},
        Refused{"NoValue", "<IPC-2581 revision/>", 1}, Refused{"TwoOfAnAttribute", "<IPC-2581 a='1'\na='2'/>"},
        Refused{"NoBlankBetweenAttributes", "<IPC-2581 a='1'b='2'/>", 1},
        Refused{"BracketInAValue", "<IPC-2581 a='<'/>", 1}, Refused{"AmpersandAlone", "<IPC-2581 a='a & b'/>", 1},
        Refused{"UnknownEntity", "<IPC-2581>\n<Content a='&nbsp;'/></IPC-2581>", 2},
        Refused{"UnknownEntityInText", "<IPC-2581>\n&nbsp;</IPC-2581>", 2},
        Refused{"CharacterZero", "<IPC-2581 a='&#0;'/>", 1}, Refused{"CharacterOne", "<IPC-2581 a='&#1;'/>", 1},
        Refused{"CharacterTooLarge", "<IPC-2581 a='&#x110000;'/>", 1},
        Refused{"CharacterFarTooLarge", "<IPC-2581 a='&#99999999999999999999;'/>", 1},
        Refused{"HalfOfAPair", "<IPC-2581 a='&#xD800;'/>", 1}, Refused{"ControlCharacter", "<IPC-2581 a='\x01'/>", 1},
        Refused{"DeclarationBehindABlank", " <?xml version='1.0'?><IPC-2581/>"},
        Refused{"DeclarationInside", "<IPC-2581><?xml version='1.0'?></IPC-2581>"},
        Refused{"OpenComment", "<IPC-2581><!-- </IPC-2581>"},
        Refused{"DashesInAComment", "<IPC-2581><!-- -- --></IPC-2581>"},
        Refused{"OpenSection", "<IPC-2581><![CDATA[ </IPC-2581>"},
        Refused{"EndOfSectionInText", "<IPC-2581>]]></IPC-2581>"},
        Refused{"UnknownPrefix", "<IPC-2581><x:Content/></IPC-2581>"},
        Refused{"UnknownPrefixOfAnAttribute", "<IPC-2581 x:a='1'/>"},
        Refused{"NameOfADigit", "<IPC-2581><1/></IPC-2581>"},
        Refused{"NoVersion", "<?xml encoding='UTF-8'?><IPC-2581/>"},
        Refused{"DoctypeBehindTheRoot", "<IPC-2581/><!DOCTYPE IPC-2581>"},
        Refused{"OpenDoctype", "<!DOCTYPE IPC-2581 [<IPC-2581/>"}),
    [](const auto & test) { return std::string(test.param.name); });

class WrongEncoding : public testing::TestWithParam<Refused> {};

TEST_P(WrongEncoding, IsRefused)
{
    EXPECT_NE(ErrorOf(GetParam().text).Cause(), "");
}

const std::string Utf16Declared = "<?xml version='1.0' encoding='UTF-16'?>";

std::string InUtf16(std::string_view ascii)
{
    std::string bytes = "\xFF\xFE";
    for (const char own : ascii) {
        bytes.push_back(own);
        bytes.push_back('\0');
    }
    return bytes;
}

INSTANTIATE_TEST_SUITE_P(
    Documents, WrongEncoding,
    testing::Values(Refused{"UnknownName", "<?xml version='1.0' encoding='KLINGON-8'?><IPC-2581/>"},
                    Refused{"EmptyName", "<?xml version='1.0' encoding=''?><IPC-2581/>"},
                    Refused{"Latin1InUtf8", "<?xml version='1.0' encoding='UTF-8'?><IPC-2581 a='M\xFCller'/>"},
                    Refused{"Latin1WithoutADeclaration", "<IPC-2581 a='M\xFCller'/>"},
                    Refused{"Latin1InText", "<IPC-2581>M\xFCller</IPC-2581>"},
                    Refused{"Latin1BehindMegabytes", "<IPC-2581>" + Repeated("<Content a='0123456789'/>", 100'000) +
                                                         "<Content a='M\xFCller'/></IPC-2581>"},
                    Refused{"OverlongByte", "<IPC-2581 a='\xC0\xAF'/>"},
                    Refused{"HalfAPairInUtf8", "<IPC-2581 a='\xED\xA0\x80'/>"},
                    Refused{"BeyondTheLastCharacter", "<IPC-2581 a='\xF4\x90\x80\x80'/>"},
                    Refused{"CutCharacter", "<IPC-2581 a='\xE2\x82'/>"},
                    Refused{"NotAsciiInAscii", "<?xml version='1.0' encoding='US-ASCII'?><IPC-2581 a='\xC3\xBC'/>"},
                    Refused{"Utf16CutInACharacter", InUtf16("<IPC-2581/>").substr(0, 23)},
                    Refused{"Utf16WithHalfAPair",
                            InUtf16("<IPC-2581 a='") + std::string("\x00\xD8", 2) + InUtf16("'/>").substr(2)},
                    Refused{"Utf16OfUtf8", InUtf16("<?xml version='1.0' encoding='UTF-16'?>") + "<IPC-2581/>"}),
    [](const auto & test) { return std::string(test.param.name); });

class OtherRoot : public testing::TestWithParam<Refused> {};

TEST_P(OtherRoot, IsRefusedWithItsLine)
{
    const ImportError error = ErrorOf(GetParam().text);
    EXPECT_EQ(error.Cause(), "the root element is not IPC-2581");
    EXPECT_EQ(error.Line(), GetParam().line);
}

INSTANTIATE_TEST_SUITE_P(Documents, OtherRoot,
                         testing::Values(Refused{"Html", "<!DOCTYPE html>\n<html/>", 2}, Refused{"Part", "<Ecad/>", 1},
                                         Refused{"OtherCase", "<ipc-2581/>", 1},
                                         Refused{"LongerName", "<IPC-25810/>", 1},
                                         Refused{"Below", "\n<a>\n<IPC-2581/></a>", 2}),
                         [](const auto & test) { return std::string(test.param.name); });

// A document whose root has the attribute or the content, behind declarations.
std::string Declaring(const std::string & declarations, const std::string & content, const std::string & attribute = {})
{
    return "<!DOCTYPE IPC-2581 [" + declarations + "]>\n<IPC-2581 a=\"" + attribute + "\">" + content + "</IPC-2581>";
}

// Each entity holds ten of the one in front of it.
std::string Laughs(int depth)
{
    std::string declarations = "<!ENTITY e0 \"ha\">";
    for (int i = 1; i <= depth; ++i) {
        declarations +=
            "<!ENTITY e" + std::to_string(i) + " \"" + Repeated("&e" + std::to_string(i - 1) + ";", 10) + "\">";
    }
    return declarations;
}

TEST(ImportError, OfABombOfEntitiesInTextInBoundedTimeAndMemory)
{
    const Bounds bounds;
    EXPECT_NE(ErrorOf(Declaring(Laughs(12), "&e12;")).Cause(), "");
}

TEST(ImportError, OfABombOfEntitiesInAValueInBoundedTimeAndMemory)
{
    const Bounds bounds;
    EXPECT_NE(ErrorOf(Declaring(Laughs(12), "", "&e12;")).Cause(), "");
}

TEST(ImportError, OfABombOfEntitiesOfElementsInBoundedTimeAndMemory)
{
    const Bounds bounds;
    std::string declarations = "<!ENTITY e0 \"<Content/>\">";
    for (int i = 1; i <= 12; ++i) {
        declarations +=
            "<!ENTITY e" + std::to_string(i) + " \"" + Repeated("&e" + std::to_string(i - 1) + ";", 10) + "\">";
    }
    EXPECT_NE(ErrorOf(Declaring(declarations, "&e12;")).Cause(), "");
}

TEST(ImportError, OfOneLongEntityManyTimesInAValueInBoundedTimeAndMemory)
{
    const Bounds bounds;
    const std::string declaration = "<!ENTITY long \"" + std::string(100'000, 'x') + "\">";
    EXPECT_NE(ErrorOf(Declaring(declaration, "", Repeated("&long;", 20'000))).Cause(), "");
}

TEST(ImportError, OfEntitiesThatHoldThemselves)
{
    const Bounds bounds;
    EXPECT_NE(ErrorOf(Declaring("<!ENTITY a \"&a;\">", "&a;")).Cause(), "");
    EXPECT_NE(ErrorOf(Declaring("<!ENTITY a \"&b;\"><!ENTITY b \"&a;\">", "&a;")).Cause(), "");
    EXPECT_NE(ErrorOf(Declaring("<!ENTITY a \"&b;\"><!ENTITY b \"&a;\">", "", "&a;")).Cause(), "");
}

TEST(ImportError, OfAnEntityThatClosesWhatItHasNotOpened)
{
    EXPECT_NE(ErrorOf(Declaring("<!ENTITY a \"</IPC-2581>\">", "&a;")).Cause(), "");
    EXPECT_NE(ErrorOf(Declaring("<!ENTITY a \"<Content>\">", "&a;")).Cause(), "");
}

TEST(ImportError, OfAFileThatIsTooDeepInBoundedTimeAndMemory)
{
    const Bounds bounds;
    constexpr std::size_t depth = 200'000;
    for (const std::string name : {"a", "UserSpecial", "Content", "Ecad"}) {
        const std::string deep = Repeated("<" + name + ">", depth) + Repeated("</" + name + ">", depth);
        EXPECT_NE(ErrorOf("<IPC-2581>" + deep + "</IPC-2581>").Cause(), "") << name;
        EXPECT_NE(ErrorOf("<IPC-2581><Content><DictionaryUser><EntryUser id='a'>" + deep +
                          "</EntryUser></DictionaryUser></Content></IPC-2581>")
                      .Cause(),
                  "")
            << name;
    }
}

TEST(ImportError, OfAValueThatIsTooLongInBoundedTimeAndMemory)
{
    const Bounds bounds;
    constexpr std::size_t length = 11'000'000;
    EXPECT_NE(ErrorOf("<IPC-2581 a=\"" + std::string(length, 'x') + "\"/>").Cause(), "");
    EXPECT_NE(ErrorOf("<IPC-2581 a=\"" + Repeated("&amp;", length) + "\"/>").Cause(), "");
    EXPECT_NE(ErrorOf("<IPC-2581 " + std::string(length, 'x') + "=\"1\"/>").Cause(), "");
    EXPECT_NE(ErrorOf("<" + std::string(length, 'x') + "/>").Cause(), "");
}

TEST(ImportError, OfNamesThatAreTooLongTogetherInBoundedTimeAndMemory)
{
    const Bounds bounds;
    const std::string name(49'000, 'x');
    std::string text = "<IPC-2581>";
    for (int i = 0; i < 700; ++i) {
        text += "<n" + std::to_string(i) + name + "/>";
    }
    EXPECT_NE(ErrorOf(text + "</IPC-2581>").Cause(), "");
}

TEST(ImportError, OfMoreNamesThanADocumentHas)
{
    const Bounds bounds;
    std::string text = "<IPC-2581>";
    for (int i = 0; i < 70'000; ++i) {
        text += "<n" + std::to_string(i) + "/>";
    }
    EXPECT_EQ(ErrorOf(text + "</IPC-2581>").Cause(), "more than 65536 different names");
}

TEST(ImportError, OfFiguresThatMultiplyInBoundedTimeAndMemory)
{
    const Bounds bounds;
    std::string entries = R"(<EntryUser id="f0"><UserSpecial><Circle diameter="1"/></UserSpecial></EntryUser>)";
    for (int i = 1; i < 12; ++i) {
        entries += "<EntryUser id=\"f" + std::to_string(i) + "\"><UserSpecial>" +
                   Repeated("<UserPrimitiveRef id=\"f" + std::to_string(i - 1) + "\"/>", 10) +
                   "</UserSpecial></EntryUser>\n";
    }
    const ImportError error = ErrorOf(Document{.content = "<DictionaryUser>\n" + entries + "</DictionaryUser>"}.Text());
    EXPECT_EQ(error.Cause(), "its figures are drawn again too often");
    EXPECT_NE(error.Line(), 0U);
}

// A contour of that many points as a figure, or as an entry of the standard dictionary.
std::string LongContour(std::size_t points)
{
    return "<Contour><Polygon><PolyBegin x='0' y='0'/>" + Repeated("<PolyStepSegment x='1' y='1'/>", points) +
           "</Polygon></Contour>";
}

TEST(ImportError, OfLongFiguresDrawnTooOften)
{
    const Bounds bounds;
    const Document document = {
        .content = "<DictionaryUser units='MILLIMETER'><EntryUser id='A'><UserSpecial>" + LongContour(2'000) +
                   "</UserSpecial></EntryUser></DictionaryUser>",
        .step = OnTop("<Set>" + Repeated("<Features><UserPrimitiveRef id='A'/></Features>", 2'000) + "</Set>")};
    EXPECT_EQ(ErrorOf(document.Text()).Cause(), "its figures are drawn again too often");
}

TEST(ImportError, OfLongPadsEachInAScaleOfItsOwn)
{
    const Bounds bounds;
    std::string pads;
    for (int i = 0; i < 2'000; ++i) {
        pads += "<Pad><Xform scale='" + std::to_string(i + 2) + "'/><StandardPrimitiveRef id='A'/></Pad>";
    }
    const Document document = {.content = "<DictionaryStandard units='MILLIMETER'><EntryStandard id='A'>" +
                                          LongContour(2'000) + "</EntryStandard></DictionaryStandard>",
                               .step = OnTop("<Set>" + pads + "</Set>")};
    EXPECT_EQ(ErrorOf(document.Text()).Cause(), "its figures are drawn again too often");
}

TEST(ImportError, OfCopiesBeyondTheMemoryThatTheyMayTake)
{
    const Bounds bounds;
    ImportOptions options;
    options.memoryLimit = 5'000'000;
    const Document document = {
        .content = "<DictionaryUser units='MILLIMETER'><EntryUser id='A'><UserSpecial>" + LongContour(2'000) +
                   "</UserSpecial></EntryUser></DictionaryUser>",
        .step = OnTop("<Set>" + Repeated("<Features><UserPrimitiveRef id='A'/></Features>", 50) + "</Set>")};
    EXPECT_EQ(ErrorOf(document.Text(), options).Cause(), "its model takes more than the 5000000 bytes that it may");
    options.memoryLimit = 50'000'000;
    EXPECT_EQ(Drawn(ImportText(document.Text(), options)).size(), 50U);
}

constexpr const char * TooMuch = "its entities and defaults make too much of it";

TEST(ImportError, OfALongEntityManyTimes)
{
    const Bounds bounds;
    const std::string head = "<!DOCTYPE IPC-2581 [<!ENTITY long \"" + std::string(50'000, 'x') + "\">]>\n<IPC-2581";
    const std::string many = Repeated("&long;", 10'000);
    const ImportError inText = ErrorOf(head + ">" + many + "</IPC-2581>");
    EXPECT_EQ(inText.Cause(), TooMuch);
    EXPECT_EQ(inText.Line(), 2U);
    EXPECT_EQ(ErrorOf(head + " name='" + many + "'/>").Cause(), TooMuch);
}

TEST(ImportError, OfAnEntityOfElementsManyTimes)
{
    const Bounds bounds;
    EXPECT_EQ(ErrorOf("<!DOCTYPE IPC-2581 [<!ENTITY long \"" + Repeated("<Layer name='A'/>", 5'000) +
                      "\">]><IPC-2581><Ecad><CadData>" + Repeated("&long;", 300) + "</CadData></Ecad></IPC-2581>")
                  .Cause(),
              TooMuch);
}

TEST(ImportError, OfALongDefaultManyTimes)
{
    const Bounds bounds;
    EXPECT_EQ(ErrorOf("<!DOCTYPE IPC-2581 [<!ATTLIST Layer comment CDATA \"" + std::string(50'000, 'x') +
                      "\">]><IPC-2581><Ecad><CadData>" + Repeated("<Layer/>", 20'000) + "</CadData></Ecad></IPC-2581>")
                  .Cause(),
              TooMuch);
}

TEST(ImportError, OfEntitiesThatStayInBoundsIsNone)
{
    const Imported imported = ImportText("<!DOCTYPE IPC-2581 [<!ENTITY long \"" + std::string(50'000, 'x') +
                                         "\">]><IPC-2581>" + Repeated("&long;", 10) + "</IPC-2581>");
    EXPECT_EQ(imported.report.Lost(0).Value("").size(), 500'000U);
}

TEST(ImportError, OfBytesBehindTheEnd)
{
    const std::string document = "<IPC-2581/>\n";
    for (const std::string_view behind : {std::string_view("\0", 1), std::string_view("\0<rubbish", 9)}) {
        const ImportError error = ErrorOf(document + std::string(behind));
        EXPECT_EQ(error.Cause(), "there are bytes behind its end");
        EXPECT_EQ(error.Line(), 2U);
    }
    EXPECT_EQ(ErrorOf(document + std::string(200'000, '\0')).Cause(), "there are bytes behind its end");
}

TEST(ImportError, OfAFigureThatHoldsItselfIsNone)
{
    const Bounds bounds;
    const Imported imported = ImportDocument({.content = R"(<DictionaryUser><EntryUser id="a"><UserSpecial>
        <UserPrimitiveRef id="a"/></UserSpecial></EntryUser></DictionaryUser>)",
                                              .step = FeaturesOnTop(R"(<UserPrimitiveRef id="a"/>)")});
    EXPECT_EQ(Drawn(imported), Texts());
    EXPECT_EQ(Notes(imported.report), (Texts{"DanglingReference: figure \"a\" refers to itself"}));
}

// What stands in a file that no import may open.
class Secret {
public:
    Secret() : m_watch(inotify_init1(IN_NONBLOCK))
    {
        std::ofstream(Path(), std::ios::binary) << "<!ENTITY stolen \"S3CRET\"><!ENTITY % more \"\"> S3CRET";
        EXPECT_GE(inotify_add_watch(m_watch, Path().c_str(), IN_OPEN | IN_ACCESS), 0);
    }
    ~Secret()
    {
        EXPECT_FALSE(IsTouched()) << "the file was opened";
        close(m_watch);
    }
    Secret(const Secret &) = delete;
    Secret & operator=(const Secret &) = delete;

    [[nodiscard]] std::string Path() const { return m_folder.Path("secret.txt"); }
    [[nodiscard]] bool IsTouched() const
    {
        alignas(inotify_event) std::array<char, 4096> events = {};
        return read(m_watch, events.data(), events.size()) > 0;
    }

private:
    TempFolder m_folder;
    int m_watch;
};

// Imports the text if that may be, and returns all that came of it.
std::string AllOf(const std::string & text)
{
    try {
        const Imported imported = ImportText(text);
        return ReportText(imported.report);
    }
    catch (const ImportError & error) {
        return error.what();
    }
}

TEST(ImportError, TheSecretTellsWhenItIsRead)
{
    const Secret secret;
    EXPECT_FALSE(secret.IsTouched());
    EXPECT_NE(Bytes(secret.Path()), "");
    EXPECT_TRUE(secret.IsTouched());
}

class ExternalEntity : public testing::TestWithParam<Refused> {};

std::string Replaced(std::string text, std::string_view word, const std::string & by)
{
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + by.size())) {
        text.replace(at, word.size(), by);
    }
    return text;
}

TEST_P(ExternalEntity, IsNeverRead)
{
    const Secret secret;
    for (const std::string & address : {secret.Path(), "file://" + secret.Path()}) {
        const std::string all = AllOf(Replaced(GetParam().text, "$ADDRESS", address));
        EXPECT_EQ(all.find("S3CRET"), std::string::npos) << all;
    }
}

TEST_P(ExternalEntity, IsNeverFetched)
{
    const int server = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof(address);
    ASSERT_EQ(bind(server, reinterpret_cast<sockaddr *>(&address), length), 0);
    ASSERT_EQ(listen(server, 1), 0);
    ASSERT_EQ(getsockname(server, reinterpret_cast<sockaddr *>(&address), &length), 0);
    const std::string port = std::to_string(ntohs(address.sin_port));
    for (const std::string protocol : {"http", "ftp"}) {
        AllOf(Replaced(GetParam().text, "$ADDRESS", protocol + "://127.0.0.1:" + port + "/entity"));
    }
    EXPECT_LT(accept(server, nullptr, nullptr), 0) << "somebody came";
    close(server);
}

INSTANTIATE_TEST_SUITE_P(
    Documents, ExternalEntity,
    testing::Values(
        Refused{"InText", Declaring("<!ENTITY e SYSTEM \"$ADDRESS\">", "&e;")},
        Refused{"InAnUnknownElement", Declaring("<!ENTITY e SYSTEM \"$ADDRESS\">", "<a>&e;</a>")},
        Refused{"InAValue", Declaring("<!ENTITY e SYSTEM \"$ADDRESS\">", "", "&e;")},
        Refused{"InAnEntity", Declaring("<!ENTITY e SYSTEM \"$ADDRESS\"><!ENTITY f \"&e;\">", "&f;", "&f;")},
        Refused{"Public", Declaring("<!ENTITY e PUBLIC \"-//x//y\" \"$ADDRESS\">", "&e;")},
        Refused{"Unparsed", Declaring("<!NOTATION n SYSTEM \"n\"><!ENTITY e SYSTEM \"$ADDRESS\" NDATA n>", "", "e")},
        Refused{"Parameter", Declaring("<!ENTITY % p SYSTEM \"$ADDRESS\"> %p;", "&stolen;", "&stolen;")},
        Refused{"ParameterInAParameter",
                Declaring("<!ENTITY % p SYSTEM \"$ADDRESS\"><!ENTITY % q '%p;'> %q;", "&stolen;", "&stolen;")},
        Refused{"Grammar", "<!DOCTYPE IPC-2581 SYSTEM \"$ADDRESS\"><IPC-2581 a=\"&stolen;\">&stolen;</IPC-2581>"},
        Refused{"GrammarUnused", "<!DOCTYPE IPC-2581 SYSTEM \"$ADDRESS\"><IPC-2581/>"},
        Refused{"PublicGrammar", "<!DOCTYPE IPC-2581 PUBLIC \"-//x//y\" \"$ADDRESS\"><IPC-2581>&stolen;</IPC-2581>"},
        Refused{"Schema", "<IPC-2581 xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
                          "xsi:noNamespaceSchemaLocation=\"$ADDRESS\"/>"},
        Refused{"Inclusion", "<IPC-2581 xmlns:xi=\"http://www.w3.org/2001/XInclude\"><xi:include href=\"$ADDRESS\" "
                             "parse=\"text\"/></IPC-2581>"},
        Refused{"Stylesheet", "<?xml-stylesheet href=\"$ADDRESS\" type=\"text/xsl\"?><IPC-2581/>"}),
    [](const auto & test) { return std::string(test.param.name); });

}  // namespace
}  // namespace ipc2581::tests
