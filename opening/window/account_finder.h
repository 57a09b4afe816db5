#pragma once

#include <QObject>

#include "opening/window/opening_grid.h"
#include "screen/search_bar.h"

namespace chengheng {

/// Goes to the accounts whose code or name is typed into the search bar, or into the grid where
/// no figure stands.
class AccountFinder final : public QObject {
    Q_OBJECT

  public:
    AccountFinder(SearchBar& bar, OpeningGrid& grid, const OpeningWork& work);

  private:
    void goToMatch(std::optional<std::size_t> line);
    std::string wanted() const { return m_bar.text().toStdString(); }

    SearchBar& m_bar;
    OpeningGrid& m_grid;
    const OpeningWork& m_work;
};

}  // namespace chengheng
