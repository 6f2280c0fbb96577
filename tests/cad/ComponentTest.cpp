#include "ipc2581/cad/Component.h"

#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/draw/Xform.h"
#include "tests/support/Derived.h"
#include "tests/support/Files.h"
#include "tests/support/Models.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

using Component = CIPC2581_Ecad_CadData_Step_Component;
using ComponentArray = CIPC2581_Ecad_CadData_Step_ComponentArray;

// The texts of a component, in their order.
Texts TextsOf(const Component & part)
{
    return {Str(part.RefDes),   Str(part.PackageRef), Str(part.Part),
            Str(part.LayerRef), Str(part.MountType),  Str(part.Standoff)};
}

void Fill(Component & part)
{
    part.RefDes = "R1";
    part.PackageRef = "P1";
    part.Part = "X";
    part.LayerRef = "TOP";
    part.MountType = "SMT";
    part.Spare = 5;
    part.Height = 1.5;
    part.Standoff = "0.1";
    part.Xform->Rotation = 90;
    part.Xform->Mirror = 1;
    part.Location.SetData(3, 4.5);
}

void ExpectDefaults(const Component & part)
{
    EXPECT_EQ(TextsOf(part), (Texts{"", "", "", "", "OTHER", ""}));
    EXPECT_EQ(part.Spare, 0);
    EXPECT_EQ(part.Height, 0);
    ASSERT_NE(part.Xform, nullptr);
    EXPECT_EQ(part.Xform->Rotation, 0);
    EXPECT_EQ(part.Xform->Mirror, 0);
    EXPECT_EQ(part.Location.GetX(), 0);
    EXPECT_EQ(part.Location.GetY(), 0);
}

// Rotation, mirror and location that ComponetAdd makes of these lines, in a component with 7, 1 and 8, 9.
class Read {
public:
    explicit Read(std::string_view bytes) : m_lines(bytes)
    {
        part.Xform->Rotation = 7;
        part.Xform->Mirror = 1;
        part.Location.SetData(8, 9);
        part.ComponetAdd(m_lines.File());
    }

    std::vector<double> Placement()
    {
        return {part.Xform->Rotation, static_cast<double>(part.Xform->Mirror), part.Location.GetX(),
                part.Location.GetY()};
    }
    Texts Rest() { return m_lines.Rest(); }

    Component part;

private:
    Lines m_lines;
};

using Numbers = std::vector<double>;

TEST(Component, HasItsDefaults)
{
    ExpectDefaults(Component());
}

TEST(Component, HoldsItsFieldsInOrder)
{
    const Component part;
    const auto at = [](const auto & member) { return static_cast<const void *>(&member); };
    EXPECT_LT(at(part.RefDes), at(part.PackageRef));
    EXPECT_LT(at(part.PackageRef), at(part.Part));
    EXPECT_LT(at(part.Part), at(part.LayerRef));
    EXPECT_LT(at(part.LayerRef), at(part.MountType));
    EXPECT_LT(at(part.MountType), at(part.Spare));
    EXPECT_LT(at(part.Spare), at(part.Height));
    EXPECT_LT(at(part.Height), at(part.Standoff));
    EXPECT_LT(at(part.Standoff), at(part.Xform));
    EXPECT_LT(at(part.Xform), at(part.Location));
    static_assert(sizeof(part.Spare) == 8);
}

TEST(Component, HasItsOperationsInOrder)
{
    ExpectExportIsItsOneOperation<Component>();
}

TEST(Component, InitGivesTheDefaultsAndANewTransform)
{
    Component part;
    Fill(part);
    const std::unique_ptr<CIPC2581_Xform> former(part.Xform);
    part.Init();
    EXPECT_NE(part.Xform, former.get());
    EXPECT_EQ(former->Rotation, 90);
    ExpectDefaults(part);
}

TEST(Component, ACopySharesTheTransform)
{
    Component source;
    Fill(source);
    Component copy(source);
    EXPECT_EQ(TextsOf(copy), (Texts{"R1", "P1", "X", "TOP", "SMT", "0.1"}));
    EXPECT_EQ(copy.Spare, 5);
    EXPECT_EQ(copy.Height, 1.5);
    EXPECT_EQ(copy.Xform, source.Xform);
    EXPECT_EQ(copy.Location.GetX(), 3);
    EXPECT_EQ(copy.Location.GetY(), 4.5);
    copy.Xform = nullptr;
}

TEST(Component, AnAssignmentSharesTheTransformAndDropsItsOwn)
{
    Component source;
    Fill(source);
    Component target;
    const std::unique_ptr<CIPC2581_Xform> former(target.Xform);
    former->Rotation = 45;
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(TextsOf(target), (Texts{"R1", "P1", "X", "TOP", "SMT", "0.1"}));
    EXPECT_EQ(target.Spare, 5);
    EXPECT_EQ(target.Height, 1.5);
    EXPECT_EQ(target.Xform, source.Xform);
    EXPECT_EQ(target.Location.GetY(), 4.5);
    EXPECT_EQ(former->Rotation, 45);
    target.Xform = nullptr;
}

