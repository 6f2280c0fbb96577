#include "hosts/ipc2581/check/LossTable.h"

#include <cstddef>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/ipc2581/check/ElementCounts.h"
#include "hosts/ipc2581/check/LineCheck.h"
#include "tests/document/ModelText.h"
#include "tests/document/WholeBoard.h"
#include "tests/support/Files.h"

namespace ipc2581::host {
namespace {

using Lines = std::vector<std::string>;

// A line of the whole board that is taken for an element, and the last line of that element.
struct Place {
    const ElementLoss * element;
    std::size_t first;
    std::size_t last;
    std::map<std::string, Reading> attributes;
};

// Finds the places of a board.
class PlaceFinder : public ReadObserver {
public:
    void LoopBegins() override
    {
        m_loops.push_back(m_loops.empty() ? &m_document : m_inner);
        m_places.push_back(places.size() - 1);
    }
    void LoopEnds() override
    {
        m_loops.pop_back();
        if (!m_loops.empty()) {
            places[m_places.back()].last = m_line;
        }
        m_places.pop_back();
    }
    void LineTaken(std::string_view line) override
    {
        m_line = m_next++;
        m_isClosing = line.starts_with("</");
    }
    void TestHit(std::string_view word) override
    {
        if (!m_isClosing) {
            m_inner = &m_loops.back()->Inner(word);
            places.push_back({m_inner, m_line, m_line, {}});
        }
    }
    void AttributeTaken(std::string_view word, Reading reading, std::string_view /*token*/) override
    {
        places.back().attributes.emplace(word.substr(0, word.find('=')), reading);
    }

    std::vector<Place> places;

private:
    ElementLoss m_document;
    ElementLoss * m_inner = nullptr;
    std::vector<ElementLoss *> m_loops;
    std::vector<std::size_t> m_places;
    std::size_t m_next = 0;
    std::size_t m_line = 0;
    bool m_isClosing = false;
};

Lines WholeLines()
{
    Lines lines;
    for (const tests::BoardLine & line : tests::WholeBoard) {
        lines.emplace_back(line.text);
    }
    return lines;
}

std::string Joined(const Lines & lines)
{
    std::string text;
    for (const std::string & line : lines) {
        text += line + "\n";
    }
    return text;
}

// The lines with another value of an attribute of one of them.
Lines With(Lines lines, std::size_t line, const std::string & attribute, const std::string & value)
{
    std::string & text = lines[line];
    const std::string key = " " + attribute + "=\"";
    const std::size_t at = text.find(key) + key.size();
    text.replace(at, text.find('"', at) - at, value);
    return lines;
}

// One that the line does not have.
std::string OtherValue(Reading reading, const std::string & line)
{
    switch (reading) {
    case Reading::Text:
        return "other";
    case Reading::Number:
    case Reading::Integer:
        return "77";
    case Reading::Flag:
        return "no";
    case Reading::CornerFlag:
        return "TURE";
    case Reading::ControlFlag:
        return "\x01";
    case Reading::Direction:
        return line.find("TRUE") == std::string::npos ? "TRUE" : "FALSE";
    case Reading::OuterForm:
        return "HEXAGON";
    case Reading::RoundOrSquare:
        break;
    }
    return "SQUARE";
}

// The lines that have the attribute with the value, in one of the forms in which a number is written.
std::size_t CountValue(const std::string & text, std::string_view element, const std::string & attribute,
                       const std::string & value)
{
    std::istringstream lines(text);
    const std::string start = " " + attribute + "=\"" + value;
    std::size_t count = 0;
    for (std::string line; std::getline(lines, line);) {
        const bool isElement = line.find("<" + std::string(element) + " ") != std::string::npos;
        const bool hasValue =
            line.find(start + "\"") != std::string::npos || line.find(start + ".000000\"") != std::string::npos;
        count += isElement && hasValue ? 1 : 0;
    }
    return count;
}

// What comes of a board: its model and the file that is written from it.
struct Outcome {
    std::string model;
    std::string written;
};

class LossTable : public testing::Test {
protected:
    void SetUp() override
    {
        CIPC2581_Parser root;
        CIPC2581_XmlLiteReader reader;
        reader.SetObserver(&m_finder);
        CString path(m_folder.Save("board.cvg", Joined(m_lines)));
        reader.OpenPath(path, root);
        ASSERT_FALSE(m_finder.places.empty());
    }

