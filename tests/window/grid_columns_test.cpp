#include "screen/grid/grid_columns.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>
#include <QSettings>
#include <QTest>
#include <QTimer>
#include <array>
#include <functional>
#include <optional>

#include "screen/grid/CVCF1.h"
#include "screen/grid/grid_model.h"
#include "session/host_globals.h"
#include "tests/window/kept_windows.h"
#include "tests/window/typing.h"

namespace chengheng {
namespace {

constexpr std::array wideColumns{
    GridColumn{"级\n次", 4, CellAlignment::centre},
    GridColumn{"编码", 18},
    GridColumn{"名称", 34},
    GridColumn{"编号", 10, CellAlignment::number, true},
    GridColumn{"余额", 30, CellAlignment::number},
};
constexpr int level = 0;
constexpr int code = 1;
constexpr int name = 2;
constexpr int hiddenId = 3;
constexpr int amount = 4;

class Accounts final : public GridModel {
  public:
    Accounts() : GridModel(wideColumns) {}
    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : rows;
    }
    void readAnew(int count) {
        beginResetModel();
        rows = count;
        endResetModel();
    }
    void type(int row, const QString& figure) {
        typedRow = row;
        typed = figure;
        tellChanged(row);
    }

    int rows = 400;
    int longRow = -1;  ///< the one with a long name and a large figure
    int typedRow = -1;
    QString typed;

  protected:
    QString text(int row, int column) const override {
        if (column == level) return QStringLiteral("1");
        if (column == code) return QString::number(1000 + row);
        if (column == name)
            return row == longRow ? QStringLiteral("应收帐款坏帐准备及其他往来")
                                  : QStringLiteral("库存现金");
        if (row == typedRow) return typed;
        return row == longRow ? QStringLiteral("12,345,678,901,234.00")
                              : QStringLiteral("1,234.50");
    }
};

/// Acts in the menu that comes up next, and closes it.
void withMenu(std::function<void(QMenu&)> act) {
    QTimer::singleShot(0, qApp, [act = std::move(act)] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        act(*menu);
        menu->close();
    });
}

/// A grid as one of several windows has it.
struct OpenGrid {
    explicit OpenGrid(GridModel& model, int width = 700, CVCF1::Unit unit = CVCF1::Unit::row)
        : grid(QStringLiteral("科目"), unit) {
        grid.setGridModel(&model);
        grid.resize(width, 300);
        showActive(grid);
        grid.setFocus();
        settle();
    }
    ~OpenGrid() { grid.hide(); }
    OpenGrid(const OpenGrid&) = delete;
    OpenGrid& operator=(const OpenGrid&) = delete;
    static void settle() {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }
    int width(int column) const { return grid.columnWidth(column); }
    int sum() const { return grid.horizontalHeader()->length(); }
    int room() const { return grid.viewport()->width(); }
    bool isCut(int column, const QString& text) const {
        return grid.fontMetrics().horizontalAdvance(text) > width(column) - 6;
    }
    /// As a hand does at the right edge of a header.
    void drag(int column, int by) {
        QWidget& header = *grid.horizontalHeader()->viewport();
        const int right = grid.columnViewportPosition(column) + width(column) - 1;
        const QPoint edge(right, header.height() / 2);
        QTest::mousePress(&header, Qt::LeftButton, {}, edge);
        QTest::mouseMove(&header, edge + QPoint(by / 2, 0));
        QTest::mouseMove(&header, edge + QPoint(by, 0));
        QTest::mouseRelease(&header, Qt::LeftButton, {}, edge + QPoint(by, 0));
        settle();
    }
    /// Chooses what the headers offer.
    void choose(const QString& text) {
        withMenu([&](QMenu& menu) {
            for (QAction* action : menu.actions())
                if (action->text() == text && action->isEnabled()) action->trigger();
        });
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5),
                                grid.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(grid.horizontalHeader()->viewport(), &event);
        settle();
    }

    CVCF1 grid;
};

const QString anew = QStringLiteral("恢复默认列宽和窗口大小");

}  // namespace

TEST(GridColumns, FillTheWidthOfTheGridWhateverItIs) {
    Accounts model;
    OpenGrid open(model);
    for (const int width : {700, 1366, 520, 900}) {
        open.grid.resize(width, 300);
        OpenGrid::settle();
        EXPECT_EQ(open.sum(), open.room()) << width;
        EXPECT_EQ(open.grid.horizontalScrollBar()->maximum(), 0) << width;
    }
}

