#include "ipc2581/draw/Text.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/draw/Cutout.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

// 5, 6, 7, 8, 9.
CIPC2581_Xform SampleXform()
{
    CIPC2581_Xform xform;
    xform.SetXOffset(5);
    xform.SetYOffset(6);
    xform.SetRotation(7);
    xform.SetMirror(8);
    xform.SetScale(9);
    return xform;
}

void ExpectXform(const CIPC2581_Xform & xform, int first)
{
    EXPECT_EQ(xform.GetXOffset(), first);
    EXPECT_EQ(xform.GetYOffset(), first == 0 ? 0 : first + 1);
    EXPECT_EQ(xform.GetRotation(), first == 0 ? 0 : first + 2);
    EXPECT_EQ(xform.GetMirror(), first == 0 ? 0 : first + 3);
    EXPECT_EQ(xform.GetScale(), first == 0 ? 0 : first + 4);
}

class Text : public testing::Test {
public:
    Text()
    {
        text.SetTextString("R1");
        text.SetFontSize(0.5);
        CIPC2581_Xform xform = SampleXform();
        text.SetXform(&xform);
        text.SetBoundingBox_LowLeftX(1);
        text.SetBoundingBox_LowLeftY(2);
        text.SetBoundingBox_UppRightX(3);
        text.SetBoundingBox_UppRightY(4);
        text.SetFontRefID("font");
        text.SetColorGroupID("colour");
    }

    static void ExpectSample(const CIPC2581_Text & made)
    {
        EXPECT_EQ(made.GetTextString(), "R1");
        EXPECT_EQ(made.GetFontSize(), 0.5);
        ExpectXform(*made.GetXform(), 5);
        EXPECT_EQ(made.GetBoundingBox_LowLeftX(), 1.0);
        EXPECT_EQ(made.GetBoundingBox_LowLeftY(), 2.0);
        EXPECT_EQ(made.GetBoundingBox_UppRightX(), 3.0);
        EXPECT_EQ(made.GetBoundingBox_UppRightY(), 4.0);
        EXPECT_EQ(made.GetFontRefID(), "font");
        EXPECT_EQ(made.GetColorGroupID(), "colour");
    }

    static void ExpectNew(const CIPC2581_Text & made)
    {
        EXPECT_EQ(made.TextString, "");
        EXPECT_EQ(made.FontSize, 0.0);
        ASSERT_NE(made.Xform, nullptr);
        ExpectXform(*made.Xform, 0);
        EXPECT_EQ(made.BoundingBox_LowLeftX, 0.0);
        EXPECT_EQ(made.BoundingBox_LowLeftY, 0.0);
        EXPECT_EQ(made.BoundingBox_UppRightX, 0.0);
        EXPECT_EQ(made.BoundingBox_UppRightY, 0.0);
        EXPECT_EQ(made.FontRefID, "");
        EXPECT_EQ(made.ColorGroupID, "");
    }

    CIPC2581_Text text;
};

TEST_F(Text, StartsEmptyWithType17)
{
    const CIPC2581_Text made;
    ExpectNew(made);
    EXPECT_EQ(made.GetDrawType(), 17);
}

TEST_F(Text, AccessorsGiveTheFields)
{
    ExpectSample(text);
    EXPECT_EQ(text.TextString, "R1");
    EXPECT_EQ(text.FontSize, 0.5);
    EXPECT_EQ(text.GetXform(), text.Xform);
    EXPECT_EQ(text.BoundingBox_LowLeftX, 1.0);
    EXPECT_EQ(text.BoundingBox_LowLeftY, 2.0);
    EXPECT_EQ(text.BoundingBox_UppRightX, 3.0);
    EXPECT_EQ(text.BoundingBox_UppRightY, 4.0);
    EXPECT_EQ(text.FontRefID, "font");
    EXPECT_EQ(text.ColorGroupID, "colour");
}

TEST_F(Text, FieldsStandInTheirOrder)
{
    const std::vector<const void *> fields{&text.DrawType,
                                           &text.TextString,
                                           &text.FontSize,
                                           &text.Xform,
                                           &text.BoundingBox_LowLeftX,
                                           &text.BoundingBox_LowLeftY,
                                           &text.BoundingBox_UppRightX,
                                           &text.BoundingBox_UppRightY,
                                           &text.FontRefID,
                                           &text.ColorGroupID};
    EXPECT_TRUE(std::is_sorted(fields.begin(), fields.end(), std::less<>()));
}

TEST_F(Text, BasesStandInTheirOrder)
{
    static_assert(std::is_base_of_v<CIPC2581_XmlDataAdd_Function, CIPC2581_Text>);
    EXPECT_EQ(static_cast<void *>(static_cast<CIPC2581_DrawObj *>(&text)), static_cast<void *>(&text));
    EXPECT_EQ(static_cast<char *>(static_cast<void *>(static_cast<CIPC2581_XmlDataAdd_Function *>(&text))),
              static_cast<char *>(static_cast<void *>(&text)) + sizeof(CIPC2581_DrawObj));
}

TEST_F(Text, GettersOfTextsGiveCopies)
{
    text.GetTextString() = "other";
    text.GetFontRefID() += "other";
    text.GetColorGroupID() = "";
    ExpectSample(text);
}

TEST_F(Text, SetXformCopiesIntoItsOwn)
{
    CIPC2581_Text target;
    const CIPC2581_Xform * owned = target.GetXform();
    {
        CIPC2581_Xform xform = SampleXform();
        target.SetXform(&xform);
        xform.Init();
    }
    EXPECT_EQ(target.GetXform(), owned);
    ExpectXform(*owned, 5);
    target.SetXform(target.GetXform());
    ExpectXform(*owned, 5);
}