    Outcome Read(const Lines & lines)
    {
        CIPC2581_Parser root;
        CString path(m_folder.Save("board.cvg", Joined(lines)));
        CIPC2581_XmlLiteReader().OpenPath(path, root);
        CString written(m_folder.Path("written.cvg"));
        CIPC2581_XmlLiteReader().WriteFilePath(written, root);
        return {tests::ModelText(root), tests::Bytes(m_folder.Path("written.cvg"))};
    }

    // The board in which the attributes of the place count: those of a set do for pads alone, and the unit of the
    // colour dictionary stands in front of that of the other one.
    Lines LinesFor(const Place & place) const
    {
        Lines lines = m_lines;
        if (place.element->Name() == "Set") {
            lines[place.first + 1] = "<Pad pin=\"1\">\n</Pad>";
            lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(place.first) + 2,
                        lines.begin() + static_cast<std::ptrdiff_t>(place.last));
        }
        for (std::string & line : lines) {
            if (place.element->Name() == "DictionaryStandard" && line.starts_with("<DictionaryColor ")) {
                line = "<DictionaryColor>";
            }
        }
        return lines;
    }

    tests::TempFolder m_folder;
    const Lines m_lines = WholeLines();
    PlaceFinder m_finder;
};

TEST_F(LossTable, TellsWhichElementsAreWritten)
{
    const Outcome with = Read(m_lines);
    for (const Place & place : m_finder.places) {
        SCOPED_TRACE(m_lines[place.first] + " in line " + std::to_string(place.first + 1));
        Lines lines = m_lines;
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(place.first),
                    lines.begin() + static_cast<std::ptrdiff_t>(place.last) + 1);
        const Outcome without = Read(lines);
        EXPECT_TRUE(with.model != without.model);
        EXPECT_EQ(with.written == without.written, place.element->IsLost());
    }
}

TEST_F(LossTable, TellsWhichAttributesAreWritten)
{
    for (const Place & place : m_finder.places) {
        const std::string_view element = place.element->Name();
        const Lines lines = LinesFor(place);
        const Outcome before = Read(lines);
        for (const auto & [attribute, reading] : place.attributes) {
            SCOPED_TRACE(attribute + " of line " + std::to_string(place.first + 1) + ": " + m_lines[place.first]);
            const AttributeLoss * const loss = place.element->Find(attribute);
            ASSERT_NE(loss, nullptr);
            const std::string value = OtherValue(reading, m_lines[place.first]);
            const Outcome after = Read(With(lines, place.first, attribute, value));
            EXPECT_TRUE(before.model != after.model);
            // A flag that is not set may not be written at all.
            const bool isFlag = reading == Reading::Flag;
            const Outcome & less = isFlag ? after : before;
            const Outcome & more = isFlag ? before : after;
            const std::string & sought = isFlag ? "TRUE" : value;
            const std::size_t countLess = CountValue(less.written, element, attribute, sought);
            const std::size_t countMore = CountValue(more.written, element, attribute, sought);
            if (place.element->IsLost() || loss->written == Written::Never) {
                EXPECT_TRUE(before.written == after.written);
            }
            else if (loss->written == Written::Always) {
                EXPECT_TRUE(before.written == after.written);
                EXPECT_NE(after.written.find(" " + attribute + "=\""), std::string::npos);
            }
            else if (loss->written == Written::Kept) {
                EXPECT_GT(countMore, countLess);
            }
            else {
                EXPECT_TRUE(before.written != after.written);
                EXPECT_LE(countMore, countLess);
            }
        }
    }
}