TEST(GridColumns, CutNothingWhereWhatTheyHoldHasRoom) {
    Accounts model;
    model.longRow = 7;
    OpenGrid open(model, 470);
    EXPECT_FALSE(open.isCut(amount, "12,345,678,901,234.00"));
    EXPECT_FALSE(open.isCut(name, "应收帐款坏帐准备及其他往来"));
    EXPECT_LE(open.sum(), open.room());
}

TEST(GridColumns, CutTheNameAndNotTheFigureWhereThereIsNoRoom) {
    Accounts model;
    model.longRow = 7;
    OpenGrid open(model, 330);
    EXPECT_FALSE(open.isCut(amount, "12,345,678,901,234.00"));
    EXPECT_FALSE(open.isCut(code, "1007"));
    EXPECT_TRUE(open.isCut(name, "应收帐款坏帐准备及其他往来"));
}

TEST(GridColumns, MakeRoomForALargeFigureOnceItComesIntoSight) {
    Accounts model;
    model.rows = 20'000;
    model.longRow = 5'077;
    OpenGrid open(model, 420);
    EXPECT_TRUE(open.isCut(amount, "12,345,678,901,234.00"));
    open.grid.setCurrentRow(5'080);
    OpenGrid::settle();
    EXPECT_FALSE(open.isCut(amount, "12,345,678,901,234.00"));
    EXPECT_LE(open.sum(), open.room());
}

TEST(GridColumns, MakeRoomForAFigureThatIsTyped) {
    Accounts model;
    OpenGrid open(model, 420);
    model.type(3, "98,765,432,109,876.00");
    OpenGrid::settle();
    EXPECT_FALSE(open.isCut(amount, "98,765,432,109,876.00"));
}

TEST(GridColumns, LookAtRowsThatWereReadAnew) {
    Accounts model;
    model.rows = 0;
    OpenGrid open(model, 420);
    model.longRow = 90;
    model.readAnew(101);
    OpenGrid::settle();
    EXPECT_FALSE(open.isCut(amount, "12,345,678,901,234.00"));
}

TEST(GridColumns, KeepTheWidthThatTheOperatorMade) {
    const KeptWindows kept;
    Accounts model;
    int dragged = 0;
    {
        OpenGrid open(model);
        open.drag(code, 45);
        dragged = open.width(code);
        open.grid.resize(1000, 300);
        OpenGrid::settle();
        EXPECT_EQ(open.width(code), dragged);
        EXPECT_EQ(open.sum(), open.room());
    }
    OpenGrid again(model);
    EXPECT_NEAR(again.width(code), dragged, 1);
    EXPECT_EQ(again.sum(), again.room());
}

TEST(GridColumns, AreKeptForEachOperatorApart) {
    const KeptWindows kept;
    Accounts model;
    int usual = 0;
    {
        const HostSession session({.logonUser = {.sUserName = "陈静"}});
        OpenGrid open(model);
        usual = open.width(code);
        open.drag(code, 45);
    }
    {
        const HostSession session({.logonUser = {.sUserName = "王刚"}});
        EXPECT_EQ(OpenGrid(model).width(code), usual);
    }
    const HostSession session({.logonUser = {.sUserName = "陈静"}});
    EXPECT_NEAR(OpenGrid(model).width(code), usual + 45, 2);
}

TEST(GridColumns, ArePutAwayAndBroughtBackByTheMenuOfTheHeaders) {
    const KeptWindows kept;
    Accounts model;
    {
        OpenGrid open(model);
        open.choose("编码");
        EXPECT_TRUE(open.grid.isColumnHidden(code));
        EXPECT_EQ(open.sum(), open.room());
    }
    OpenGrid again(model);
    EXPECT_TRUE(again.grid.isColumnHidden(code));
    again.choose("编码");
    EXPECT_FALSE(again.grid.isColumnHidden(code));
    EXPECT_EQ(again.sum(), again.room());
}

TEST(GridColumns, LeaveOneInSight) {
    Accounts model;
    OpenGrid open(model);
    for (const char* title : {"级次", "编码", "名称", "余额"}) open.choose(title);
    EXPECT_FALSE(open.grid.isColumnHidden(amount));
    EXPECT_TRUE(open.grid.isColumnHidden(name));
}

TEST(GridColumns, TakeFromADamagedFileOnlyWhatCanBe) {
    const KeptWindows kept;
    Accounts model;
    {
        OpenGrid open(model);
        open.drag(code, 45);
    }
    QSettings file(kept.file(), QSettings::IniFormat);
    ASSERT_FALSE(file.allKeys().isEmpty());
    for (const QString& key : file.allKeys()) {
        if (key.endsWith(QStringLiteral("/widths")))
            file.setValue(key,
                          QStringList{"编码", "2147483647", "名称", "-5", "余额", "x", "级次"});
        if (key.endsWith(QStringLiteral("/hidden")))
            file.setValue(key, QStringList{"级次", "编码", "名称", "余额", "没有"});
    }
    file.sync();
    OpenGrid open(model);
    EXPECT_FALSE(open.grid.isColumnHidden(amount)) << "one stays in sight";
    EXPECT_TRUE(open.grid.isColumnHidden(name));
    EXPECT_TRUE(open.grid.isColumnHidden(hiddenId));
    open.choose("编码");
    EXPECT_GT(open.width(code), 0);
    EXPECT_LE(open.width(code), 500 * open.grid.fontMetrics().horizontalAdvance('0'));
    open.choose(anew);
    EXPECT_EQ(open.sum(), open.room());
    EXPECT_FALSE(open.grid.isColumnHidden(name));
}

TEST(GridColumns, AreMeasuredAnewForASmallerFont) {
    Accounts model;
    model.longRow = 7;
    OpenGrid small(model, 330);
    const int usual = small.width(amount);
    QFont font = small.grid.font();
    const QFont before = font;
    font.setPointSize(2 * font.pointSize());
    small.grid.setFont(font);
    OpenGrid::settle();
    EXPECT_GT(small.width(amount), usual);
    small.grid.setFont(before);
    OpenGrid::settle();
    EXPECT_EQ(small.width(amount), usual);
}

TEST(GridColumns, StayWhereFiguresAreTyped) {
    Accounts model;
    OpenGrid open(model, 700, CVCF1::Unit::cell);
    open.choose("编码");
    EXPECT_FALSE(open.grid.isColumnHidden(code));
}

TEST(GridColumns, AreAsAtFirstAfterAReset) {
    const KeptWindows kept;
    Accounts model;
    {
        OpenGrid open(model);
        const int usual = open.width(code);
        open.drag(code, 45);
        open.choose("名称");
        open.choose(anew);
        EXPECT_EQ(open.width(code), usual);
        EXPECT_FALSE(open.grid.isColumnHidden(name));
        EXPECT_TRUE(open.grid.isColumnHidden(hiddenId));
    }
    OpenGrid again(model);
    EXPECT_FALSE(again.grid.isColumnHidden(name));
}

TEST(GridColumns, KeepTheOrderOfTheRows) {
    const KeptWindows kept;
    Accounts model;
    const auto offerOrder = [](CVCF1& grid) {
        grid.horizontalHeader()->setSortIndicatorShown(true);
        grid.horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    };
    {
        OpenGrid open(model);
        offerOrder(open.grid);
        open.grid.horizontalHeader()->setSortIndicator(amount, Qt::DescendingOrder);
    }
    CVCF1 again(QStringLiteral("科目"), CVCF1::Unit::row);
    again.setGridModel(&model);
    offerOrder(again);
    showActive(again);
    EXPECT_EQ(again.horizontalHeader()->sortIndicatorSection(), amount);
    EXPECT_EQ(again.horizontalHeader()->sortIndicatorOrder(), Qt::DescendingOrder);
}

TEST(GridColumns, ForgetEverythingWhereNothingIsKept) {
    Accounts model;
    {
        OpenGrid open(model);
        open.drag(code, 45);
    }
    const int usual = OpenGrid(model).width(code);
    EXPECT_EQ(OpenGrid(model).width(code), usual);
}

TEST(GridColumns, OfferTheirMenuByTheKeyboard) {
    Accounts model;
    OpenGrid open(model);
    QStringList texts;
    withMenu([&](QMenu& menu) {
        for (QAction* action : menu.actions())
            if (!action->isSeparator()) texts << action->text();
    });
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5),
                            open.grid.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(open.grid.viewport(), &event);
    EXPECT_EQ(texts, QStringList({"级次", "编码", "名称", "余额", anew}));
}

}  // namespace chengheng
