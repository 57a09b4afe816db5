#include <QSignalSpy>

#include "tests/window/opening_fixture.h"

using namespace chengheng;

namespace {

/// Which cells are announced as changed after a figure.
class OpeningRepaintTest : public FilledOpeningTest {};

/// The cells that a grid's model announces as changed while this lives: "2,4" for row and column.
class AnnouncedCells {
  public:
    explicit AnnouncedCells(const CVCF1& grid)
        : m_changes(grid.model(), &QAbstractItemModel::dataChanged),
          m_resets(grid.model(), &QAbstractItemModel::modelReset) {}

    std::vector<std::string> take() {
        std::vector<std::string> cells;
        for (const auto& change : m_changes) {
            const auto first = change[0].toModelIndex();
            const auto last = change[1].toModelIndex();
            for (int row = first.row(); row <= last.row(); ++row)
                for (int column = first.column(); column <= last.column(); ++column)
                    cells.push_back(std::to_string(row) + "," + std::to_string(column));
        }
        m_changes.clear();
        EXPECT_EQ(m_resets.count(), 0);
        return cells;
    }

  private:
    QSignalSpy m_changes;
    QSignalSpy m_resets;
};

}  // namespace

TEST_F(OpeningRepaintTest, RepaintsOnlyTheFigureAndTheSumsAboveIt) {
    open();
    AnnouncedCells announced(window->grid());
    window->type("5");
    window->press(Qt::Key_Return);
    EXPECT_EQ(announced.take(), Texts{"0,4"});
    window->type("300");
    window->press(Qt::Key_Return);
    EXPECT_EQ(announced.take(), (Texts{"1,4", "2,4"}));
    window->press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(announced.take(), (Texts{"1,4", "2,4"}));
    EXPECT_EQ(window->label("debits"), "借方合计:5.00");
    window->press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(announced.take(), (Texts{"1,4", "2,4"}));
    window->press(Qt::Key_Delete);
    EXPECT_EQ(announced.take(), (Texts{"1,4", "2,4"}));
    EXPECT_EQ(window->column(opening), (Texts{"5.00", "0.00", "0.00", "0.00", "0.00"}));
}

TEST_F(OpeningRepaintTest, RepaintsNothingForAFigureThatStaysAsItIsOrIsRefused) {
    open();
    AnnouncedCells announced(window->grid());
    window->type("0.00");
    window->press(Qt::Key_Return);
    window->type("99999999999999");
    window->press(Qt::Key_Return);
    window->press(Qt::Key_Escape);
    EXPECT_EQ(announced.take(), Texts{});
    EXPECT_EQ(window->column(opening), Texts(5, "0.00"));
}

TEST_F(OpeningRepaintTest, RepaintsTheOpeningBalanceThatFollowsAMovement) {
    make(OpeningLayout::midYear);
    addSomeAccounts();
    open();
    window->stand(2, 5);
    AnnouncedCells announced(window->grid());
    window->type("5");
    window->press(Qt::Key_Return);
    EXPECT_EQ(announced.take(), (Texts{"1,5", "1,7", "2,5", "2,7"}));
    EXPECT_EQ(window->cell(1, 7), "5.00");
}
