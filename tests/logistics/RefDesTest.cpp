#include "ipc2581/logistics/RefDes.h"

#include <type_traits>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/logistics/BomItem.h"
#include "tests/support/Derived.h"
#include "tests/support/Slots.h"

namespace {

using namespace ipc2581::tests;

TEST(BomRefDes, HasItsDefaults)
{
    const CIPC2581_Bom_BomItem_RefDes refDes;
    EXPECT_EQ(refDes.name, "");
    EXPECT_TRUE(refDes.populate);
    EXPECT_LT(static_cast<const void *>(&refDes.name), static_cast<const void *>(&refDes.populate));
}

TEST(BomRefDes, HasAVirtualDestructorOnlyAndNoBase)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<CIPC2581_Bom_BomItem_RefDes>);
    EXPECT_FALSE((std::is_base_of_v<CIPC2581_XmlDataAdd_Function, CIPC2581_Bom_BomItem_RefDes>));
    EXPECT_EQ(Slot(&Behind<CIPC2581_Bom_BomItem_RefDes>::Next), 2u);
}

TEST(BomRefDes, CopiesByValue)
{
    CIPC2581_Bom_BomItem_RefDes source;
    source.name = "R1";
    source.populate = false;
    const CIPC2581_Bom_BomItem_RefDes copy(source);
    CIPC2581_Bom_BomItem_RefDes assigned;
    EXPECT_EQ(&(assigned = source), &assigned);
    source.name = "R2";
    EXPECT_EQ(copy.name, "R1");
    EXPECT_FALSE(copy.populate);
    EXPECT_EQ(assigned.name, "R1");
    EXPECT_FALSE(assigned.populate);
}

TEST(BomRefDesArray, GoesWithItsItem)
{
    int deleted = 0;
    {
        CIPC2581_Bom_BomItem item;
        item.m_arrRefDes.Add(new Counted<CIPC2581_Bom_BomItem_RefDes>(deleted));
    }
    EXPECT_EQ(deleted, 1);
}

}  // namespace
