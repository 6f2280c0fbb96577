#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/TokenList.h"
#include "ipc2581/base/lines/Word.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/base/platform/CArray.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/base/platform/CString.h"
#include "tests/support/Files.h"
#include "tests/support/Sanitizers.h"

namespace {

using ipc2581::Attribute;
using ipc2581::Element;
using ipc2581::Flag;
using ipc2581::Integer;
using ipc2581::Number;
using ipc2581::Pack;
using ipc2581::Reading;
using ipc2581::Text;
using ipc2581::detail::AttributeHit;
using ipc2581::detail::AttributeRow;
using ipc2581::detail::AttributeRows;
using ipc2581::detail::LineCycle;
using ipc2581::detail::LineForm;
using ipc2581::detail::RowsOf;
using ipc2581::detail::ScanRows;
using ipc2581::detail::ScanTokens;
using ipc2581::detail::ShortKey;
using ipc2581::detail::TableOf;
using ipc2581::detail::TokenList;
using ipc2581::detail::Word;
using ipc2581::tests::Bytes;
using ipc2581::tests::HasSanitizer;
using ipc2581::tests::Str;
using ipc2581::tests::TempFolder;

// The portable build of the vocabulary is tested beside the one that is shipped, and one that is not optimised beside
// one that is.
#if defined(IPC2581_PORTABLE) || !defined(__OPTIMIZE__)
constexpr bool IsSlow = true;
#else
constexpr bool IsSlow = HasSanitizer;
#endif

// A packed board of a million lines is larger than this.
constexpr std::uintmax_t LargeBoard = 200000;

// Enough to meet what is rare; where each line is slow, fewer, so that the test stays one of seconds.
constexpr int ManyLines = IsSlow ? 20000 : 600000;

struct TwoValues {
    std::string first;
    std::string second;
    bool operator==(const TwoValues &) const = default;
};

// Fields of every kind, under words that are short and long and stand inside one another.
struct Fields {
    bool isThrown = false;
    CString refDes{"before"};
    CString componentRef{"before"};
    CString rest{"before"};
    double x = 99;
    double lowerLeftX = 99;
    int number = 99;
    int mirror = 99;
    int turn = 99;
    int via = 99;
    bool test = true;
    TwoValues clockwise;

