#include "hosts/ipc2581/board/Lengths.h"

#include <string>

#include <gtest/gtest.h>

#include "hosts/ipc2581/files/Error.h"
#include "tests/hosts/Program.h"

using namespace ipc2581::host;

namespace ipc2581::tests {
namespace {

// A board whose header says these units.
class OfUnits {
public:
    explicit OfUnits(const std::string & units) : m_board(BoardFile(Saved(units))) {}
    Lengths In(const std::string & unit = "") { return Lengths(m_board, unit); }

private:
    std::string Saved(const std::string & units)
    {
        std::string text = SmallBoard();
        return m_folder.Save("b.cvg", text.insert(text.find("<CadData"), "<CadHeader units=\"" + units + "\"/>\n"));
    }

    TempFolder m_folder;
    Board m_board;
};

TEST(Lengths, AreThoseOfTheBoardIfNobodyAsks)
{
    OfUnits inch("INCH");
    EXPECT_EQ(inch.In().Of(2.5), 2.5);
    EXPECT_EQ(inch.In().Word(), "inch");
    EXPECT_EQ(inch.In().Named("x").unit, "inch");
    EXPECT_TRUE(inch.In().Named("x").isLength);
}

TEST(Lengths, AreConverted)
{
    OfUnits inch("INCH");
    EXPECT_DOUBLE_EQ(inch.In("mm").Of(2), 50.8);
    EXPECT_DOUBLE_EQ(inch.In("mil").Of(2), 2000);
    EXPECT_DOUBLE_EQ(inch.In("um").Of(2), 50800);
    EXPECT_EQ(inch.In("mm").Word(), "millimeter");
    EXPECT_EQ(inch.In("um").Named("x").unit, "um");
    EXPECT_DOUBLE_EQ(OfUnits("MICRON").In("mm").Of(1500), 1.5);
    EXPECT_DOUBLE_EQ(OfUnits("MILLIMETER").In("inch").Of(25.4), 1);
}

TEST(Lengths, AreTakenFromTexts)
{
    const Lengths lengths = OfUnits("INCH").In("mm");
    EXPECT_EQ(lengths.Of(CString("0.0530")).Text(), "1.3462");
    EXPECT_EQ(lengths.Of(CString("thin")).Text(), "thin");
    EXPECT_FALSE(lengths.Of(CString("thin")).IsNumber());
    EXPECT_TRUE(lengths.Of(CString("")).IsNothing());
}

TEST(Lengths, OfABoardWithoutUnitsStayAsTheyAre)
{
    OfUnits unknown("FURLONG");
    EXPECT_EQ(unknown.In().Of(2.5), 2.5);
    EXPECT_EQ(unknown.In().Word(), "");
    EXPECT_EQ(unknown.In().Named("x").unit, "");
    EXPECT_THROW(unknown.In("mm"), Error);
}

}  // namespace
}  // namespace ipc2581::tests
