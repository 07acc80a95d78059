#include "platform/outline_list.h"
#include "support/qt_text.h"

#include <gtest/gtest.h>

namespace merov::platform
{

TEST(OutlineListTest, RowsWithIndentZeroAreHiddenAndDeeperOnesStandFurtherRight)
{
    OutlineList list;
    for (const int indent : {1, 0, 2, 3})
        list.AddItem("Dist", indent);
    EXPECT_EQ(list.Count(), 4);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_TRUE(list.isRowHidden(1) && !list.isRowHidden(0));
    list.SetListText(1, "Theoretical = 100.0");
    EXPECT_TRUE(list.isRowHidden(1)) << "a new text leaves the indent";
    list.SetIndent(1, 2);
    EXPECT_FALSE(list.isRowHidden(1));
    EXPECT_EQ(list.ListText(1), "Theoretical = 100.0");
    EXPECT_EQ(list.Indent(1), 2);

    const auto blanks = [&](int row) { return list.item(row)->text().indexOf('D'); };
    EXPECT_EQ(blanks(0), 0);
    EXPECT_GT(blanks(2), 0);
    EXPECT_EQ(blanks(3), 2 * blanks(2));
    list.SetIndent(2, 0);
    EXPECT_TRUE(list.isRowHidden(2));
}

} // namespace merov::platform
