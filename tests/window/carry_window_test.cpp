#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>

#include "report/output/report_printer.h"
#include "screen/grid/CVCF1.h"
#include "tests/support/carry_books.h"
#include "tests/support/environment.h"
#include "tests/support/recording_printer.h"
#include "tests/window/opening_fixture.h"

namespace carry_windows {
namespace {

using namespace chengheng;
using testing::ElementsAre;
using testing::HasSubstr;

/// The opening window on books beside those of the year before.
class CarryWindowTest : public OpeningWindowTest {
  protected:
    void SetUp() override {
        installed.emplace(carried.messages());
        carried.now().addAccounts({"1001", "1002"});
        carried.now().addCredit("2202");
        carried.mirror();
        carried.close("1001", 7, 1, 3);
        carried.close("2202", 5, 0, 0);
    }
    RecordingMessages& messages() { return carried.messages(); }

    struct Seen {
        QString title;
        std::vector<std::string> lines;
        std::vector<std::string> rows;  ///< cells with blanks between
        std::vector<std::string> red;   ///< codes of those in the way
    };
    static Seen seen(QWidget& shownWindow) {
        Seen seen;
        seen.title = shownWindow.windowTitle();
        for (const auto* label : shownWindow.findChildren<QLabel*>())
            if (!label->text().isEmpty()) seen.lines.push_back(label->text().toStdString());
        const QAbstractItemModel& rows = *shownWindow.findChild<CVCF1*>()->model();
        for (int row = 0; row < rows.rowCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < rows.columnCount(); ++column)
                cells.append(rows.index(row, column).data().toString());
            seen.rows.push_back(cells.join('|').toStdString());
            if (rows.index(row, 0).data(Qt::ForegroundRole).isValid())
                seen.red.push_back(cells.first().toStdString());
        }
        return seen;
    }
    static QAbstractButton* button(QWidget& shownWindow, const char* text) {
        for (auto* each : shownWindow.findChildren<QAbstractButton*>())
            if (each->text().startsWith(QString::fromUtf8(text)) && each->isVisible()) return each;
        return nullptr;
    }
    /// Chooses a command whose window is looked at, printed and closed with the keyboard.
    Seen look(const char* command) {
        Seen found;
        NextModal hands([&](QWidget& shownWindow) {
            found = seen(shownWindow);
            EXPECT_EQ(button(shownWindow, "补转"), nullptr);
            button(shownWindow, "打印预览")->click();
            EXPECT_TRUE(qobject_cast<QPushButton*>(button(shownWindow, "关闭"))->isDefault());
            QTest::keyClick(&shownWindow, Qt::Key_Escape);
        });
        window->choose(command);
        return found;
    }

