#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <functional>
#include <string>
#include <vector>

#include "accounts/chart_commands.h"
#include "accounts/window/CNbCwBursarDlg.h"
#include "data/lookups/CGetData.h"
#include "data/lookups/cached_records.h"
#include "host/screen/CVCF1.h"
#include "host/services/host_messages.h"
#include "tests/support/account_books.h"
#include "tests/window/next_modal.h"
#include "tests/window/typing.h"

namespace chengheng {

/// A chart of accounts whose inside a test can reach.
class OpenChart : public CNbCwBursarDlg {
  public:
    using CNbCwBursarDlg::CNbCwBursarDlg;
    using CNbCwBursarDlg::OnCommand;

    CVCF1& grid() const { return *findChild<CVCF1*>("chart"); }
    QTabBar& tabs() const { return *findChild<QTabBar*>(); }
    QLineEdit& searchField() const { return *findChild<QLineEdit*>("search"); }

    std::string cell(int row, int column) const {
        return grid().model()->index(row, column).data().toString().toStdString();
    }
    std::vector<std::string> column(int column) const {
        std::vector<std::string> texts;
        for (int row = 0; row < grid().model()->rowCount(); ++row)
            texts.push_back(cell(row, column));
        return texts;
    }
    std::string currentCode() const { return cell(grid().currentRow(), 1); }
    bool hasLabel(const QString& text) const {
        const auto labels = findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(), [&](const QLabel* label) {
            return label->isVisible() && label->text() == text;
        });
    }
    QAction* action(const QString& text) const {
        for (QAction* menu : findChild<QMenuBar*>()->actions())
            for (QAction* item : menu->menu()->actions())
                if (item->text() == text) return item;
        return nullptr;
    }
    bool isEnabled(const QString& text) const { return action(text)->isEnabled(); }
    /// Chooses a command of the menu and lets it run to its end.
    void choose(const QString& text) {
        action(text)->trigger();
        QCoreApplication::processEvents();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        // A closed dialog gives the keyboard back only when the event loop turns.
        if (!isActiveWindow()) showActive(*this);
        QTest::keyClick(focusWidget() ? focusWidget() : this, key, modifiers);
        QCoreApplication::processEvents();
    }
};

/// The chart window on books with the pattern 4222, the classes 资产 and 负债 and the currency
/// 美元; a recorded operator answers.
class ChartTest : public testing::Test {
  protected:
    void open() {
        window.emplace();
        showActive(*window);
    }
    /// A small chart on three levels.
    void addSomeAccounts() {
        books.add("1001", "库存现金");
        books.add("1002", "银行存款");
        books.add("100201", "工商银行");
        books.add("10020101", "人民币户");
        books.add("100202", "建设银行");
        books.add("2202", "应付帐款");
        change("100202", [](_CodeInfo& account) { account.byExchId = 1; });
        change("2202", [](_CodeInfo& account) {
            account.sType = "负债";
            account.sAssBook = "B";
            account.sHelp = "YFZK";
        });
    }
    void change(const std::string& code, const std::function<void(_CodeInfo&)>& how) {
        _CodeInfo account = books.account(code);
        how(account);
        books.edit(account);
    }
    std::vector<std::string> codes() const { return window->column(1); }

    using Texts = std::vector<std::string>;

    AccountBooks books{":memory:"};
    HostMessages installed{books.messages()};
    BookLookups lookups{g_lpszNbZwDBName};
    std::optional<OpenChart> window;
};

}  // namespace chengheng
