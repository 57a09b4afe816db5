#pragma once

#include "accounts/screen/chart_screen.h"
#include "accounts/screen/chart_search.h"
#include "data/tables/accounts.h"
#include "screen/grid/grid_model.h"

namespace chengheng {

/// The chart of accounts in its grid. A list without accounts has one blank line.
class ChartModel final : public GridModel {
    Q_OBJECT

  public:
    /// Both must outlive the model.
    ChartModel(ChartScreen& screen, ChartSearch& search);

    int rowCount(const QModelIndex& parent = {}) const override;

    /// Lists the accounts of a tab.
    Status load(std::string_view category);
    /// Puts an account that was added or modified where it belongs among those listed. Gives
    /// its row; -1 when it is not one of them (any more).
    int place(const _CodeInfo& account);
    void remove(int row);
    /// Marks what matches the text in the search field.
    void search(std::string_view text);

  protected:
    QString text(int row, int column) const override;
    QColor background(int row, int column) const override;

  private:
    void insertRow(int row, const _CodeInfo& account);

    ChartScreen& m_screen;
    ChartSearch& m_search;
};

}  // namespace chengheng
