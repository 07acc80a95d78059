#include "platform/outline_list.h"

#include <gtest/gtest.h>

namespace merov::platform
{
namespace
{

TEST(OutlineList, RowsWithIndentZeroAreKeptButHidden)
{
    OutlineList list;
    list.AddItem("GC Distance", 1);
    list.AddItem("Theoretical", 0);
    list.AddItem("Latitude", 2);
    EXPECT_EQ(list.Count(), 3);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_FALSE(list.isRowHidden(0));
    EXPECT_TRUE(list.isRowHidden(1));

    list.SetListText(1, "Theoretical = 100.0");
    EXPECT_TRUE(list.isRowHidden(1)) << "a new text leaves the indent";
    list.SetIndent(1, 2);
    EXPECT_FALSE(list.isRowHidden(1));
    EXPECT_EQ(list.ListText(1), "Theoretical = 100.0");
    EXPECT_EQ(list.Indent(1), 2);
    list.SetIndent(2, 0);
    EXPECT_TRUE(list.isRowHidden(2));

    list.SetListIndex(1);
    EXPECT_EQ(list.ListIndex(), 1);
    list.Clear();
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.ListIndex(), -1);
}

TEST(OutlineList, DeeperRowsStandFurtherRight)
{
    OutlineList list;
    for (const int indent : {1, 2, 3})
        list.AddItem("Dist", indent);
    const auto blanks = [&](int row) { return list.item(row)->text().indexOf('D'); };
    EXPECT_EQ(blanks(0), 0);
    EXPECT_GT(blanks(1), 0);
    EXPECT_EQ(blanks(2), 2 * blanks(1));
}

} // namespace
} // namespace merov::platform
