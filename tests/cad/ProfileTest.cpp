#include "ipc2581/cad/Profile.h"

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <string_view>
#include <type_traits>

#include <gtest/gtest.h>

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/cad/Step.h"
#include "ipc2581/draw/Cutout.h"
#include "ipc2581/draw/DrawObj.h"
#include "ipc2581/draw/Polygon.h"
#include "tests/support/Files.h"
#include "tests/support/Models.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;
using Profile = CIPC2581_Ecad_CadData_Step_Profile;

// Reads the lines under a Profile line and gives those that are left.
Texts Read(Profile & profile, std::initializer_list<std::string_view> lines)
{
    Lines file(lines);
    profile.ReadProfile(file);
    return file.Rest();
}

void Fill(Profile & profile)
{
    Read(profile,
         {"<Polygon>", R"(<PolyBegin x="1" y="2"/>)", R"(<PolyStepSegment x="3" y="4"/>)", "</Polygon>", "<Cutout>",
          R"(<PolyBegin x="5" y="6"/>)", R"(<PolyStepSegment x="7" y="8"/>)", "</Cutout>", "</Profile>"});
}

const char * const kFilled = Below(R"(
   <Profile>
      <Polygon>
         <PolyBegin x="1.000000" y="2.000000" />
         <PolyStepSegment x="3.000000" y="4.000000" />
      </Polygon>
      <Cutout>
         <PolyBegin x="5.000000" y="6.000000" />
         <PolyStepSegment x="7.000000" y="8.000000" />
      </Cutout>
   </Profile>
)");

const CIPC2581_Cutout & CutoutAt(const Profile & profile, int index)
{
    return dynamic_cast<const CIPC2581_Cutout &>(*profile.Cutouts->GetAt(index));
}

void ExpectDefault(const Profile & profile)
{
    ASSERT_NE(profile.Polygon, nullptr);
    EXPECT_EQ(profile.Polygon->DrawType, 22);
    EXPECT_EQ(profile.Polygon->PolyBegin->GetPoint_X(), 0.0);
    EXPECT_TRUE(profile.Polygon->PolyStepArray->IsEmpty());
    ASSERT_NE(profile.Cutouts, nullptr);
    EXPECT_TRUE(profile.Cutouts->IsEmpty());
}

TEST(Profile, StartsWithAnEmptyPolygonAndNoCutouts)
{
    const Profile profile;
    ExpectDefault(profile);
}

TEST(Profile, KeepsTheOrderOfItsVirtualOperations)
{
    using Assign = Profile & (Profile::*)(const Profile &);
    EXPECT_TRUE(std::has_virtual_destructor_v<Profile>);
    EXPECT_TRUE(IsVirtual(&Profile::clone));
    EXPECT_EQ(Slot(&Profile::clone), kFirstSlot);
    EXPECT_EQ(Slot(static_cast<Assign>(&Profile::operator=)), kFirstSlot + 1);
    EXPECT_EQ(Slot(&Profile::Export), kFirstSlot + 2);
    EXPECT_FALSE(IsVirtual(&Profile::ReadProfile));
}

TEST(Profile, InitEmptiesItsContainersInPlace)
{
    int deleted = 0;
    Profile profile;
    Fill(profile);
    profile.Cutouts->Add(new Counted<CIPC2581_Cutout>(deleted));
    const auto * const polygon = profile.Polygon;
    const auto * const cutouts = profile.Cutouts;
    profile.Init();
    EXPECT_EQ(profile.Polygon, polygon);
    EXPECT_EQ(profile.Cutouts, cutouts);
    EXPECT_EQ(deleted, 1);
    ExpectDefault(profile);
}

TEST(Profile, InitMakesMissingContainers)
{
    Profile profile;
    delete profile.Polygon;
    delete profile.Cutouts;
    profile.Polygon = nullptr;
    profile.Cutouts = nullptr;
    profile.Init();
    ExpectDefault(profile);
}

class NotedPolygon : public CIPC2581_Polygon {
public:
    explicit NotedPolygon(Texts & notes) : m_notes(notes) {}
    ~NotedPolygon() override { m_notes.emplace_back("polygon"); }

private:
    Texts & m_notes;
};

class NotedCutouts : public CIPC2581_DrawObjArray {
public:
    explicit NotedCutouts(Texts & notes) : m_notes(notes) {}
    ~NotedCutouts() override { m_notes.emplace_back("cutouts"); }

private:
    Texts & m_notes;
};

TEST(Profile, DeletesItsPolygonBeforeItsCutouts)
{
    Texts notes;
    {
        Profile profile;
        Replace(profile.Polygon, std::make_unique<NotedPolygon>(notes));
        Replace(profile.Cutouts, std::make_unique<NotedCutouts>(notes));
    }
    EXPECT_EQ(notes, (Texts{"polygon", "cutouts"}));
}

TEST(Profile, GoesWithoutItsParts)
{
    Texts notes;
    {
        Profile profile;
        Replace(profile.Polygon, std::make_unique<NotedPolygon>(notes));
        delete profile.Cutouts;
        profile.Cutouts = nullptr;
    }
    {
        Profile profile;
        Replace(profile.Cutouts, std::make_unique<NotedCutouts>(notes));
        delete profile.Polygon;
        profile.Polygon = nullptr;
    }
    EXPECT_EQ(notes, (Texts{"polygon", "cutouts"}));
}