class CountedXform : public CIPC2581_Xform {
public:
    explicit CountedXform(int & deleted) : m_deleted(deleted) {}
    CountedXform(const CountedXform &) = delete;
    CountedXform & operator=(const CountedXform &) = delete;
    ~CountedXform() override { ++m_deleted; }

private:
    int & m_deleted;
};

TEST(Component, DeletesItsTransform)
{
    int deleted = 0;
    {
        Component part;
        delete part.Xform;
        part.Xform = new CountedXform(deleted);
    }
    EXPECT_EQ(deleted, 1);
    Component without;
    delete without.Xform;
    without.Xform = nullptr;
}

TEST(Component, ReadsTransformAndLocation)
{
    Read read(Below(R"(
<Xform rotation="90" mirror="TRUE"/>
<Location x="1.5" y="-2"/>
</Component>
<Behind/>
)"));
    EXPECT_EQ(read.Placement(), (Numbers{90, 1, 1.5, -2}));
    EXPECT_EQ(read.Rest(), Texts{"<Behind/>"});
}

TEST(Component, ReadsWhatALineSays)
{
    const std::vector<std::pair<std::string_view, Numbers>> rows = {
        {R"(<Xform rotation="90"/>)", {90, 1, 8, 9}},
        {R"(<Xform mirror="TRUE"/>)", {7, 1, 8, 9}},
        {R"(<Xform mirror="FALSE"/>)", {7, 0, 8, 9}},
        {R"(<Xform mirror="true"/>)", {7, 0, 8, 9}},
        {R"(<Xform mirror="1" rotation="-1.5e1" >)", {-15, 0, 8, 9}},
        {R"(<Xform mirror="xTRUEx" rotation="z" >)", {0, 1, 8, 9}},
        {R"(<Xform xOffset="5" scale="2" Rotation="3" rotation ="4">)", {7, 1, 8, 9}},
        {R"(<Xform mirror=rotation="5" >)", {0, 1, 8, 9}},
        {R"(<Xform rotation="1" rotation="2" >)", {2, 1, 8, 9}},
        {R"(</Xform rotation="4">)", {4, 1, 8, 9}},
        {R"(<xXformx_rotation="6" >)", {6, 1, 8, 9}},
        {"<Xform>", {7, 1, 8, 9}},
        {"<Xform/>", {7, 1, 8, 9}},
        {R"(<Location x="1"/>)", {7, 1, 1, 9}},
        {R"(<Location y="2"/>)", {7, 1, 8, 2}},
        {R"(<Location y="2" x="z"/>)", {7, 1, 0, 2}},
        {R"(<Location X="1" y ="2">)", {7, 1, 8, 9}},
        {R"(<Location y=x="1" >)", {7, 1, 0, 9}},
        {R"(<Location max="3" >)", {7, 1, 3, 9}},
        {R"(<xLocationx_y="3" >)", {7, 1, 8, 3}},
        {R"(</Location x="1">)", {7, 1, 8, 9}},
        {R"(<Location/x y="1" >)", {7, 1, 8, 9}},
        {"<Location/>", {7, 1, 8, 9}},
        {R"(<LocationXform x="1" rotation="2" >)", {2, 1, 8, 9}},
        {R"(<location x="1">)", {7, 1, 8, 9}},
        {R"(<a Xform rotation="1">)", {7, 1, 8, 9}},
        {"", {7, 1, 8, 9}},
    };
    for (const auto & [line, placement] : rows) {
        EXPECT_EQ(Read(std::string(line) + "\n</Component>\n").Placement(), placement) << line;
    }
}

TEST(Component, AnAbsentMirrorStaysZero)
{
    Lines lines({R"(<Xform rotation="90"/>)", "</Component>"});
    Component part;
    part.ComponetAdd(lines.File());
    EXPECT_EQ(part.Xform->Mirror, 0);
    EXPECT_EQ(part.Xform->Rotation, 90);
}

TEST(Component, EndsAtItsClosingWordAnywhereInTheFirstToken)
{
    for (const std::string_view line :
         {"</Component>", "</ComponentX y>", "<x/Component>", R"(</ComponentLocation x="1">)", "   </Component>"}) {
        Read read(Joined({line, R"(<Location x="1"/>)"}));
        EXPECT_EQ(read.Placement(), (Numbers{7, 1, 8, 9})) << line;
        EXPECT_EQ(read.Rest(), Texts{R"(<Location x="1"/>)"}) << line;
    }
}

TEST(Component, AnXformWordComesInFrontOfTheClosingWord)
{
    Read read(Joined({R"(</ComponentXform rotation="1">)", R"(<Location x="2"/>)"}));
    EXPECT_EQ(read.Placement(), (Numbers{1, 1, 2, 9}));
}

TEST(Component, RunsOnOverTheLinesOfOthers)
{
    Read read(Below(R"(
<Component refDes="R2">
</Step>
</LogicalNet>
<Location x="1" y="2"/>
</Component>
<Behind/>
)"));
    EXPECT_EQ(read.Placement(), (Numbers{7, 1, 1, 2}));
    EXPECT_EQ(read.part.RefDes, "");
    EXPECT_EQ(read.Rest(), Texts{"<Behind/>"});
}

TEST(Component, TheEndOfTheFileEndsIt)
{
    EXPECT_EQ(Read("<Xform rotation=\"1\"/>\n<Location x=\"2\"").Placement(), (Numbers{1, 1, 2, 9}));
    EXPECT_EQ(Read("").Placement(), (Numbers{7, 1, 8, 9}));
}

TEST(Component, ALineOfBlanksThrows)
{
    Lines lines({R"(<Location x="1"/>)", "  ", "</Component>"});
    Component part;
    EXPECT_THROW(part.ComponetAdd(lines.File()), CInvalidArgException);
    EXPECT_EQ(part.Location.GetX(), 1);
}

TEST(Component, ACutValueThrows)
{
    for (const std::string_view line :
         {R"(<Xform rotation="1)", R"(<Xform mirror="TRUE)", R"(<Location x="1)", "<Location y="}) {
        Lines lines({line});
        Component part;
        EXPECT_THROW(part.ComponetAdd(lines.File()), CInvalidArgException) << line;
    }
}

TEST(Component, WritesItsLines)
{
    Component part;
    Fill(part);
    EXPECT_EQ(Exported(part, 0), (Export{1, Below(R"(
   <Component refDes="R1" packageRef="P1" layerRef="TOP" part="X" mountType="SMT" standoff="0.1" height="0.0">
      <Xform rotation="90.000000"/>
      <Location x="3.000000" y="4.500000"/>
   </Component>
)")}));
}

TEST(Component, WritesItsDefaults)
{
    Component part;
    EXPECT_EQ(Exported(part, 2), (Export{1, Below(R"(
         <Component refDes="" packageRef="" layerRef="" part="" mountType="OTHER" standoff="" height="0.0">
            <Xform rotation="0.000000"/>
            <Location x="0.000000" y="0.000000"/>
         </Component>
)")}));
}

class RefusingXform : public CIPC2581_Xform {
public:
    int Export(CStdioFile & file, int level) override
    {
        file.WriteString(("xform " + std::to_string(level) + "\n").c_str());
        return 0;
    }
};

TEST(Component, StopsAtATransformThatRefuses)
{
    Component part;
    delete part.Xform;
    part.Xform = new RefusingXform;
    EXPECT_EQ(
        Exported(part, 0),
        (Export{
            0,
            Joined(
                {R"(   <Component refDes="" packageRef="" layerRef="" part="" mountType="OTHER" standoff="" height="0.0">)",
                 "xform 1"})}));
}

TEST(ComponentArray, IsAnOwningArrayWithAnExport)
{
    EXPECT_TRUE((std::is_base_of_v<CExPtrArray<Component *, Component *>, ComponentArray>));
    EXPECT_EQ(Slot(&ComponentArray::Export), 8u);
    EXPECT_EQ(Slot(&Behind<ComponentArray>::Next), 9u);
}

TEST(ComponentArray, FindsTheFirstOfAName)
{
    ComponentArray parts;
    EXPECT_EQ(parts.pGetIPCComponentWithName("R1"), nullptr);
    for (const char * name : {"R1", "R2", "R2", ""}) {
        auto * part = new Component;
        part->RefDes = name;
        parts.Add(part);
    }
    EXPECT_EQ(parts.pGetIPCComponentWithName("R1"), parts.GetAt(0));
    EXPECT_EQ(parts.pGetIPCComponentWithName("R2"), parts.GetAt(1));
    EXPECT_EQ(parts.pGetIPCComponentWithName(""), parts.GetAt(3));
    for (const char * name : {"r1", "R", "R11", " R1"}) {
        EXPECT_EQ(parts.pGetIPCComponentWithName(name), nullptr) << name;
    }
}

class MarkedComponent : public Component {
public:
    MarkedComponent(int result, int & deleted) : m_result(result), m_deleted(deleted) {}
    MarkedComponent(const MarkedComponent &) = delete;
    MarkedComponent & operator=(const MarkedComponent &) = delete;
    ~MarkedComponent() override { ++m_deleted; }
    int Export(CStdioFile & file, int level) override
    {
        file.WriteString(("part " + std::to_string(level) + "\n").c_str());
        return m_result;
    }

private:
    int m_result;
    int & m_deleted;
};

TEST(ComponentArray, WritesAtItsOwnLevelUpToTheFirstThatRefuses)
{
    int deleted = 0;
    {
        ComponentArray parts;
        EXPECT_EQ(Exported(parts, 3), (Export{1, ""}));
        parts.Add(new MarkedComponent(1, deleted));
        EXPECT_EQ(Exported(parts, 3), (Export{1, "part 3\n"}));
        parts.Add(new MarkedComponent(0, deleted));
        parts.Add(new MarkedComponent(1, deleted));
        EXPECT_EQ(Exported(parts, 3), (Export{0, "part 3\npart 3\n"}));
    }
    EXPECT_EQ(deleted, 3);
}

}  // namespace