    bool operator==(const Fields & other) const
    {
        const auto bits = [](double value) { return std::bit_cast<std::uint64_t>(value); };
        return isThrown == other.isThrown && refDes == other.refDes && componentRef == other.componentRef &&
               rest == other.rest && bits(x) == bits(other.x) && bits(lowerLeftX) == bits(other.lowerLeftX) &&
               number == other.number && mirror == other.mirror && turn == other.turn && via == other.via &&
               test == other.test && clockwise == other.clockwise;
    }
};

std::ostream & operator<<(std::ostream & out, const Fields & fields)
{
    return out << (fields.isThrown ? "thrown, " : "") << "refDes " << fields.refDes << ", componentRef "
               << fields.componentRef << ", rest " << fields.rest << ", x " << fields.x << ", lowerLeftX "
               << fields.lowerLeftX << ", number " << fields.number << ", mirror " << fields.mirror << ", turn "
               << fields.turn << ", via " << fields.via << ", test " << fields.test << ", clockwise "
               << fields.clockwise.first << " and " << fields.clockwise.second;
}

constexpr auto Single =
    Element<Fields>("A", Text("refDes=", &Fields::refDes), Text("componentRef=", &Fields::componentRef),
                    Number("lowerLeftX=", &Fields::lowerLeftX), Number("x=", &Fields::x),
                    Integer("number=", &Fields::number), Flag("test=", &Fields::test), Flag("via=", &Fields::via),
                    Attribute{"mirror=", Reading::ControlFlag, Pack{&Fields::mirror}});
constexpr auto CatchAll =
    Element<Fields>("A", Text("Ref=", &Fields::componentRef), Number("X=", &Fields::x), Text("=", &Fields::rest));
constexpr auto DoubleFirst =
    Element<Fields>("A", Text("refDes=", &Fields::refDes), Text("componentRef=", &Fields::componentRef),
                    Integer("number=", &Fields::number), Number("lowerLeftX=", &Fields::lowerLeftX));
constexpr auto DoubleSecond =
    Element<Fields>("A", Number("x=", &Fields::x), Text("Des=", &Fields::rest), Flag("via=", &Fields::via));
constexpr auto Words =
    Element<Fields>("A", Number("lowerLeftX=", &Fields::lowerLeftX), Text("refDes", &Fields::refDes),
                    Number("x=", &Fields::x), Text("Ref", &Fields::componentRef), Text("/", &Fields::rest));
constexpr auto DoubleWordsFirst = Element<Fields>("A", Number("x=", &Fields::x), Text("refDes=", &Fields::refDes));
constexpr auto DoubleWordsSecond = Element<Fields>(
    "A", Flag("via=", &Fields::via), Text("component", &Fields::componentRef), Integer("e", &Fields::number));
// Words that end in one another, the shorter one first and last.
constexpr auto ShortFirst =
    Element<Fields>("A", Text("=", &Fields::rest), Number("X=", &Fields::x), Number("LeftX=", &Fields::lowerLeftX),
                    Integer("lowerLeftX=", &Fields::number));
constexpr auto ShortLast =
    Element<Fields>("A", Number("lowerLeftX=", &Fields::lowerLeftX), Text("componentRef=", &Fields::componentRef),
                    Number("LeftX=", &Fields::x), Text("Ref=", &Fields::refDes), Integer("X=", &Fields::number),
                    Text("refDes=", &Fields::rest), Flag("test=", &Fields::test), Flag("t=", &Fields::via));
// The same word for two fields.
constexpr auto Same = Element<Fields>("A", Text("refDes=", &Fields::refDes), Text("refDes=", &Fields::rest),
                                      Number("x=", &Fields::x), Number("x=", &Fields::lowerLeftX),
                                      Attribute{"clockwise=", Reading::Direction, Pack{&Fields::turn}});
constexpr auto SameSecond = Element<Fields>("A", Integer("x=", &Fields::number), Text("Ref=", &Fields::componentRef));

void TakeTwice(AttributeHit & hit, void * object)
{
    std::string first(hit.Take());
    static_cast<Fields *>(object)->clockwise = {std::move(first), std::string(hit.Take())};
}

// Those of a table, with one that takes its value twice behind them.
template <std::size_t... indexes>
constexpr auto WithTakeTwice(const std::array<AttributeRow, sizeof...(indexes)> & rows,
                             std::index_sequence<indexes...> /*all*/)
{
    return std::array{rows[indexes]...,
                      AttributeRow{Word("clockwise="), Reading::Direction, &TakeTwice, ShortKey("clockwise=", '"')}};
}

constexpr auto SingleRows = WithTakeTwice(RowsOf<Single>, std::make_index_sequence<RowsOf<Single>.size()>());

// The tables that a scan gets.
struct Form {
    AttributeRows first;
    const AttributeRows * second = nullptr;
};

constexpr Form SingleForm = {AttributeRows(SingleRows)};
constexpr Form Forms[] = {SingleForm,
                          {TableOf<CatchAll>},
                          {TableOf<DoubleFirst>, &TableOf<DoubleSecond>},
                          {TableOf<Words>},
                          {TableOf<DoubleWordsFirst>, &TableOf<DoubleWordsSecond>},
                          {TableOf<ShortFirst>},
                          {TableOf<ShortLast>},
                          {TableOf<Same>, &TableOf<SameSecond>}};

// Calls the scan with the tables of the form and tells what it left in the fields.
template <typename Scan>
Fields Scanned(const Form & form, Scan scan)
{
    Fields fields;
    try {
        scan(form.first, form.second, &fields);
    }
    catch (const CInvalidArgException &) {
        fields.isThrown = true;
    }
    return fields;
}

Fields ScannedByTokens(const Form & form, const TokenList & tokens)
{
    return Scanned(form, [&tokens](const AttributeRows & first, const AttributeRows * second, Fields * fields) {
        ScanTokens(tokens, first, second, fields);
    });
}

// Words that readers test first tokens for, and some that only these lines hold.
constexpr Word TagWords[] = {"Step", "/Step", "StepRef", "Pad", "LayerPad", "/Pad", "Line", "x=", "=", "/"};

constexpr std::string_view WhiteSpace = " \t\n\v\f\r";

// What each reader makes of a line, told once more by the plainest means.
class LiteralTurn {
public:
    LiteralTurn(std::string_view line, LineForm form)
    {
        if (form == LineForm::Content && line.find('<') != std::string_view::npos) {
            line.remove_prefix(line.find('<'));
        }
        if (form == LineForm::Trimmed) {
            line.remove_prefix(std::min(line.find_first_not_of(WhiteSpace), line.size()));
            line.remove_suffix(line.size() - (line.find_last_not_of(WhiteSpace) + 1));
        }
        CString text(line);
        if (line.find(' ') != std::string_view::npos) {
            CIPC2581_XmlDataAdd_Function().Tokenize(text, &m_tokens);
            m_isThrown = form != LineForm::WholeLine && m_tokens.GetSize() < 1;
        }
        else if (form == LineForm::Content && line.empty()) {
            m_isThrown = true;
        }
        else {
            if (form == LineForm::Content) {
                text.SetAt(0, ' ');
                text.SetAt(text.GetLength() - 1, ' ');
            }
            m_tokens.Add(text);
        }
        if (!m_isThrown) {
            m_tested = form == LineForm::WholeLine ? text : m_tokens[0];
        }
    }

