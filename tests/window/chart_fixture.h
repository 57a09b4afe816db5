#pragma once

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <functional>
#include <string>
#include <vector>

#include "accounts/screen/chart_commands.h"
#include "accounts/window/CNbCwBursarDlg.h"
#include "data/lookups/CGetData.h"
#include "data/lookups/cached_records.h"
#include "data/tables/accounts.h"
#include "session/host_messages.h"
#include "tests/support/account_books.h"
#include "tests/window/grid_window.h"
#include "tests/window/next_modal.h"

namespace chengheng {

/// A chart of accounts whose inside a test can reach.
class OpenChart : public GridWindow<CNbCwBursarDlg> {
  public:
    using CNbCwBursarDlg::OnCommand;
    using GridWindow::GridWindow;

    QTabBar& tabs() const { return *findChild<QTabBar*>(); }
    std::string currentCode() const { return cell(grid().currentRow(), 1); }
    bool hasLabel(const QString& text) const {
        const auto labels = findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(), [&](const QLabel* label) {
            return label->isVisible() && label->text() == text;
        });
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
