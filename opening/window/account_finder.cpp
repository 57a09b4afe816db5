#include "opening/window/account_finder.h"

#include "opening/sheet/opening_texts.h"
#include "screen/shown.h"

namespace chengheng {

AccountFinder::AccountFinder(SearchBar& bar, OpeningGrid& grid, const OpeningWork& work)
    : QObject(&bar), m_bar(bar), m_grid(grid), m_work(work) {
    // Digits typed on a figure that cannot be changed are no search.
    connect(&grid, &CVCF1::textTyped, this, [this](const QString& text) {
        if (m_grid.hasLine() && !m_grid.isOnFigure()) m_bar.takeOver(text);
    });
    connect(&bar, &SearchBar::textChanged, this, [this] {
        if (!m_grid.hasLine()) return;
        const std::size_t line = m_grid.currentLine();
        const auto before = line == 0 ? std::nullopt : std::optional(line - 1);
        goToMatch(m_work.sheet().find(wanted(), before));
    });
    connect(&bar, &SearchBar::nextWanted, this, [this] {
        if (m_grid.hasLine()) goToMatch(m_work.sheet().find(wanted(), m_grid.currentLine()));
    });
    connect(&bar, &SearchBar::previousWanted, this, [this] {
        if (m_grid.hasLine()) goToMatch(m_work.sheet().findBefore(wanted(), m_grid.currentLine()));
    });
    // What was said of the line before.
    connect(grid.selectionModel(), &QItemSelectionModel::currentRowChanged, &bar,
            [this] { m_bar.setResult({}); });
    connect(&bar, &SearchBar::left, this, [this] { m_grid.setFocus(); });
}

void AccountFinder::goToMatch(std::optional<std::size_t> line) {
    if (line) m_grid.goToLine(*line);
    const bool isMissed = !line && !m_bar.text().isEmpty();
    m_bar.setResult(isMissed ? shown(opening_texts::searchNothing) : QString());
}

}  // namespace chengheng
