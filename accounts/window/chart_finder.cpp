#include "accounts/window/chart_finder.h"

#include <fmt/format.h>

#include <algorithm>

#include "accounts/screen/chart_texts.h"
#include "screen/shown.h"

namespace chengheng {

ChartFinder::ChartFinder(SearchBar& bar, ChartGrid& grid) : m_bar(bar), m_grid(grid) {
    connect(&grid, &ChartGrid::textTyped, &bar, &SearchBar::takeOver);
    connect(&grid, &ChartGrid::listed, this, &ChartFinder::showMatches);
    connect(&bar, &SearchBar::textChanged, this, [this](const QString& text) {
        m_grid.search(text.toStdString());
        goTo(m_grid.matches().matchFrom(std::max(0, m_grid.currentRow())));
    });
    connect(&bar, &SearchBar::nextWanted, this,
            [this] { goTo(m_grid.matches().matchFrom(m_grid.currentRow() + 1)); });
    connect(&bar, &SearchBar::previousWanted, this,
            [this] { goTo(m_grid.matches().matchBefore(m_grid.currentRow())); });
    connect(&bar, &SearchBar::left, &grid, [&grid] { grid.setFocus(); });
}

void ChartFinder::goTo(int row) {
    if (row >= 0) m_grid.setCurrentRow(row);
    showMatches();
}

void ChartFinder::showResult() {
    if (m_grid.matches().matchCount() == 0)
        m_bar.setResult({});
    else
        showMatches();
}

void ChartFinder::showMatches() {
    const ChartSearch& matches = m_grid.matches();
    std::string result;
    if (matches.isActive()) {
        result = matches.matchCount() == 0
                     ? chart_texts::searchNothing
                     : fmt::format(chart_texts::searchResult, matches.numberOf(m_grid.currentRow()),
                                   matches.matchCount());
    }
    m_bar.setResult(shown(result));
}

}  // namespace chengheng
