#include "accounts/screen/chart_search.h"

#include <algorithm>

#include "accounts/screen/account_search.h"

namespace chengheng {

void ChartSearch::type(std::string_view text) {
    m_text = text;
    repeat();
}

void ChartSearch::repeat() {
    const AccountSearch wanted(m_text);
    m_matches.clear();
    m_isActive = !wanted.isEmpty();
    if (!m_isActive) return;
    for (int row = 0; row < m_screen.count(); ++row) {
        const ListedAccount& account = m_screen.row(row);
        if (wanted.matches(account.code, account.name, account.mnemonic)) m_matches.push_back(row);
    }
}

bool ChartSearch::isMatch(int row) const { return std::ranges::binary_search(m_matches, row); }

int ChartSearch::numberOf(int row) const {
    const auto found = std::ranges::lower_bound(m_matches, row);
    if (found == m_matches.end() || *found != row) return 0;
    return static_cast<int>(found - m_matches.begin()) + 1;
}

int ChartSearch::matchFrom(int row) const {
    if (m_matches.empty()) return -1;
    const auto found = std::ranges::lower_bound(m_matches, row);
    return found == m_matches.end() ? m_matches.front() : *found;
}

int ChartSearch::matchBefore(int row) const {
    if (m_matches.empty()) return -1;
    const auto found = std::ranges::lower_bound(m_matches, row);
    return found == m_matches.begin() ? m_matches.back() : *(found - 1);
}

}  // namespace chengheng
