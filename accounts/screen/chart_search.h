#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "accounts/screen/chart_screen.h"

namespace chengheng {

/// The search as you type beside the chart: which of the listed accounts match what has been
/// typed, and where the next of them stands.
class ChartSearch {
  public:
    /// The screen must outlive the search.
    explicit ChartSearch(const ChartScreen& screen) : m_screen(screen) {}

    void type(std::string_view text);
    /// Looks again, after the list has changed.
    void repeat();

    bool isActive() const { return m_isActive; }
    bool isMatch(int row) const;
    int matchCount() const { return static_cast<int>(m_matches.size()); }
    /// Number of the match in this row, from 1; 0 when it is none.
    int numberOf(int row) const;

    /// The match at a row or behind it, from the top again after the last; -1 without matches.
    int matchFrom(int row) const;
    /// The match before a row, from the bottom again before the first; -1 without matches.
    int matchBefore(int row) const;

  private:
    const ChartScreen& m_screen;
    std::string m_text;
    std::vector<int> m_matches;  ///< rows in order
    bool m_isActive = false;
};

}  // namespace chengheng
