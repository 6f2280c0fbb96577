#include "ipc2581/cad/CadHeader.h"

#include <type_traits>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "tests/support/Derived.h"
#include "tests/support/Slots.h"

namespace {

using namespace ipc2581::tests;

TEST(CadHeader, IsEmptyAtFirst)
{
    CIPC2581_Ecad_CadHeader header;
    EXPECT_EQ(header.units, "");
    EXPECT_EQ(header.GetUnit(), "");
}

TEST(CadHeader, HasAVirtualDestructorOnly)
{
    EXPECT_TRUE((std::is_base_of_v<CIPC2581_XmlDataAdd_Function, CIPC2581_Ecad_CadHeader>));
    EXPECT_TRUE(std::has_virtual_destructor_v<CIPC2581_Ecad_CadHeader>);
    EXPECT_EQ(Slot(&Behind<CIPC2581_Ecad_CadHeader>::Next), 2u);
}

TEST(CadHeader, GivesACopyOfItsUnit)
{
    CIPC2581_Ecad_CadHeader header;
    header.SetUnit("INCH");
    EXPECT_EQ(header.units, "INCH");
    CString unit = header.GetUnit();
    unit.SetAt(0, 'X');
    EXPECT_EQ(header.GetUnit(), "INCH");
}

TEST(CadHeader, CopiesItsUnit)
{
    CIPC2581_Ecad_CadHeader source;
    source.SetUnit("INCH");
    const CIPC2581_Ecad_CadHeader copy(source);
    CIPC2581_Ecad_CadHeader assigned;
    EXPECT_EQ(&(assigned = source), &assigned);
    source.SetUnit("MM");
    EXPECT_EQ(copy.units, "INCH");
    EXPECT_EQ(assigned.units, "INCH");
}

}  // namespace
