#include <fmt/format.h>

#include <QComboBox>
#include <map>

#include "tests/support/recording_printer.h"
#include "tests/window/chart_fixture.h"

using namespace chengheng;

namespace {

/// A key where the keyboard is in a window.
void key(QWidget& window, Qt::Key which, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(window.focusWidget() ? window.focusWidget() : &window, which, modifiers);
    QCoreApplication::processEvents();
}

void type(QWidget& window, const std::string& text) {
    typeText(window.focusWidget(), QString::fromStdString(text));
}

/// Forty accounts: four at the top, each with three below it, two of which have three more.
std::map<std::string, std::string> fortyAccounts() {
    std::map<std::string, std::string> accounts;
    for (const char* top : {"1001", "1002", "1122", "2202"}) {
        accounts[top] = fmt::format("总帐{}", top);
        for (int child = 1; child <= 3; ++child) {
            const std::string code = fmt::format("{}{:02}", top, child);
            accounts[code] = fmt::format("明细{}", code);
            for (int below = 1; child <= 2 && below <= 3; ++below)
                accounts[fmt::format("{}{:02}", code, below)] =
                    fmt::format("细目{}{}", code, below);
        }
    }
    return accounts;
}

}  // namespace

class ChartLifeTest : public ChartTest {
  protected:
    void SetUp() override {
        books.run("INSERT ZWPrintMain VALUES(36, '会计科目一览表', 9, 1)");
        books.run("INSERT ZWPrintSub VALUES(1, 36, '科目编码', 'sCode', 18)");
        open();
    }
    /// Runs what a key of the chart brings up.
    void with(Qt::Key which, Qt::KeyboardModifiers modifiers, std::function<void(QWidget&)> act) {
        const NextModal dialog(std::move(act));
        window->press(which, modifiers);
    }
    /// Types accounts into the add dialog, which stays open for them all.
    void addAll(const std::map<std::string, std::string>& accounts) {
        with(Qt::Key_N, Qt::ControlModifier, [&](QWidget& dialog) {
            for (const auto& [code, name] : accounts) {
                type(dialog, code);
                key(dialog, Qt::Key_Return);
                type(dialog, name);
                for (int field = 0; field < 3; ++field) key(dialog, Qt::Key_Return);
                key(dialog, Qt::Key_Return);
            }
            key(dialog, Qt::Key_Escape);
        });
    }
    void findCode(const char* code) {
        with(Qt::Key_S, Qt::ControlModifier, [&](QWidget& dialog) {
            type(dialog, code);
            key(dialog, Qt::Key_Return);
        });
        QTest::keyRelease(&window->grid(), Qt::Key_Return);
    }
    void expectSound() { EXPECT_EQ(books.faults(), Texts{}); }

    RecordingPrinter printer;
    HostReportPrinter host{printer};
};

TEST_F(ChartLifeTest, GoesFromAnEmptyChartToFortyAccountsByKeysAlone) {
    const auto accounts = fortyAccounts();
    ASSERT_EQ(accounts.size(), 40);
    addAll(accounts);
    EXPECT_EQ(books.messages().texts(), Texts{});
    Texts expected;
    for (const auto& [code, name] : accounts) expected.push_back(code);
    EXPECT_EQ(codes(), expected);
    EXPECT_EQ(books.account("2202").sType, "负债");
    EXPECT_EQ(books.account("22020203").sType, "负债");
    EXPECT_EQ(books.account("100203").bEnd, 1);
    EXPECT_EQ(books.account("1002").bEnd, 0);
    expectSound();
}

TEST_F(ChartLifeTest, CopiesModifiesFindsDeletesDesignatesAndPrintsWhatItHolds) {
    addAll(fortyAccounts());
    findCode("112203");
    EXPECT_EQ(window->currentCode(), "112203");
    with(Qt::Key_I, Qt::ControlModifier, [](QWidget& dialog) {
        for (int field = 0; field < 5; ++field) key(dialog, Qt::Key_Return);
        key(dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(window->currentCode(), "112204");
    EXPECT_EQ(books.account("112204").sName, "明细112203");

    with(Qt::Key_Return, {}, [](QWidget& dialog) {
        key(dialog, Qt::Key_Return);
        dialog.findChild<QLineEdit*>("sName")->selectAll();
        type(dialog, "华东客户");
        for (int field = 0; field < 4; ++field) key(dialog, Qt::Key_Return);
    });
    EXPECT_EQ(window->cell(window->grid().currentRow(), 2), "  华东客户");

    findCode("22020101");
    books.messages().willAnswer(Answer::ok);
    window->press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(window->currentCode(), "22020102");
    EXPECT_FALSE(books.hasAccount("22020101"));

    books.messages().willAnswer(Answer::ok);
    const NextModal designation([](QWidget& dialog) {
        const auto lists = dialog.findChildren<QComboBox*>();
        QTest::keyClick(lists[0], Qt::Key_Down);
        QTest::keyClick(lists[1], Qt::Key_Down);
        QTest::keyClick(lists[1], Qt::Key_Down);
        key(dialog, Qt::Key_Return);
    });
    window->choose("指定科目");
    EXPECT_EQ(books.account("10010101").bCash, 1);
    EXPECT_EQ(books.account("10020101").sAssBook, "RE");

    const auto accept = [](QWidget& range) { key(range, Qt::Key_Return); };
    with(Qt::Key_P, Qt::ControlModifier, accept);
    const NextModal range(accept);
    window->choose("打印预览");
    ASSERT_EQ(printer.outputs.size(), 2);
    EXPECT_EQ(printer.outputs[0].kind, ReportOutput::print);
    EXPECT_EQ(printer.outputs[0].report.rowCount(), 40);
    EXPECT_EQ(printer.outputs[1].kind, ReportOutput::preview);
    EXPECT_EQ(printer.outputs[1].report.rowCount(), 40);
    expectSound();
}