    bool IsThrown() const { return m_isThrown; }
    CArray<CString, CString> & Tokens() { return m_tokens; }
    bool Holds(std::string_view word) const { return Tested().find(word) != std::string_view::npos; }
    bool Opens(std::string_view word) const { return Holds(word) && Tested().find('/') == std::string_view::npos; }

private:
    std::string_view Tested() const { return m_tested; }

    CArray<CString, CString> m_tokens;
    CString m_tested;
    bool m_isThrown = false;
};

bool AreEqual(const TokenList & tokens, const CArray<CString, CString> & literal)
{
    if (tokens.Size() != literal.GetSize()) {
        return false;
    }
    for (int i = 0; i < tokens.Size(); ++i) {
        if (literal.GetAt(i) != tokens[i]) {
            return false;
        }
    }
    return true;
}

// Compares the turn of a cycle with the literal one; false, with a failure, at the first difference.
bool Agrees(LineCycle & cycle, LiteralTurn & literal, const std::string & line)
{
    for (const Word & word : TagWords) {
        if (cycle.Holds(word) != literal.Holds(word.Text()) || cycle.Opens(word) != literal.Opens(word.Text())) {
            ADD_FAILURE() << word.Text() << " in " << testing::PrintToString(line);
            return false;
        }
    }
    const TokenList literalTokens(literal.Tokens());
    for (const Form & form : Forms) {
        const Fields expected = ScannedByTokens(form, literalTokens);
        const Fields fields =
            Scanned(form, [&cycle](const AttributeRows & first, const AttributeRows * second, Fields * scanned) {
                ScanRows(cycle.Tokens(), first, second, scanned);
            });
        if (!(fields == expected)) {
            EXPECT_EQ(fields, expected) << testing::PrintToString(line);
            return false;
        }
    }
    if (!AreEqual(cycle.Tokens(), literal.Tokens())) {
        ADD_FAILURE() << "other tokens of " << testing::PrintToString(line);
        return false;
    }
    return true;
}

// What the lines of a file came to.
struct Tally {
    int lines = 0;
    int thrown = 0;
};

// A file of a class of the host's own, which is read through its operations.
class HostFile : public CStdioFile {};

// Reads the lines of the bytes, the last of which ends in a line feed, and stops at the first that is not as told.
Tally ExpectAgreement(CStdioFile & file, const std::string & path, std::string_view bytes, LineForm form)
{
    Tally tally;
    if (file.Open(path.c_str(), CStdioFile::modeRead, nullptr) == 0) {
        ADD_FAILURE() << path;
        return tally;
    }
    LineCycle cycle(file, form);
    std::string line;
    while (!bytes.empty()) {
        const std::size_t end = bytes.find('\n');
        line = bytes.substr(0, end != 0 && bytes[end - 1] == '\r' ? end - 1 : end);
        bytes.remove_prefix(end + 1);
        LiteralTurn literal(line, form);
        ++tally.lines;
        if (literal.IsThrown()) {
            ++tally.thrown;
            EXPECT_THROW(cycle.Next(), CInvalidArgException) << testing::PrintToString(line);
            continue;
        }
        const bool isRead = cycle.Next();
        EXPECT_TRUE(isRead);
        if (!isRead || !Agrees(cycle, literal, line)) {
            return tally;
        }
    }
    EXPECT_FALSE(cycle.Next());
    return tally;
}

// Makes lines out of the pieces that matter. Half begin as lines of a real file, in which a few bytes are then
// changed, so that most are within a byte or two of the plain form key="value".
class LineMaker {
public:
    explicit LineMaker(unsigned seed) : m_random(seed) {}

