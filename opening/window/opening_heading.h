#pragma once

#include <QWidget>

class QLineEdit;

namespace chengheng {
class SearchBar;

/// Above the grid: whether it is only browsed, what its colours mean, and the search.
class OpeningHeading final : public QWidget {
    Q_OBJECT

  public:
    explicit OpeningHeading(QWidget* parent);

    void showMode(const char* text);
    SearchBar& searchBar() const { return *m_searchBar; }
    /// The grid comes before the fields here.
    void setTabOrderAfter(QWidget& grid);

  private:
    QLineEdit* m_mode;
    SearchBar* m_searchBar;
};

}  // namespace chengheng