TEST_F(Text, InitMakesANewTransformAndAbandonsTheOld)
{
    const std::unique_ptr<CIPC2581_Xform> abandoned(text.GetXform());
    text.SetDrawType(5);
    text.Init();
    ExpectNew(text);
    EXPECT_NE(text.GetXform(), abandoned.get());
    ExpectXform(*abandoned, 5);
    EXPECT_EQ(text.GetDrawType(), 5);
}

TEST_F(Text, CopiesHaveATransformOfTheirOwn)
{
    const CIPC2581_Text copy(text);
    const std::unique_ptr<CIPC2581_Text> clone(text.clone());
    CIPC2581_Text target;
    const CIPC2581_Xform * owned = target.GetXform();
    EXPECT_EQ(&(target = text), &target);
    EXPECT_EQ(target.GetXform(), owned);
    text.GetXform()->SetRotation(90);
    text.SetTextString("other");
    ExpectSample(copy);
    ExpectSample(*clone);
    ExpectSample(target);
    clone->GetXform()->SetRotation(45);
    EXPECT_EQ(text.GetXform()->GetRotation(), 90.0);
}

TEST_F(Text, CopyingLeavesTheType)
{
    text.SetDrawType(5);
    EXPECT_EQ(CIPC2581_Text(text).GetDrawType(), 17);
    const std::unique_ptr<CIPC2581_Text> clone(text.clone());
    EXPECT_EQ(clone->GetDrawType(), 17);
    CIPC2581_Text target;
    target.SetDrawType(6);
    target = text;
    EXPECT_EQ(target.GetDrawType(), 6);
}

TEST_F(Text, AssignmentToItselfDoesNothing)
{
    const CIPC2581_Text & same = text;
    text = same;
    ExpectSample(text);
}

TEST_F(Text, AssignmentOfATextWithTheSameTransformKeepsIt)
{
    CIPC2581_Text sharing;
    CIPC2581_Xform * const own = sharing.Xform;
    sharing.Xform = text.Xform;
    sharing = text;
    ExpectSample(sharing);
    EXPECT_EQ(sharing.Xform, text.Xform);
    sharing.Xform = own;
}

TEST_F(Text, AssignmentThroughTheBaseCopiesTheTypeAlone)
{
    CIPC2581_Text source;
    source.SetDrawType(5);
    CIPC2581_DrawObj & base = text;
    base = source;
    EXPECT_EQ(text.GetDrawType(), 5);
    ExpectSample(text);
}

TEST_F(Text, ConstantCloneIsAPlainObject)
{
    text.SetDrawType(5);
    const std::unique_ptr<CIPC2581_DrawObj> copy(std::as_const(text).clone());
    const CIPC2581_DrawObj & made = *copy;
    EXPECT_TRUE(typeid(made) == typeid(CIPC2581_DrawObj));
    EXPECT_EQ(made.GetDrawType(), 5);
}

TEST_F(Text, ReadsNothing)
{
    CIPC2581_DrawObj & base = text;
    Lines file{"one", "</Text>"};
    EXPECT_EQ(base.Import(file.File()), 1);
    EXPECT_EQ(file.Rest(), (Texts{"one", "</Text>"}));
    Tokens tokens(R"(<Text textString="x" fontSize="1"/>)");
    EXPECT_EQ(base.Import(tokens.List()), 0);
    ExpectSample(text);
}

TEST_F(Text, WritesNothing)
{
    CIPC2581_DrawObj & base = text;
    const auto written = Exported(base, 2);
    EXPECT_EQ(written.result, 1);
    EXPECT_EQ(written.text, "");
}

TEST_F(Text, ListGoesOnBehindIt)
{
    CIPC2581_DrawObjArray list;
    list.Add(new CIPC2581_Text);
    list.Add(new CIPC2581_Cutout);
    const auto written = Exported(list);
    EXPECT_EQ(written.result, 1);
    EXPECT_EQ(written.text, Below(R"(
   <Cutout>
      <PolyBegin x="0.000000" y="0.000000" />
   </Cutout>
)"));
    Lines file{R"(<PolyBegin x="1" />)", "</Cutout>", "behind"};
    EXPECT_EQ(list.Import(file), 1);
    EXPECT_EQ(file.Rest(), Texts{"behind"});
}

TEST_F(Text, BecomesAPlainObjectInACopiedList)
{
    CIPC2581_DrawObjArray list;
    list.Add(text.clone());
    CIPC2581_DrawObjArray copy(list);
    ASSERT_EQ(copy.GetSize(), 1);
    const CIPC2581_DrawObj & made = *copy.GetAt(0);
    EXPECT_TRUE(typeid(made) == typeid(CIPC2581_DrawObj));
    EXPECT_EQ(Exported(copy).result, 0);
}

TEST_F(Text, DestructorToleratesAMissingTransform)
{
    auto made = std::make_unique<CIPC2581_Text>();
    delete made->Xform;
    made->Xform = nullptr;
    EXPECT_NO_FATAL_FAILURE(made.reset());
}

TEST_F(Text, OwnCloneAndAssignmentAreNotVirtual)
{
    EXPECT_FALSE(IsVirtual(static_cast<CIPC2581_Text * (CIPC2581_Text::*)()>(&CIPC2581_Text::clone)));
    EXPECT_FALSE(
        IsVirtual(static_cast<CIPC2581_Text & (CIPC2581_Text::*)(const CIPC2581_Text &)>(&CIPC2581_Text::operator=)));
    EXPECT_EQ(Slot(static_cast<int (CIPC2581_Text::*)(CStdioFile &)>(&CIPC2581_Text::Import)), 5U);
    EXPECT_EQ(Slot(&CIPC2581_Text::Export), 6U);
}

}  // namespace
