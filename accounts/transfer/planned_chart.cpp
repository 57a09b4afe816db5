#include "accounts/transfer/planned_chart.h"

#include <algorithm>

#include "data/tables/currency.h"

namespace chengheng {

PlannedChart::PlannedChart(const ChartState& state) : m_state(state), m_accounts(state.accounts) {
    for (std::size_t at = 0; at < m_accounts.size(); ++at) {
        m_byCode.emplace(m_accounts[at].sCode, at);
        noteMnemonic(m_accounts[at]);
    }
}

void PlannedChart::noteMnemonic(const _CodeInfo& account) {
    if (!account.sHelp.empty()) m_mnemonics.emplace(account.sHelp, account.lId);
}

std::optional<_CodeInfo> PlannedChart::accountOf(std::string_view code) {
    const auto found = m_byCode.find(std::string(code));
    return found == m_byCode.end() ? std::nullopt : std::optional(m_accounts[found->second]);
}

bool PlannedChart::isMnemonicTaken(std::string_view mnemonic, int exceptAccountId) {
    const auto [first, last] = m_mnemonics.equal_range(std::string(mnemonic));
    return std::any_of(first, last, [exceptAccountId](const auto& taken) {
        return taken.second != exceptAccountId;
    });
}

bool PlannedChart::hasCurrency(int currencyId) {
    return std::ranges::find(m_state.currencies, currencyId, &_CyrencyInfo::lId) !=
           m_state.currencies.end();
}

bool PlannedChart::hasChildren(std::string_view code) {
    const auto account = accountOf(code);
    return account && account->bEnd == 0;
}

bool PlannedChart::isUsed(UsePlace place, const std::vector<int>& accountIds, SumsUse sums) {
    const bool isOpening = place == UsePlace::sums && sums == SumsUse::openingMoney;
    const auto& used =
        isOpening ? m_state.withOpening : m_state.usedIn[static_cast<std::size_t>(place)];
    return std::ranges::any_of(accountIds, [&used](int id) { return used.contains(id); });
}

void PlannedChart::add(_CodeInfo account, const std::string& parentCode) {
    account.lId = -static_cast<int>(m_accounts.size()) - 1;
    m_byCode.emplace(account.sCode, m_accounts.size());
    noteMnemonic(account);
    m_accounts.push_back(std::move(account));
    if (const auto parent = m_byCode.find(parentCode); parent != m_byCode.end())
        m_accounts[parent->second].bEnd = 0;
}

void PlannedChart::change(const _CodeInfo& account) {
    _CodeInfo& planned = m_accounts[m_byCode.at(account.sCode)];
    const auto [first, last] = m_mnemonics.equal_range(planned.sHelp);
    const auto own = std::find_if(
        first, last, [&account](const auto& taken) { return taken.second == account.lId; });
    if (own != last) m_mnemonics.erase(own);
    noteMnemonic(account);
    planned = account;
}

std::vector<_CodeInfo> PlannedChart::added() const {
    const auto first = m_accounts.begin() + static_cast<std::ptrdiff_t>(m_state.accounts.size());
    std::vector<_CodeInfo> accounts(first, m_accounts.end());
    for (_CodeInfo& account : accounts) account.lId = 0;
    return accounts;
}

std::vector<_CodeInfo> PlannedChart::changed() const {
    std::vector<_CodeInfo> accounts;
    for (std::size_t at = 0; at < m_state.accounts.size(); ++at)
        if (m_accounts[at] != m_state.accounts[at]) accounts.push_back(m_accounts[at]);
    return accounts;
}

}  // namespace chengheng