    std::string Line()
    {
        std::string line = Chance(2) ? RealLine() : PiecedLine();
        for (unsigned changes = Chance(2) ? Below(4) : 0; changes > 0 && !line.empty(); --changes) {
            Change(line);
        }
        if (Chance(12)) {
            line.resize(Below(static_cast<unsigned>(line.size()) + 1));
        }
        if (Chance(30)) {
            line += '\r';
        }
        return line;
    }

private:
    using Pieces = std::vector<std::string_view>;

    unsigned Below(unsigned bound) { return static_cast<unsigned>(m_random() % bound); }
    bool Chance(unsigned oneIn) { return Below(oneIn) == 0; }
    std::string_view OneOf(const Pieces & pieces) { return pieces[Below(static_cast<unsigned>(pieces.size()))]; }

    std::string Value()
    {
        static const Pieces values = {"",    "R1",           "1.5",   "-2",  "TRUE", "FALSE", "\x01",
                                      "12",  "two words",    "a=b",   "A/B", "a<b>", " ",     "nan",
                                      "1e3", "\xC3\xA4\xFF", "x y z", "'q'", "\tt ", "0x10"};
        if (Chance(200)) {
            return std::string(Below(Chance(50) ? 5000 : 300), 'v');
        }
        return std::string(OneOf(values));
    }
    std::string OpeningTag()
    {
        return std::string(Below(4) * 3, ' ')
            .append(OneOf({"<Step", "<StepRef", "<Pad", "<LayerPad", "</Step", "<Line", "<x=\"1\"", "<", "Pad>"}));
    }
    std::string Ending()
    {
        return std::string(OneOf({">", "/>", " />", " >", "", " ", "/", "/>  ", "></Step>", ">text</Step>"}));
    }
    // Attributes as a table has them, forwards or backwards, with gaps, repetitions and others between.
    std::string OrderedLine()
    {
        static const Pieces keys = {"refDes", "componentRef", "number", "lowerLeftX", "x",
                                    "test",   "via",          "mirror", "clockwise",  "LeftX"};
        std::string line = OpeningTag();
        const bool isBackwards = Chance(3);
        for (std::size_t i = 0; i < keys.size(); ++i) {
            if (Chance(4)) {
                continue;
            }
            const std::string_view key = keys[isBackwards ? keys.size() - 1 - i : i];
            for (unsigned count = Chance(8) ? 2 : 1; count > 0; --count) {
                line.append(" ").append(key).append("=\"").append(Value()).append("\"");
            }
            if (Chance(6)) {
                line.append(" note=\"").append(Value()).append("\"");
            }
        }
        return line.append(Ending());
    }
    std::string RealLine()
    {
        if (Chance(3)) {
            return OrderedLine();
        }
        std::string line = OpeningTag();
        for (unsigned count = Below(6); count > 0; --count) {
            static const Pieces keys = {"refDes",  "componentRef", "lowerLeftX", "x",     "centerX", "number",
                                        "test",    "via",          "mirror",     "X",     "Ref",     "clockwise",
                                        "padPref", "max",          "note",       "\xC3x", ""};
            line.append(1 + (Chance(8) ? Below(40) : 0), ' ').append(OneOf(keys)).append("=\"");
            line.append(Value()).append("\"");
        }
        return line.append(Ending());
    }
    std::string PiecedLine()
    {
        static const Pieces pieces = {" ",
                                      "  ",
                                      "\"",
                                      "=",
                                      "/",
                                      "<",
                                      ">",
                                      "\t",
                                      "refDes=",
                                      "x=",
                                      "lowerLeftX=",
                                      "X=",
                                      "\r",
                                      "number=",
                                      "Ref=",
                                      "x=\"1\"",
                                      " x=\"2\" ",
                                      "via=\"TRUE\"",
                                      "refDes=\"R1\"",
                                      "y",
                                      "/>",
                                      "\" />",
                                      "<Step ",
                                      "</Step",
                                      "x=y=",
                                      "\xC3\xA9",
                                      "mirror=\"\x01\"",
                                      " test=\"",
                                      "d\"",
                                      "\xFF",
                                      "clockwise=\"FALSE\"",
                                      " clockwise=\"one two\" "};
        std::string line;
        for (unsigned count = Below(10); count > 0; --count) {
            if (Chance(40)) {
                line += '\0';
            }
            line.append(OneOf(pieces));
        }
        return line;
    }
    void Change(std::string & line)
    {
        static constexpr std::string_view bytes("\" =<>/\t\r\0\x01\x80\xFFxX1", 15);
        const std::size_t at = Below(static_cast<unsigned>(line.size()));
        const char byte = bytes[Below(static_cast<unsigned>(bytes.size()))];
        switch (Below(3)) {
        case 0:
            line[at] = byte;
            break;
        case 1:
            line.insert(at, 1, byte);
            break;
        default:
            line.erase(at, 1);
            break;
        }
    }

