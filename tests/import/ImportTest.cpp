#include "import/Import.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/each.h"
#include "tests/document/ModelText.h"
#include "tests/import/support/Documents.h"
#include "tests/support/Files.h"
#include "tests/support/Locales.h"

namespace ipc2581::tests {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> Examples()
{
    std::vector<fs::path> examples;
    for (const fs::directory_entry & entry : fs::directory_iterator(IPC2581_IMPORT_EXAMPLES)) {
        examples.push_back(entry.path());
    }
    std::sort(examples.begin(), examples.end());
    return examples;
}

// A document of some megabytes.
std::string LargeText()
{
    std::string components;
    for (int i = 0; i < 40'000; ++i) {
        components +=
            "<Component refDes=\"U" + std::to_string(i) + R"(" part="part"><Location x="1.5" y="2.5"/></Component>)";
    }
    return Document{.step = components}.Text();
}

std::string All(const Imported & imported)
{
    return ModelText(*imported.board) + ReportText(imported.report);
}

TEST(Import, OfAPathAndOfItsBytesIsTheSame)
{
    ASSERT_FALSE(Examples().empty());
    for (const fs::path & path : Examples()) {
        const std::string bytes = Bytes(path.string());
        EXPECT_EQ(All(Import(path)), All(ImportText(bytes))) << path;
    }
}

TEST(Import, KeepsNothingOfTheBytes)
{
    std::string text = Document{.step = R"(<Component refDes="U1" part="a rather long name of a part"/>)"}.Text();
    const Imported imported = ImportText(text);
    const std::string before = All(imported);
    std::fill(text.begin(), text.end(), 'x');
    EXPECT_EQ(All(imported), before);
}

TEST(Import, OfTheEmptyDocumentIsAnEmptyBoard)
{
    const Imported imported = ImportText("<IPC-2581/>");
    ASSERT_NE(imported.board, nullptr);
    EXPECT_EQ(ModelText(*imported.board), ModelText(CIPC2581_Parser()));
    EXPECT_EQ(ReportText(imported.report), "0 remarks\nIPC-2581 1 0\n");
}

TEST(Import, GivesTheSameEachTime)
{
    for (const fs::path & path : Examples()) {
        EXPECT_EQ(All(Import(path)), All(Import(path))) << path;
    }
}

TEST(Import, RunsOnSeveralThreadsAtOnce)
{
    const std::vector<fs::path> examples = Examples();
    std::vector<std::string> alone;
    for (const fs::path & path : examples) {
        alone.push_back(All(Import(path)));
    }
    std::vector<std::string> together(examples.size());
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < examples.size(); ++i) {
        threads.emplace_back([&, i] {
            for (int round = 0; round < 5; ++round) {
                together[i] = All(Import(examples[i]));
                EXPECT_THROW(ImportText("<IPC-2581>"), ImportError);
            }
        });
    }
    for (std::thread & thread : threads) {
        thread.join();
    }
    EXPECT_EQ(together, alone);
}

TEST(Import, ReadsNumbersWithoutAskingTheLocale)
{
    const GermanLocale locale;
    if (!locale.IsSet()) {
        GTEST_SKIP() << "no German locale";
    }
    const Imported imported =
        ImportDocument({.step = R"(<Component refDes="U1" height="1.5"><Location x="-2.25e1" y="+.5"/></Component>)"});
    const auto & component = *StepOf(imported).ComponentArray.GetAt(0);
    EXPECT_EQ(component.Height, 1.5);
    EXPECT_EQ(component.Location.X, -22.5);
    EXPECT_EQ(component.Location.Y, 0.5);
}

TEST(Import, TellsItsProgressFromTheBeginToTheEnd)
{
    const std::string text = LargeText();
    std::vector<double> parts;
    ImportOptions options;
    options.progress = [&](double part) {
        parts.push_back(part);
        return true;
    };
    ImportText(text, options);
    EXPECT_GT(parts.size(), 3U);
    EXPECT_TRUE(std::is_sorted(parts.begin(), parts.end()));
    EXPECT_GE(parts.front(), 0.0);
    EXPECT_LT(parts.front(), 0.5);
    EXPECT_EQ(parts.back(), 1.0);
}

TEST(Import, TellsTheProgressOfAFile)
{
    const TempFolder folder;
    std::vector<double> parts;
    ImportOptions options;
    options.progress = [&](double part) {
        parts.push_back(part);
        return true;
    };
    ipc2581::Import(fs::path(folder.Save("large.xml", LargeText())), options);
    EXPECT_GT(parts.size(), 3U);
    EXPECT_TRUE(std::is_sorted(parts.begin(), parts.end()));
    EXPECT_EQ(parts.back(), 1.0);
}

TEST(Import, StopsWhereProgressWantsIt)
{
    const std::string text = LargeText();
    for (const int last : {1, 2, 3}) {
        int calls = 0;
        ImportOptions options;
        options.progress = [&](double /*part*/) { return ++calls < last; };
        EXPECT_THROW(ImportText(text, options), ImportStopped);
        EXPECT_EQ(calls, last) << "asked again after it had said no";
    }
}

TEST(Import, NamesTheFileThatWasStopped)
{
    const TempFolder folder;
    const std::string path = folder.Save("board.xml", Document().Text());
    ImportOptions options;
    options.progress = [](double /*part*/) { return false; };
    try {
        ipc2581::Import(fs::path(path), options);
        FAIL() << "not stopped";
    }
    catch (const ImportStopped & stopped) {
        EXPECT_EQ(stopped.File(), path);
    }
}

struct HostError {};

TEST(Import, LetsThroughWhatProgressThrows)
{
    ImportOptions options;
    options.progress = [](double /*part*/) -> bool { throw HostError(); };
    EXPECT_THROW(ImportText(LargeText(), options), HostError);
}