TEST(Profile, CopiesHavePartsOfTheirOwn)
{
    int deleted = 0;
    Profile source;
    Fill(source);
    {
        const Profile copy(source);
        const std::unique_ptr<Profile> clone(source.clone());
        Profile target;
        target.Cutouts->Add(new Counted<CIPC2581_Cutout>(deleted));
        const auto * const cutouts = target.Cutouts;
        EXPECT_EQ(&(target = source), &target);
        EXPECT_EQ(target.Cutouts, cutouts);
        EXPECT_EQ(deleted, 1);
        for (const Profile * const one :
             {&copy, static_cast<const Profile *>(clone.get()), static_cast<const Profile *>(&target)}) {
            EXPECT_NE(one->Polygon, source.Polygon);
            EXPECT_EQ(one->Polygon->PolyBegin->GetPoint_X(), 1.0);
            EXPECT_EQ(one->Polygon->PolyStepArray->GetSize(), 1);
            ASSERT_EQ(one->Cutouts->GetSize(), 1);
            EXPECT_NE(one->Cutouts->GetAt(0), source.Cutouts->GetAt(0));
            EXPECT_EQ(one->Cutouts->GetAt(0)->DrawType, 23);
        }
    }
    EXPECT_EQ(Written(source), kFilled);
}

TEST(Profile, ACutoutBecomesAPlainShapeInACopy)
{
    Profile source;
    Fill(source);
    Profile copy(source);
    EXPECT_TRUE(IsA<CIPC2581_DrawObj>(copy.Cutouts->GetAt(0)));
    EXPECT_EQ(Exported(copy), (Export{0, Below(R"(
   <Profile>
      <Polygon>
         <PolyBegin x="1.000000" y="2.000000" />
         <PolyStepSegment x="3.000000" y="4.000000" />
      </Polygon>
)")}));
}

TEST(Profile, AssignsThePolygonThroughItsVirtualOperation)
{
    class Assigned : public CIPC2581_Polygon {
    public:
        using CIPC2581_Polygon::operator=;
        CIPC2581_Polygon & operator=(const CIPC2581_Polygon & other) override
        {
            ++assignments;
            return CIPC2581_Polygon::operator=(other);
        }
        int assignments = 0;
    };
    Profile source;
    Fill(source);
    Profile target;
    const auto * const polygon = Replace(target.Polygon, std::make_unique<Assigned>());
    target = source;
    EXPECT_EQ(target.Polygon, polygon);
    EXPECT_EQ(polygon->assignments, 1);
    EXPECT_EQ(polygon->PolyStepArray->GetSize(), 1);
}

TEST(Profile, AssignmentToItselfChangesNothing)
{
    Profile profile;
    Fill(profile);
    const Profile & same = profile;
    profile = same;
    EXPECT_EQ(Written(profile), kFilled);
}

TEST(Profile, ReadsItsPolygonAndItsCutouts)
{
    Profile profile;
    EXPECT_EQ(
        Read(profile, {"<Cutout>", R"(<PolyBegin x="5"/>)", "<Polygon>", R"(<PolyStepSegment x="6"/>)", "</Polygon>",
                       "</Cutout>", "<Polygon>", R"(<PolyBegin x="1"/>)", R"(<PolyStepSegment x="2"/>)", "</Polygon>",
                       "<Cutout>", "</Cutout>", "</Profile>", "left"}),
        Texts{"left"});
    EXPECT_EQ(profile.Polygon->PolyBegin->GetPoint_X(), 1.0);
    EXPECT_EQ(profile.Polygon->PolyStepArray->GetSize(), 1);
    ASSERT_EQ(profile.Cutouts->GetSize(), 2);
    EXPECT_EQ(CutoutAt(profile, 0).DrawType, 23);
    EXPECT_EQ(CutoutAt(profile, 0).PolyBegin->GetPoint_X(), 5.0);
    EXPECT_EQ(CutoutAt(profile, 0).PolyStepArray->GetSize(), 1);
    EXPECT_TRUE(CutoutAt(profile, 1).PolyStepArray->IsEmpty());
}

TEST(Profile, ASecondPolygonAddsToTheFirst)
{
    Profile profile;
    Read(profile, {"<Polygon>", R"(<PolyBegin x="1"/>)", R"(<PolyStepSegment x="2"/>)", "</Polygon>", "<Polygon>",
                   R"(<PolyBegin x="3"/>)", R"(<PolyStepSegment x="4"/>)", "</Polygon>", "</Profile>"});
    EXPECT_EQ(profile.Polygon->PolyBegin->GetPoint_X(), 3.0);
    EXPECT_EQ(profile.Polygon->PolyStepArray->GetSize(), 2);
}

TEST(Profile, ReadsItsPolygonThroughItsVirtualOperation)
{
    class Imported : public CIPC2581_Polygon {
    public:
        using CIPC2581_Polygon::Import;
        int Import(CStdioFile & /*file*/) override
        {
            ++imports;
            return 0;
        }
        int imports = 0;
    };
    Profile profile;
    const auto * const polygon = Replace(profile.Polygon, std::make_unique<Imported>());
    EXPECT_EQ(Read(profile, {"<Polygon>", "<Polygon>", "</Profile>", "left"}), Texts{"left"});
    EXPECT_EQ(polygon->imports, 2);
}

TEST(Profile, TestsForThePolygonBeforeTheCutout)
{
    Profile profile;
    Read(profile, {"<CutoutPolygon>", R"(<PolyStepSegment x="1"/>)", "</Polygon>", "</Profile>"});
    EXPECT_EQ(profile.Polygon->PolyStepArray->GetSize(), 1);
    EXPECT_TRUE(profile.Cutouts->IsEmpty());
}

TEST(Profile, ATestThatTheSlashTurnsAwayFallsThroughToTheEnd)
{
    for (const char * const closing : {"</ProfilePolygon>", R"(</ProfileCutout x="1">)"}) {
        Profile profile;
        EXPECT_EQ(Read(profile,
                       {"<Polygon/>", "</Polygon>", "<Cutout/>", "</Cutout>", R"(<Cutout/ x="1">)", closing, "left"}),
                  Texts{"left"})
            << closing;
        ExpectDefault(profile);
    }
}

TEST(Profile, IgnoresEmptyAndUnknownLines)
{
    Profile profile;
    EXPECT_EQ(Read(profile, {"", R"(<Xform rotation="90"/>)", R"(<PolyStepSegment x="1"/>)", "<polygon>", "< Cutout>",
                             "</Step>", "</profile>", "</Profile>", "left"}),
              Texts{"left"});
    ExpectDefault(profile);
}

TEST(Profile, ASelfClosedProfileReadsOnToTheNextEnd)
{
    CIPC2581_Ecad_CadData_Step step;
    Lines file({"<Profile />", R"(<Package name="P1">)", "<Polygon>", R"(<PolyStepSegment x="1"/>)", "</Polygon>",
                "</Package>", "</Profile>", R"(<Package name="P2">)", "</Package>", "</Step>"});
    Tokens tokens("<Step>");
    step.ReadStep(tokens, file, nullptr);
    EXPECT_EQ(step.Profile.Polygon->PolyStepArray->GetSize(), 1);
    ASSERT_EQ(step.PackageArray.GetSize(), 1);
    EXPECT_EQ(step.PackageArray.GetAt(0)->name, "P2");
}

const Texts kProfileLines = {"<Polygon>", R"(<PolyStepSegment x="1"/>)", "</Polygon>",
                             "<Cutout>",  R"(<PolyStepSegment x="1"/>)", "</Cutout>",
                             "</Profile>"};

TEST(Profile, EndsQuietlyAtTheEndOfTheFile)
{
    ForEachEndOfFile(kProfileLines, [](CStdioFile & file, std::size_t lines) {
        Profile profile;
        profile.ReadProfile(file);
        EXPECT_EQ(profile.Polygon->PolyStepArray->GetSize(), lines > 1 ? 1 : 0);
        EXPECT_EQ(profile.Cutouts->GetSize(), lines > 3 ? 1 : 0);
    });
}

TEST(Profile, ThrowsForALineOfBlanks)
{
    ExpectLineOfBlanksThrows(kProfileLines, [](CStdioFile & file) { Profile().ReadProfile(file); });
}

TEST(Profile, LosesTheCutoutInHandWithAnException)
{
    Profile profile;
    EXPECT_THROW(Read(profile, {"<Cutout>", "</Cutout>", "<Cutout>", R"(<PolyBegin x="1>)", "</Cutout>"}),
                 CInvalidArgException);
    EXPECT_EQ(profile.Cutouts->GetSize(), 1);
}

TEST(Profile, WritesItsPolygonAlsoWhenItIsEmpty)
{
    Profile profile;
    ExpectExport(profile, Below(R"(
   <Profile>
      <Polygon>
         <PolyBegin x="0.000000" y="0.000000" />
      </Polygon>
   </Profile>
)"));
}

TEST(Profile, WritesItsCutoutsBehindItsPolygon)
{
    Profile profile;
    Fill(profile);
    ExpectExport(profile, kFilled);
}

TEST(Profile, StopsAtTheFirstPartThatGivesZero)
{
    Profile profile;
    profile.Cutouts->Add(new Writing<CIPC2581_Cutout>("first"));
    profile.Cutouts->Add(new Writing<CIPC2581_Cutout>("second", 0));
    profile.Cutouts->Add(new Writing<CIPC2581_Cutout>("third"));
    Replace(profile.Polygon, std::make_unique<Writing<CIPC2581_Polygon>>("polygon"));
    EXPECT_EQ(Exported(profile), (Export{0, "   <Profile>\npolygon 1\nfirst 1\nsecond 1\n"}));
    Replace(profile.Polygon, std::make_unique<Writing<CIPC2581_Polygon>>("polygon", 0));
    EXPECT_EQ(Exported(profile), (Export{0, "   <Profile>\npolygon 1\n"}));
}

}  // namespace