    std::mt19937 m_random;
};

std::string MadeLines(unsigned seed, int count)
{
    LineMaker maker(seed);
    std::string bytes;
    for (int i = 0; i < count; ++i) {
        bytes.append(maker.Line()).append("\n");
    }
    return bytes;
}

struct Row {
    const char * name;
    LineForm form;
    bool isHostFile;
    int lines;
};

class PlainScan : public testing::TestWithParam<Row> {};

INSTANTIATE_TEST_SUITE_P(Forms, PlainScan,
                         testing::Values(Row{"Plain", LineForm::Plain, false, ManyLines},
                                         Row{"Content", LineForm::Content, false, ManyLines / 20},
                                         Row{"Trimmed", LineForm::Trimmed, false, ManyLines / 20},
                                         Row{"WholeLine", LineForm::WholeLine, false, ManyLines / 20},
                                         Row{"OfAHost", LineForm::Plain, true, ManyLines / 20}),
                         [](const testing::TestParamInfo<Row> & row) { return row.param.name; });

TEST_P(PlainScan, AgreesWithTheLiteralTokensOnMadeLines)
{
    const Row & row = GetParam();
    const TempFolder folder;
    const std::string bytes = MadeLines(2581, row.lines);
    const std::string path = folder.Save("lines", bytes);
    const std::unique_ptr<CStdioFile> file =
        row.isHostFile ? std::make_unique<HostFile>() : std::make_unique<CStdioFile>();
    const Tally tally = ExpectAgreement(*file, path, bytes, row.form);
    EXPECT_EQ(tally.lines, row.lines);
    EXPECT_EQ(tally.thrown > 0, row.form == LineForm::Plain || row.form == LineForm::Content);
}

// Lines that say little are made as well: without these counts the comparison could pass by comparing nothing.
TEST(PlainScanLines, AreOfEveryKind)
{
    constexpr int Count = 10000;
    int plain = 0;
    int thrown = 0;
    int filled = 0;
    LineMaker maker(2581);
    for (int i = 0; i < Count; ++i) {
        LiteralTurn turn(maker.Line(), LineForm::WholeLine);
        const Fields fields = ScannedByTokens(SingleForm, turn.Tokens());
        thrown += fields.isThrown ? 1 : 0;
        filled += !fields.isThrown && !(fields == Fields()) ? 1 : 0;
        bool isPlain = turn.Tokens().GetSize() > 1;
        for (std::int64_t token = 1; token < turn.Tokens().GetSize(); ++token) {
            const std::string text = Str(turn.Tokens()[token]);
            isPlain = isPlain && std::count(text.begin(), text.end(), '"') == 2;
        }
        plain += isPlain ? 1 : 0;
    }
    EXPECT_GT(plain, Count / 20);
    EXPECT_GT(thrown, Count / 20);
    EXPECT_GT(filled, Count / 20);
}

// The first of all lines that are the same but for their digits.
std::string OneOfAKind(std::string_view bytes)
{
    std::unordered_set<std::string> seen;
    std::string distinct;
    std::string shape;
    while (!bytes.empty()) {
        const std::string_view line = bytes.substr(0, bytes.find('\n') + 1);
        bytes.remove_prefix(line.size());
        shape = line;
        std::replace_if(
            shape.begin(), shape.end(), [](char ch) { return ch >= '0' && ch <= '9'; }, '0');
        if (seen.insert(shape).second) {
            distinct.append(line);
        }
    }
    return distinct;
}

TEST(PlainScanLines, OfRealBoardsAgree)
{
    namespace fs = std::filesystem;
    const fs::path boards = fs::path(IPC2581_SOURCE_FOLDER) / ".." / "shared" / "boards";
    if (!fs::is_directory(boards)) {
        GTEST_SKIP() << "no folder " << boards;
    }
    if (std::system("zstd --version > /dev/null 2>&1") != 0) {
        GTEST_SKIP() << "no zstd to unpack the boards with";
    }
    const TempFolder folder;
    for (const fs::directory_entry & entry : fs::directory_iterator(boards)) {
        if (entry.path().extension() != ".zst" || (IsSlow && entry.file_size() > LargeBoard)) {
            continue;
        }
        const std::string path = folder.Path(entry.path().stem().string());
        ASSERT_EQ(std::system(("zstd -q -d '" + entry.path().string() + "' -o '" + path + "'").c_str()), 0);
        std::string bytes = Bytes(path);
        if (!bytes.ends_with('\n')) {
            bytes += '\n';
        }
        CStdioFile file;
        EXPECT_GT(ExpectAgreement(file, path, bytes, LineForm::Plain).lines, 1000) << path;
        fs::remove(path);
        // Most lines differ from one before in their digits alone, which say nothing new of the other forms.
        const std::string distinct = OneOfAKind(bytes);
        const std::string distinctPath = folder.Save("distinct", distinct);
        for (const LineForm form : {LineForm::Content, LineForm::Trimmed, LineForm::WholeLine}) {
            CStdioFile again;
            EXPECT_GT(ExpectAgreement(again, distinctPath, distinct, form).lines, 100) << path;
        }
    }
}

}  // namespace
