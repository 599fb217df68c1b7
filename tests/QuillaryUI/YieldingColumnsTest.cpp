#include "QuillaryUI/Look/YieldingColumns.h"

#include <QHeaderView>
#include <QStandardItemModel>
#include <QTableView>

#include <gtest/gtest.h>

#include <vector>

namespace Quillary {
namespace {

TEST(YieldingColumnsTest, hidesTheLeastImportantFirst)
{
    QStandardItemModel model(1, 4);
    QTableView table;
    table.setModel(&model);
    table.verticalHeader()->hide();
    table.horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    for (const int column : {1, 2, 3}) {
        table.setColumnWidth(column, 100);
    }
    table.setSortingEnabled(true);
    table.sortByColumn(0, Qt::AscendingOrder);
    new YieldingColumns(table, 0, 150, {2, 3});
    table.show();
    const auto hiddenAt = [&table](int width) {
        table.resize(width, 100);
        std::vector<int> hidden;
        for (int column = 0; column < 4; ++column) {
            if (table.isColumnHidden(column)) {
                hidden.push_back(column);
            }
        }
        return hidden;
    };
    EXPECT_EQ(hiddenAt(600), std::vector<int>());
    EXPECT_EQ(hiddenAt(400), std::vector({2}));
    EXPECT_EQ(hiddenAt(300), std::vector({2, 3}));
    EXPECT_EQ(hiddenAt(100), std::vector({2, 3})); // the rest stays, however narrow
    EXPECT_EQ(hiddenAt(600), std::vector<int>());
    table.setColumnWidth(2, 250);
    EXPECT_EQ(hiddenAt(500), std::vector({2}));
    EXPECT_EQ(hiddenAt(620), std::vector<int>()); // it comes back as wide as it was
    EXPECT_EQ(table.columnWidth(2), 250);
    table.sortByColumn(2, Qt::AscendingOrder);
    EXPECT_EQ(hiddenAt(520), std::vector({3})); // one must see what it is sorted by
}

} // namespace
} // namespace Quillary
