// The sheet is read anew in the middle of entry, because another workstation has changed the
// books: the operator goes on where the keyboard was, and no figure goes elsewhere.

#include <QScrollBar>
#include <QSignalSpy>

#include "tests/window/opening_fixture.h"

using namespace chengheng;

namespace {

constexpr int figures = 50;

std::string code(int base, int number) { return std::to_string(base + number); }

class OpeningReadAnewTest : public OpeningWindowTest {
  protected:
    void SetUp() override { make(); }
    /// 1405 with fifty accounts below it that keep quantity. While it has no rows itself, each
    /// edit below it reads anew.
    void addQuantityAccounts() {
        books->addAccounts({"1405"});
        for (int number = 1; number <= figures; ++number)
            books->addAccounts({code(140500, number)});
        books->books().run("UPDATE Code SET bAmount = 1, sUnit = '件' WHERE sCode LIKE '1405%'");
    }
    int rowOf(const std::string& wanted) const {
        for (int row = 0; row < window->grid().model()->rowCount(); ++row)
            if (window->cell(row, 0) == wanted) return row;
        return -1;
    }
    /// The quantity that is shown below the main line of an account.
    std::string quantity(const std::string& wanted) const {
        return window->cell(rowOf(wanted) + 1, opening);
    }
    void expectFiftyQuantities() {
        for (int number = 1; number <= figures; ++number)
            EXPECT_EQ(quantity(code(140500, number)), std::to_string(number) + ".00000");
        EXPECT_EQ(window->searchField().text(), "");
        EXPECT_EQ(window->focusWidget(), &window->grid());
        EXPECT_TRUE(messages().texts().empty());
        ASSERT_EQ(books->work().refresh(), Outcome::done);
        EXPECT_EQ(books->shown("1405", Measure::quantity), "1,275.00000");
    }
};

}  // namespace

TEST_F(OpeningReadAnewTest, TakesFiftyFiguresByKeysWhenEveryEditReadsAnew) {
    addQuantityAccounts();
    open();
    window->stand(rowOf("140501") + 1, opening);
    const QSignalSpy changes(window->grid().model(), &QAbstractItemModel::dataChanged);
    for (int number = 1; number <= figures; ++number) {
        window->type(std::to_string(number));
        window->press(Qt::Key_Return);
        window->press(Qt::Key_Return);
    }
    // Each tells the whole sheet as changed once.
    EXPECT_EQ(changes.count(), figures);
    expectFiftyQuantities();
}

TEST_F(OpeningReadAnewTest, TakesFiftyFiguresByKeysWhenEveryEditBringsNewLines) {
    addQuantityAccounts();
    open();
    window->stand(rowOf("140501") + 1, opening);
    const QSignalSpy resets(window->grid().model(), &QAbstractItemModel::modelReset);
    for (int number = 1; number <= figures; ++number) {
        books->addAccounts({code(1000, number)});
        window->type(std::to_string(number));
        window->press(number % 2 == 0 ? Qt::Key_Return : Qt::Key_Tab);
        const int next = rowOf(code(140500, std::min(number + 1, figures)));
        EXPECT_EQ(window->grid().currentRow(), number < figures ? next : next + 1) << number;
        EXPECT_EQ(window->focusWidget(), &window->grid()) << number;
        window->press(Qt::Key_Return);
    }
    EXPECT_EQ(resets.count(), figures);
    expectFiftyQuantities();
}

TEST_F(OpeningReadAnewTest, LeavesTheKeyboardToTheFieldThatAClickChose) {
    addQuantityAccounts();
    open();
    window->stand(rowOf("140501") + 1, opening);
    books->addAccounts({"1001"});
    window->type("7");
    QTest::mouseClick(&window->searchField(), Qt::LeftButton);
    EXPECT_EQ(quantity("140501"), "7.00000");
    EXPECT_EQ(window->focusWidget(), &window->searchField());
}

TEST_F(OpeningReadAnewTest, KeepsCellSelectionAndPlaceOnTheScreenWhenLinesCome) {
    addQuantityAccounts();
    open();
    window->stand(rowOf("140520"), opening);
    for (int step = 0; step < 3; ++step) window->press(Qt::Key_Down, Qt::ShiftModifier);
    const CVCF1& grid = window->grid();
    const int height = grid.rowViewportPosition(grid.currentRow());
    books->addAccounts({"1001", "1002", "1003"});
    window->choose("刷新");
    EXPECT_EQ(grid.currentRow(), rowOf("140520") + 3);
    EXPECT_EQ(grid.rowViewportPosition(grid.currentRow()), height);
    const auto selected = grid.selectionModel()->selection();
    ASSERT_EQ(selected.size(), 1);
    EXPECT_EQ(selected[0].top(), rowOf("140520"));
    EXPECT_EQ(selected[0].bottom(), rowOf("140520") + 3);
    EXPECT_EQ(window->focusWidget(), &grid);
}

TEST_F(OpeningReadAnewTest, StaysNearAnAccountThatIsGone) {
    books->addAccounts({"1001", "1002", "1003"});
    open();
    window->stand(1, opening);
    books->books().run("DELETE FROM Code WHERE sCode = '1002'");
    window->choose("刷新");
    EXPECT_EQ(window->grid().currentRow(), 1);
    window->stand(1, opening);
    books->books().run("DELETE FROM Code WHERE sCode = '1003'");
    window->choose("刷新");
    EXPECT_EQ(window->grid().currentRow(), 0);
    EXPECT_EQ(window->focusWidget(), &window->grid());
}

TEST_F(OpeningReadAnewTest, ComparesAFigureTypedAsItIsShownWithTheBooks) {
    addSomeAccounts();
    books->addRows("100201", 12, 100);
    open();
    OpeningWork other(messages());
    ASSERT_EQ(other.refresh(), Outcome::done);
    ASSERT_EQ(other.endEdit(2, opening, "200"), Outcome::done);
    window->stand(2, opening);
    EXPECT_EQ(window->cell(2, opening), "100.00");
    window->type("100");
    window->press(Qt::Key_Return);
    EXPECT_EQ(books->openings("100201"), allPeriods("100"));
    EXPECT_EQ(window->cell(2, opening), "100.00");
    EXPECT_EQ(window->grid().currentRow(), 3);
    EXPECT_EQ(window->focusWidget(), &window->grid());
}
