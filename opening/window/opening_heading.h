#pragma once

#include <QWidget>

#include "opening/sheet/opening_account.h"

class QLineEdit;

namespace chengheng {
class SearchBar;

/// Above the grid: whether it is only browsed, what its colours mean, and the search.
class OpeningHeading final : public QWidget {
    Q_OBJECT

  public:
    explicit OpeningHeading(QWidget* parent);

    void showMode(const char* text);
    /// Only books that begin mid-year have figures that may disagree.
    void showLayout(OpeningLayout layout);
    SearchBar& searchBar() const { return *m_searchBar; }
    /// The grid comes before the fields here.
    void setTabOrderAfter(QWidget& grid);

  private:
    QLineEdit* m_mode;
    QWidget* m_disagreeing;  ///< the sample of figures that disagree, with its text
    SearchBar* m_searchBar;
};

}  // namespace chengheng
