#pragma once

#include <string>

#include "accounts/window/chart_model.h"
#include "screen/grid/CVCF1.h"

namespace chengheng {

/// The chart of accounts in its grid: the accounts of a tab in code order, and the one that the
/// operator stands on.
class ChartGrid final : public CVCF1 {
    Q_OBJECT

  public:
    /// The screen outlives the grid.
    ChartGrid(ChartScreen& screen, QWidget* parent);

    const ChartScreen& screen() const { return m_screen; }
    /// What the text in the search field matches; search() looks for it.
    const ChartSearch& matches() const { return m_search; }
    void search(std::string_view text) { m_model.search(text); }

    /// Lists the accounts of a tab, the first one being current.
    Status list(std::string_view category);
    /// Lists the same tab anew and stays at its place.
    Status listAnew();
    /// Shows an account that was added or modified, if the tab lists it.
    void place(const _CodeInfo& account);
    void removeCurrent();

    /// Empty on the blank line of an empty list.
    std::string currentCode() const { return m_screen.codeAt(currentRow()); }
    /// Of the current account, which is there.
    const ListedAccount& currentAccount() const { return m_screen.row(currentRow()); }
    void goToCode(const std::string& code) { setCurrentRow(m_screen.rowOfCode(code)); }

  signals:
    /// There are more, fewer or other accounts.
    void listed();

  private:
    /// Stays at a row as long as there are so many.
    void stayAt(int row);

    ChartScreen& m_screen;
    ChartSearch m_search;
    ChartModel m_model;
};

}  // namespace chengheng