TEST_F(LossTable, KnowsTheAttributesAndHowTheyAreRead)
{
    for (const Place & place : m_finder.places) {
        for (const auto & [attribute, reading] : place.attributes) {
            SCOPED_TRACE(attribute + " of " + std::string(place.element->Name()));
            const AttributeLoss * const loss = place.element->Find(attribute);
            ASSERT_NE(loss, nullptr);
            // The transforms of components and pins have one name.
            EXPECT_TRUE(loss->reading == reading || attribute == "mirror");
        }
        EXPECT_EQ(place.element->Find("other"), nullptr);
    }
}

TEST_F(LossTable, KnowsTheElementsOfAnElement)
{
    ElementLoss document;
    ElementLoss & step = document.Inner("Ecad").Inner("CadData").Inner("Step");
    EXPECT_TRUE(step.Knows("Component"));
    EXPECT_TRUE(step.Knows("Datum"));
    EXPECT_FALSE(step.Knows("Step"));
    EXPECT_FALSE(step.Knows("Circle"));
    EXPECT_TRUE(step.Inner("Component").IsObject());
    EXPECT_TRUE(step.Inner("Profile").IsPart());
    EXPECT_TRUE(step.Inner("Profile").Inner("Polygon").IsPart());
    EXPECT_TRUE(step.Inner("Profile").Inner("Polygon").Knows("PolyStepCurve"));
    ElementLoss & features = step.Inner("LayerFeature").Inner("Set").Inner("Features");
    EXPECT_TRUE(features.Knows("Polyline"));
    EXPECT_FALSE(features.Knows("Slot"));
    EXPECT_TRUE(features.Inner("Contour").Inner("Polygon").IsObject());
    EXPECT_TRUE(step.Inner("Package").Inner("AssemblyDrawing").Inner("Polygon").IsPart());
    EXPECT_FALSE(features.Inner("Contour").IsLost());
    EXPECT_TRUE(step.Inner("PadStack").Inner("LayerPad").IsLost());
}

TEST_F(LossTable, TellsWhichWordsSetAFlag)
{
    std::size_t count = 0;
    for (const Place & place : m_finder.places) {
        for (const auto & [attribute, reading] : place.attributes) {
            if (reading != Reading::Flag && reading != Reading::CornerFlag && reading != Reading::ControlFlag) {
                continue;
            }
            ++count;
            const std::string notSet = Read(With(m_lines, place.first, attribute, "no")).model;
            for (const char * const word : {"TRUE", "true", "True", "1", "FALSE", "false", "TURE", "turE", "\x01"}) {
                SCOPED_TRACE(m_lines[place.first] + " " + attribute + " " + word);
                const std::string model = Read(With(m_lines, place.first, attribute, word)).model;
                EXPECT_EQ(model != notSet, ReadsAsSet(reading, word));
            }
        }
    }
    EXPECT_EQ(count, 11U);
}

TEST_F(LossTable, TellsWhatMeansSet)
{
    for (const char * const word : {"TRUE", "true", "True", "1"}) {
        EXPECT_TRUE(MeansSet(word)) << word;
    }
    for (const char * const word : {"FALSE", "false", "0", "", "TURE", "truer", "tru"}) {
        EXPECT_FALSE(MeansSet(word)) << word;
    }
}

// What is taken makes the objects of the model.
TEST_F(LossTable, CountsTheObjectsOfTheModel)
{
    CIPC2581_Parser root;
    const LineFindings found = CheckLines(BoardFile(m_folder.Save("board.cvg", Joined(m_lines))), 10, root, nullptr);
    for (const auto & [name, count] : CountModel(root)) {
        const auto taken = found.taken.find(name);
        EXPECT_EQ(taken == found.taken.end() ? 0 : taken->second, count) << name;
    }
    EXPECT_TRUE(found.stops.All().empty());
    EXPECT_TRUE(found.swallows.All().empty());
}

}  // namespace
}  // namespace ipc2581::host
