#pragma once

#include <QObject>

#include "accounts/window/chart_grid.h"
#include "screen/search_bar.h"

namespace chengheng {

/// Goes to the accounts that match what is typed into the search bar, or into the grid, and says
/// which of the matches the operator stands on.
class ChartFinder final : public QObject {
    Q_OBJECT

  public:
    ChartFinder(SearchBar& bar, ChartGrid& grid);

    /// The operator stands elsewhere: that nothing was found is said no longer.
    void showResult();

  private:
    void showMatches();
    void goTo(int row);

    SearchBar& m_bar;
    ChartGrid& m_grid;
};

}  // namespace chengheng
