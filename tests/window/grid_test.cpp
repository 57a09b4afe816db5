#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>
#include <array>

#include "screen/grid/CVCF1.h"
#include "screen/grid/grid_model.h"
#include "tests/window/typing.h"

using namespace chengheng;

namespace {

constexpr std::array columns{
    GridColumn{"级\n次", 4, CellAlignment::centre},
    GridColumn{"科目编码", 18},
    GridColumn{"编号", 10, CellAlignment::number, true},
    GridColumn{"期初余额", 30, CellAlignment::number},
};

/// Rows that are made up when they are asked for.
class NumberedRows final : public GridModel {
  public:
    explicit NumberedRows(int rows) : GridModel(columns), m_rows(rows) {}

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : m_rows;
    }
    void insertAt(int row) {
        beginInsertRows({}, row, row);
        ++m_rows;
        endInsertRows();
    }
    mutable int askedTexts = 0;

  protected:
    QString text(int row, int column) const override {
        ++askedTexts;
        if (column == 0) return "1";
        if (column == 1) return QString::number(1000 + row) + (row == 2 ? "\t乙\n" : "");
        return column == 2 ? "7" : "1,234.50";
    }
    QColor background(int row, int) const override { return row == 1 ? QColor(Qt::red) : QColor(); }

  private:
    int m_rows;
};

struct GridTest : testing::Test {
    explicit GridTest(int rows = 40) : model(rows) {
        grid.setGridModel(&model);
        grid.resize(640, 300);
        showActive(grid);
        grid.setFocus();
    }
    QString clipboard() const { return QApplication::clipboard()->text(); }
    QPoint middleOf(int row, int column) const {
        return grid.visualRect(model.index(row, column)).center();
    }

    NumberedRows model;
    CVCF1 grid{"会计科目", CVCF1::Unit::row};
};

}  // namespace

TEST_F(GridTest, ShowsHeadersWidthsAndAlignmentsOfItsColumns) {
    EXPECT_EQ(model.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(), "级\n次");
    EXPECT_EQ(model.headerData(3, Qt::Horizontal, Qt::DisplayRole).toString(), "期初余额");
    EXPECT_GT(grid.columnWidth(3), grid.columnWidth(1));
    EXPECT_GT(grid.columnWidth(1), grid.columnWidth(0));
    EXPECT_FALSE(grid.isColumnHidden(1));
    EXPECT_TRUE(grid.isColumnHidden(2));
    const auto alignment = [&](int column) {
        return Qt::Alignment(model.index(0, column).data(Qt::TextAlignmentRole).toInt());
    };
    EXPECT_TRUE(alignment(1) & Qt::AlignLeft);
    EXPECT_TRUE(alignment(3) & Qt::AlignRight);
    EXPECT_TRUE(alignment(0) & Qt::AlignHCenter);
    EXPECT_EQ(grid.accessibleName(), "会计科目");
}

TEST_F(GridTest, ColoursACellOnlyWhereTheModelSaysSo) {
    EXPECT_EQ(model.index(1, 1).data(Qt::BackgroundRole).value<QColor>(), QColor(Qt::red));
    EXPECT_FALSE(model.index(0, 1).data(Qt::BackgroundRole).isValid());
    EXPECT_FALSE(model.index(0, 1).data(Qt::ForegroundRole).isValid());
}

TEST_F(GridTest, WalksWholeRowsByKeyboard) {
    grid.setCurrentRow(0);
    QTest::keyClick(&grid, Qt::Key_Down);
    QTest::keyClick(&grid, Qt::Key_Down);
    EXPECT_EQ(grid.currentRow(), 2);
    EXPECT_EQ(grid.selectionModel()->selectedRows().size(), 1);
    QTest::keyClick(&grid, Qt::Key_End);
    EXPECT_EQ(grid.currentRow(), 39);
    EXPECT_TRUE(grid.viewport()->rect().contains(middleOf(39, 1)));
    QTest::keyClick(&grid, Qt::Key_Home);
    EXPECT_EQ(grid.currentRow(), 0);
    QTest::keyClick(&grid, Qt::Key_PageDown);
    EXPECT_GT(grid.currentRow(), 3);
}

