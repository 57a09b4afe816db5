#pragma once

#include <QWidget>
#include <string>

class QLabel;

namespace chengheng {
class SearchBar;

/// Above the grid of the chart: level lengths, number of accounts, and the search.
class ChartHeading final : public QWidget {
    Q_OBJECT

  public:
    explicit ChartHeading(QWidget* parent);

    void showFacts(const std::string& levelPattern, const std::string& count);
    SearchBar& searchBar() const { return *m_searchBar; }

  private:
    QLabel* m_levelLengths;
    QLabel* m_accountCount;
    SearchBar* m_searchBar;
};

}  // namespace chengheng
