#include "screen/grid/frozen_columns.h"

#include <gtest/gtest.h>

#include <QHeaderView>
#include <QScrollBar>
#include <QTest>
#include <array>
#include <memory>

#include "screen/grid/CVCF1.h"
#include "screen/grid/grid_model.h"
#include "tests/window/typing.h"

using namespace chengheng;

namespace {

constexpr std::array frozenColumns{
    GridColumn{"科目编码", 10},
    GridColumn{"科目名称", 14},
    GridColumn{"年初余额", 30, CellAlignment::number},
    GridColumn{"累计借方", 30, CellAlignment::number},
    GridColumn{"编号", 10, CellAlignment::text, true},
    GridColumn{"累计贷方", 30, CellAlignment::number},
    GridColumn{"期初余额", 30, CellAlignment::number},
};

class NamedCells final : public GridModel {
  public:
    NamedCells() : GridModel(frozenColumns) {}
    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : 200;
    }

  protected:
    QString text(int row, int column) const override {
        return QStringLiteral("%1").arg(row) + (column < 2 ? "" : "123,456,789,012.00");
    }
};

struct FrozenColumnsTest : testing::Test {
    FrozenColumnsTest() {
        grid.setGridModel(&model);
        grid.setFrozenColumns(2);
        grid.resize(620, 300);
        showActive(grid);
        grid.setFocus();
    }
    FrozenColumns& frozen() const { return *grid.findChild<FrozenColumns*>(); }
    void stand(int row, int column) { grid.setCurrentIndex(model.index(row, column)); }
    int sideways() const { return grid.horizontalScrollBar()->value(); }
    int twoColumns() const { return grid.columnWidth(0) + grid.columnWidth(1); }

    NamedCells model;
    CVCF1 grid{"期初余额", CVCF1::Unit::cell};
};

}  // namespace

TEST_F(FrozenColumnsTest, ShowThemselvesOnlyWhileTheGridIsScrolledSideways) {
    EXPECT_TRUE(frozen().isHidden());
    stand(0, 6);
    ASSERT_FALSE(frozen().isHidden());
    EXPECT_EQ(frozen().width(), twoColumns());
    EXPECT_EQ(frozen().columnWidth(1), grid.columnWidth(1));
    EXPECT_FALSE(frozen().isColumnHidden(1));
    for (int column = 2; column < model.columnCount(); ++column)
        EXPECT_TRUE(frozen().isColumnHidden(column)) << column;
    stand(0, 2);
    EXPECT_EQ(sideways(), 0);
    EXPECT_TRUE(frozen().isHidden());
}

TEST_F(FrozenColumnsTest, NeverCoverTheCurrentCell) {
    for (const int column : {6, 5, 3, 2, 3, 5, 6, 3}) {
        stand(0, column);
        EXPECT_GE(grid.columnViewportPosition(column), frozen().coveredWidth()) << column;
    }
}

TEST_F(FrozenColumnsTest, StandBesideTheSameRows) {
    stand(0, 6);
    stand(150, 6);
    EXPECT_EQ(frozen().rowViewportPosition(150), grid.rowViewportPosition(150));
    EXPECT_EQ(frozen().rowHeight(3), grid.rowHeight(3));
    EXPECT_EQ(frozen().horizontalHeader()->height(), grid.horizontalHeader()->height());
    EXPECT_EQ(frozen().viewport()->mapToGlobal(QPoint()).y(),
              grid.viewport()->mapToGlobal(QPoint()).y());
    frozen().verticalScrollBar()->setValue(20);
    EXPECT_EQ(grid.verticalScrollBar()->value(), 20);
}

TEST_F(FrozenColumnsTest, SelectInTheGridAndKeepItWhereItIs) {
    stand(0, 6);
    const int before = sideways();
    ASSERT_GT(before, 0);
    const QPoint name = frozen().visualRect(model.index(3, 1)).center();
    QTest::mouseClick(frozen().viewport(), Qt::LeftButton, {}, name);
    EXPECT_EQ(grid.currentIndex(), model.index(3, 1));
    EXPECT_EQ(sideways(), before);
    EXPECT_TRUE(grid.hasFocus());
    QTest::keyClick(&grid, Qt::Key_Right);
    EXPECT_EQ(grid.currentIndex(), model.index(3, 2));
    EXPECT_EQ(sideways(), 0);
}

TEST_F(FrozenColumnsTest, AreAsWideAsAnOperatorMakesThem) {
    stand(0, 6);
    frozen().setColumnWidth(0, 130);
    EXPECT_EQ(grid.columnWidth(0), 130);
    EXPECT_EQ(frozen().width(), twoColumns());
}

TEST_F(FrozenColumnsTest, AskForTheMenuOfTheGrid) {
    grid.setContextMenuPolicy(Qt::CustomContextMenu);
    stand(0, 6);
    QPoint asked;
    QObject::connect(&grid, &QWidget::customContextMenuRequested, &grid,
                     [&](QPoint position) { asked = position; });
    const QPoint name = frozen().visualRect(model.index(3, 1)).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, name, frozen().viewport()->mapToGlobal(name));
    QApplication::sendEvent(frozen().viewport(), &event);
    EXPECT_EQ(grid.indexAt(asked).row(), 3);
}

TEST_F(FrozenColumnsTest, StayAwayFromAGridThatHasNoRoomForThem) {
    grid.resize(twoColumns() + 60, 300);
    stand(0, 6);
    EXPECT_TRUE(frozen().isHidden());
    EXPECT_GT(sideways(), 0);
}

TEST(FrozenColumnsOfAGrid, OutliveItsModelOnTheScreen) {
    auto model = std::make_unique<NamedCells>();
    CVCF1 grid("期初余额", CVCF1::Unit::cell);
    grid.setGridModel(model.get());
    grid.setFrozenColumns(2);
    grid.resize(620, 300);
    showActive(grid);
    grid.setCurrentIndex(model->index(0, 6));
    model.reset();
    grid.hide();
    EXPECT_EQ(grid.model(), nullptr);
}
