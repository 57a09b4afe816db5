#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "accounts/chart/listed_account.h"
#include "base/values/status.h"
#include "data/tables/accounts.h"

namespace chengheng {

/// What the chart of accounts window shows, without the window: the tabs of the account
/// classes, the accounts of one of them in code order, and where among them one is found.
/// Reads the open set of books (g_pDB).
class ChartScreen {
  public:
    /// Tabs beside 全部; further classes have none.
    static constexpr std::size_t mostClasses = 5;

    /// Reads the account classes; missing when there is none.
    Status readClasses();
    /// 全部 and the classes, in the order of the list.
    const std::vector<std::string>& tabs() const { return m_tabs; }

    /// Reads the accounts of a tab. Not done the list is empty.
    Status load(std::string_view category);
    /// The tab whose accounts are listed.
    const std::string& category() const { return m_category; }

    int count() const { return static_cast<int>(m_rows.size()); }
    bool isEmpty() const { return m_rows.empty(); }
    const ListedAccount& row(int row) const { return m_rows[static_cast<std::size_t>(row)]; }
    /// What is read in a cell; empty on the blank line of an empty list.
    std::string text(int row, ListColumn column) const;
    std::string countText() const;
    /// The code of a row; empty on the blank line of an empty list.
    std::string codeAt(int row) const;

    /// The names of the accounts above a row and its own, the top first: "银行存款 / 工商银行".
    /// Accounts above that the tab does not list are left out.
    std::string path(int row) const;

    /// The row of a code, or -1.
    int rowOfCode(std::string_view code) const;
    int rowOfId(int id) const;
    /// The first row whose code or name is the text.
    std::optional<int> find(std::string_view text) const;

    /// Whether the account stands among those of the current tab.
    bool isListed(const _CodeInfo& account) const;
    /// Where an account of this code stands or would stand.
    int placeOf(std::string_view code) const;
    void insert(int row, const _CodeInfo& account);
    void replace(int row, const _CodeInfo& account);
    void remove(int row);

    /// Whether a command works on an account and is therefore disabled while there is none.
    static bool needsAccount(int command);

  private:
    void nameCurrency(int currencyId);

    std::vector<std::string> m_tabs;
    std::string m_category;
    std::vector<ListedAccount> m_rows;
    std::map<int, std::string> m_currencies;
};

}  // namespace chengheng