    CarryBooks carried{EngineCase{"sqliteFile"}};
    const EnvironmentSetting home{"CHENGHENG_HOME", carried.registry().folder()};
    RecordingPrinter printer;
    const HostReportPrinter printers{printer};
};

TEST_F(CarryWindowTest, ShowsWhatWouldBeCarriedAndThatItBalances) {
    open();
    const Seen found = look("结转预览...");
    EXPECT_EQ(found.title, "结转上年余额预览");
    EXPECT_THAT(found.rows,
                ElementsAre("1001|科目1001|借|5.00|0.00", "2202|科目2202|贷|5.00|0.00"));
    EXPECT_THAT(found.lines,
                testing::IsSupersetOf({"将结转 2 个科目,借方合计 5.00,贷方合计 5.00。",
                                       "资产 = 借 5.00", "负债 = 贷 5.00", "试算结果平衡",
                                       "可以结转:请使用“结转上年余额”。"}));
    EXPECT_TRUE(messages().texts().empty());
    EXPECT_EQ(carried.now().rows(), Texts{});
    ASSERT_EQ(printer.outputs.size(), 1U);
    const Report& report = printer.outputs[0].report;
    EXPECT_EQ(report.title, "结转上年余额预览");
    EXPECT_EQ(report.rowCount(), 4U) << "with the totals";
    EXPECT_EQ(report.lines.size(), 4U);
    window.reset();
}

TEST_F(CarryWindowTest, ShowsWhatStandsInTheWayWhereItsCodeStands) {
    carried.now().addAccounts({"1003"});
    carried.last(formatSql("UPDATE Code SET bDirect = 1 WHERE sCode = '2202'"));
    open();
    const Seen found = look("结转预览...");
    EXPECT_THAT(found.rows,
                ElementsAre("1001|科目1001|借|5.00|0.00|", "1003|科目1003||||上年没有此科目。",
                            "2202|科目2202|贷|5.00|0.00|余额方向上年为借,本年为贷。"));
    EXPECT_THAT(found.red, ElementsAre("1003", "2202"));
    EXPECT_THAT(found.lines, testing::Contains("有 2 处不能结转,原因见说明,排除后才能结转。"));
    window.reset();
}

TEST_F(CarryWindowTest, ProvesThatBothYearsAgreeAndNamesWhereTheyDoNot) {
    open();
    window->choose("结转上年余额");
    Seen found = look("核对上年余额...");
    EXPECT_EQ(found.title, "上年期末与本年期初核对表");
    EXPECT_THAT(found.lines, ElementsAre("本年期初余额与上年期末余额一致。"));
    EXPECT_TRUE(found.rows.empty());
    carried.last("UPDATE AccSum SET mCredit = 4 WHERE mDebet = 1");
    found = look("核对上年余额...");
    EXPECT_THAT(found.rows, ElementsAre("1001|科目1001|金额|4.00|5.00|-1.00"));
    carried.now().addVoucher();
    window->choose("刷新");
    EXPECT_FALSE(window->isEnabled("补转上年差额..."));
    EXPECT_EQ(look("核对上年余额...").rows, found.rows) << "at any time";
    window.reset();
}

TEST_F(CarryWindowTest, RepeatsWhatDiffersAfterAQuestionAndTakesItBack) {
    open();
    EXPECT_FALSE(window->isEnabled("补转上年差额..."));
    window->choose("结转上年余额");
    EXPECT_TRUE(window->isEnabled("补转上年差额..."));
    EXPECT_FALSE(window->isEnabled("结转上年余额"));
    carried.last("UPDATE AccSum SET mCredit = 4 WHERE mDebet = 1");
    const auto repeat = [this](Answer answer) {
        messages().willAnswer(answer);
        NextModal hands([&](QWidget& shownWindow) {
            EXPECT_THAT(seen(shownWindow).rows, ElementsAre("1001|科目1001|金额|4.00|5.00|-1.00"));
            button(shownWindow, "补转")->click();
            if (answer == Answer::no) QTest::keyClick(&shownWindow, Qt::Key_Escape);
        });
        window->choose("补转上年差额...");
    };
    repeat(Answer::no);
    EXPECT_EQ(window->cell(0, opening), "5.00");
    repeat(Answer::yes);
    EXPECT_THAT(messages().questions().back().text, HasSubstr("可以补转 1 处差额,共 1 个科目。\n"));
    EXPECT_EQ(window->cell(0, opening), "4.00");
    EXPECT_EQ(window->label("remark"), "已补转 1 处差额,共 1 个科目。");
    EXPECT_EQ(carried.now().openings("1001"), allPeriods("4"));
    window->press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(window->cell(0, opening), "5.00");
    EXPECT_EQ(carried.now().openings("1001"), allPeriods("5"));
    window.reset();
}

TEST_F(CarryWindowTest, SaysThatThereIsNothingToRepeat) {
    open();
    window->choose("结转上年余额");
    window->choose("补转上年差额...");
    EXPECT_EQ(messages().onlyNotice().text, "本年期初余额与上年期末余额一致。");
    messages().forget();
    carried.list(carried.location(), "");
    for (const char* command : {"补转上年差额...", "核对上年余额...", "结转预览..."}) {
        messages().forget();
        window->choose(command);
        EXPECT_EQ(messages().onlyNotice().text, "上年帐套不存在") << command;
    }
    window.reset();
}

}  // namespace
}  // namespace carry_windows