TEST_F(GridTest, SelectsTheRowThatIsClicked) {
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, middleOf(3, 3));
    EXPECT_EQ(grid.currentRow(), 3);
    EXPECT_TRUE(grid.selectionModel()->isRowSelected(3));
    EXPECT_EQ(grid.selectionModel()->selectedRows().size(), 1);
}

TEST_F(GridTest, CopiesTheVisibleCellsOfTheSelectedRows) {
    grid.setCurrentRow(1);
    QTest::keyClick(&grid, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "1\t1001\t1,234.50\n1\t1002 乙 \t1,234.50\n");
}

TEST_F(GridTest, ReportsKeysAndTextButKeepsEnterFromTheWindow) {
    QSignalSpy down(&grid, &CVCF1::keyDown);
    QSignalSpy up(&grid, &CVCF1::keyUp);
    QSignalSpy typed(&grid, &CVCF1::textTyped);
    QTest::keyClick(&grid, Qt::Key_Return);
    QTest::keyClick(&grid, Qt::Key_7);
    ASSERT_EQ(down.size(), 2);
    EXPECT_EQ(down[0][0].toInt(), Qt::Key_Return);
    ASSERT_EQ(up.size(), 2);
    ASSERT_EQ(typed.size(), 1);
    EXPECT_EQ(typed[0][0].toString(), "7");
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(&grid, &enter);
    EXPECT_TRUE(enter.isAccepted());
}

TEST_F(GridTest, HasRowsOfOneHeightThatFollowTheFont) {
    const int before = grid.rowHeight(0);
    EXPECT_EQ(grid.rowHeight(17), before);
    QFont large = grid.font();
    large.setPointSize(large.pointSize() * 2);
    grid.setFont(large);
    EXPECT_GT(grid.rowHeight(0), before);
    EXPECT_EQ(grid.rowHeight(17), grid.rowHeight(0));
}

TEST_F(GridTest, KeepsTheCurrentRowWhenOneIsInsertedAboveIt) {
    grid.setCurrentRow(5);
    model.insertAt(2);
    EXPECT_EQ(grid.currentRow(), 6);
    EXPECT_TRUE(grid.selectionModel()->isRowSelected(6));
}

TEST_F(GridTest, IgnoresARowThatIsNotThere) {
    grid.setCurrentRow(3);
    grid.setCurrentRow(40);
    grid.setCurrentRow(-1);
    EXPECT_EQ(grid.currentRow(), 3);
}

TEST(GridOfCells, SelectsSingleCellsAndKeepsTheColumn) {
    NumberedRows model(10);
    CVCF1 grid("期初余额", CVCF1::Unit::cell);
    grid.setGridModel(&model);
    showActive(grid);
    grid.setCurrentIndex(model.index(2, 3));
    EXPECT_EQ(grid.selectionModel()->selectedIndexes().size(), 1);
    grid.setCurrentRow(6);
    EXPECT_EQ(grid.currentIndex(), model.index(6, 3));
    EXPECT_EQ(grid.selectedText(), "1,234.50\n");
}

TEST(GridOfCells, ExtendsWhatIsSelectedToTheEndOfTheSheet) {
    NumberedRows model(10);
    CVCF1 grid("期初余额", CVCF1::Unit::cell);
    grid.setGridModel(&model);
    showActive(grid);
    grid.setCurrentIndex(model.index(7, 1));
    QTest::keyClick(&grid, Qt::Key_End, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(grid.currentIndex(), model.index(9, 3));
    EXPECT_EQ(grid.selectedText(), "1007\t1,234.50\n1008\t1,234.50\n1009\t1,234.50\n");
    QTest::keyClick(&grid, Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(grid.selectedText(), "1\n");
}

TEST(LargeGrid, AsksOnlyForTheRowsInSight) {
    NumberedRows model(50'000);
    CVCF1 grid("会计科目", CVCF1::Unit::row);
    grid.resize(640, 300);
    grid.setGridModel(&model);
    showActive(grid);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&grid));
    model.askedTexts = 0;
    grid.setCurrentRow(49'999);
    grid.grab();
    EXPECT_GT(model.askedTexts, 0);
    EXPECT_LT(model.askedTexts, 1'000);
    model.askedTexts = 0;
    model.insertAt(49'990);
    grid.grab();
    EXPECT_LT(model.askedTexts, 1'000);
}
