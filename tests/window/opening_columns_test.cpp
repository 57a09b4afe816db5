#include <QHeaderView>

#include "screen/grid/frozen_columns.h"
#include "tests/window/opening_fixture.h"

using namespace chengheng;

namespace {

/// The columns of the sheet: which there are, and how wide.
class OpeningColumnsTest : public OpeningWindowTest {};

constexpr const char* bookTexts[] = {"科目编码", "科目名称", "借/贷", "币别/计量"};

std::vector<std::string> shownHeaders(const OpenOpenings& window) {
    std::vector<std::string> headers;
    for (int column = 0; column < window.grid().model()->columnCount(); ++column)
        if (!window.grid().isColumnHidden(column))
            headers.push_back(
                window.grid().model()->headerData(column, Qt::Horizontal).toString().toStdString());
    return headers;
}

}  // namespace

TEST_F(OpeningColumnsTest, ShowsFiveColumnsForBooksThatBeginInJanuary) {
    make();
    addSomeAccounts();
    open();
    Texts wanted(std::begin(bookTexts), std::end(bookTexts));
    wanted.push_back("期初余额");
    EXPECT_EQ(shownHeaders(*window), wanted);
    EXPECT_EQ(window->grid().model()->columnCount(), 13);
}

TEST_F(OpeningColumnsTest, ShowsYearStartAndMovementsForBooksThatBeginInMarch) {
    make(OpeningLayout::midYear);
    addSomeAccounts();
    open();
    Texts wanted(std::begin(bookTexts), std::end(bookTexts));
    for (const char* each : {"年初余额", "累计借方", "累计贷方", "期初余额"})
        wanted.push_back(each);
    EXPECT_EQ(shownHeaders(*window), wanted);
    EXPECT_EQ(window->grid().model()->columnCount(), 16);
    EXPECT_EQ(window->grid().currentIndex().column(), 4);
    window->press(Qt::Key_Down);
    EXPECT_EQ(window->label("account"), "1002 科目1002");
}

TEST_F(OpeningColumnsTest, ShowsAllColumnsOfTheMidYearSheetAndAllDigitsAtDoubleSize) {
    make(OpeningLayout::midYear);
    addSomeAccounts();
    typeLargeFigures("12345678901.23");
    open();
    for (const int width : {1350, 1000, 683}) {
        window->resize(width, 360);
        QCoreApplication::processEvents();
        EXPECT_EQ(window->width(), width);
        EXPECT_LE(window->grid().horizontalHeader()->length(), window->grid().viewport()->width());
        const int digits = window->grid().fontMetrics().horizontalAdvance("12,345,678,901.23");
        for (const int column : {4, 5, 6, 7})
            EXPECT_GT(window->grid().columnWidth(column), digits) << width << " " << column;
    }
}

TEST_F(OpeningColumnsTest, BringsBackTheUsualWidthsByTheMenu) {
    make();
    addSomeAccounts();
    open();
    const int usual = window->grid().columnWidth(1);
    window->grid().setColumnWidth(1, usual + 50);
    ASSERT_EQ(window->grid().columnWidth(1), usual + 50);
    window->choose("恢复默认列宽和窗口大小");
    EXPECT_EQ(window->grid().columnWidth(1), usual);
}

TEST_F(OpeningColumnsTest, KeepsCodeAndNameInSightWhileItIsScrolledSideways) {
    make(OpeningLayout::midYear);
    addSomeAccounts();
    typeLargeFigures("12345678901.23");
    open();
    window->resize(600, 500);
    window->stand(0, 7);
    const auto& frozen = *window->findChild<FrozenColumns*>();
    EXPECT_TRUE(frozen.isVisible());
    EXPECT_FALSE(frozen.isColumnHidden(1));
    EXPECT_TRUE(frozen.isColumnHidden(2));
}