TEST(Import, EndsWhereTheModelTakesMoreMemoryThanItMay)
{
    ImportOptions options;
    options.memoryLimit = 1'000'000;
    const ImportError error = ErrorOf(LargeText(), options);
    EXPECT_NE(error.Cause().find("1000000"), std::string::npos) << error.what();
    options.memoryLimit = 1'000'000'000;
    EXPECT_NO_THROW(ImportText(LargeText(), options));
    EXPECT_NO_THROW(ImportText(LargeText()));
}

TEST(Import, HasEnoughMemoryForASmallBoardInSmallBounds)
{
    ImportOptions options;
    options.memoryLimit = 1'000'000;
    EXPECT_NO_THROW(ImportText(Document().Text(), options));
}

TEST(Import, TakesTheStepThatIsAskedForByItsNameAsTheFileMeansIt)
{
    ImportOptions options;
    options.step = "a & b";
    const Imported imported = ImportText(
        R"(<IPC-2581><Ecad><CadData><Step name="a"/><Step name="a &amp; b"><Datum x="1" y="2"/></Step></CadData></Ecad>
        </IPC-2581>)",
        options);
    EXPECT_EQ(Str(StepOf(imported).Name), "a &amp; b");
    EXPECT_EQ(StepOf(imported).Datum.X, 1);
}

TEST(Import, WritesTextsAsUtf8WithFourEntities)
{
    const Imported imported = ImportDocument({.step = R"(<Component refDes="a&amp;b&lt;c&gt;d&quot;e&apos;f'g>h"
        part="&#xE4;&#228;&#x1F600;&#10;&#9;x" packageRef="  two  blanks "/>)"});
    const auto & component = *StepOf(imported).ComponentArray.GetAt(0);
    EXPECT_EQ(Str(component.RefDes), "a&amp;b&lt;c&gt;d&quot;e'f'g&gt;h");
    EXPECT_EQ(Str(component.Part), "\u00E4\u00E4\U0001F600\n\tx");
    EXPECT_EQ(Str(component.PackageRef), "  two  blanks ");
}

TEST(Import, EscapesAnAmpersandThatWasWrittenAsSeveralEntities)
{
    const Imported imported = ImportDocument({.step = R"(<Component refDes="&amp;amp;lt;"/>)"});
    EXPECT_EQ(Str(StepOf(imported).ComponentArray.GetAt(0)->RefDes), "&amp;amp;lt;");
}

struct Encoding {
    const char * name;
    std::string text;
};

class ImportOfEncoding : public testing::TestWithParam<Encoding> {};

TEST_P(ImportOfEncoding, WritesUtf8)
{
    EXPECT_EQ(Str(ImportText(GetParam().text).board->m_Ecad.name), "\u00E4\u20AC");
}

// Characters below U+10000 in two bytes each.
std::string InUtf16(std::u16string_view text, bool isBigEndian)
{
    std::string bytes;
    for (const char16_t own : text) {
        const char low = static_cast<char>(own & 0xFFU);
        const char high = static_cast<char>(own >> 8U);
        bytes.push_back(isBigEndian ? high : low);
        bytes.push_back(isBigEndian ? low : high);
    }
    return bytes;
}

INSTANTIATE_TEST_SUITE_P(
    Documents, ImportOfEncoding,
    testing::Values(
        Encoding{"Utf8", "<IPC-2581><Ecad name='\xC3\xA4\xE2\x82\xAC'/></IPC-2581>"},
        Encoding{"Utf8WithAMark", "\xEF\xBB\xBF<IPC-2581><Ecad name='\xC3\xA4\xE2\x82\xAC'/></IPC-2581>"},
        Encoding{"Latin9", "<?xml version='1.0' encoding='ISO-8859-15'?><IPC-2581><Ecad name='\xE4\xA4'/></IPC-2581>"},
        Encoding{"Windows",
                 "<?xml version='1.0' encoding='windows-1252'?><IPC-2581><Ecad name='\xE4\x80'/></IPC-2581>"},
        Encoding{"Ascii", "<?xml version='1.0' encoding='US-ASCII'?><IPC-2581><Ecad name='&#xE4;&#8364;'/></IPC-2581>"},
        Encoding{"Utf16Little", InUtf16(u"\uFEFF<IPC-2581><Ecad name='\u00E4\u20AC'/></IPC-2581>", false)},
        Encoding{"Utf16Big", InUtf16(u"\uFEFF<IPC-2581><Ecad name='\u00E4\u20AC'/></IPC-2581>", true)},
        Encoding{"Utf16Declared", InUtf16(u"\uFEFF<?xml version='1.0' encoding='UTF-16'?><IPC-2581>"
                                          u"<Ecad name='\u00E4\u20AC'/></IPC-2581>",
                                          false)}),
    [](const auto & test) { return std::string(test.param.name); });

TEST(Import, TakesEntitiesThatTheFileDeclares)
{
    const Imported imported = ImportText(R"(<!DOCTYPE IPC-2581 [<!ENTITY maker "M &#38;#38; Co">
        <!ENTITY layers "<Layer name='A'/><Layer name='B' side='&maker;'/>">]><IPC-2581><Ecad name="&maker;"><CadData>
        &layers;&layers;</CadData></Ecad></IPC-2581>)");
    EXPECT_EQ(Str(imported.board->m_Ecad.name), "M &amp; Co");
    const auto & layers = imported.board->m_Ecad.m_CadData.m_arrLayer;
    ASSERT_EQ(Count(layers), 4U);
    EXPECT_EQ(Str(layers.GetAt(1)->side), "M &amp; Co");
    EXPECT_EQ(Str(layers.GetAt(2)->name), "A");
}

}  // namespace
}  // namespace ipc2581::tests
