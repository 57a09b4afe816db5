#include "tests/support/fake_chart.h"

#include <algorithm>
#include <stdexcept>

namespace chengheng {

int FakeChart::add(const std::string& code, const std::string& mnemonic) {
    _CodeInfo account;
    account.lId = static_cast<int>(m_accounts.size()) + 1;
    account.sCode = code;
    account.sName = "科目" + code;
    account.sType = "资产";
    account.bEnd = 1;
    account.bDirect = 1;
    account.sHelp = mnemonic;
    m_accounts.push_back(account);
    return account.lId;
}

_CodeInfo& FakeChart::account(const std::string& code) {
    const auto found = std::ranges::find(m_accounts, code, &_CodeInfo::sCode);
    if (found == m_accounts.end()) throw std::runtime_error("no account " + code);
    return *found;
}

void FakeChart::use(UsePlace place, const std::string& code) {
    m_uses.emplace(place, account(code).lId);
}

void FakeChart::addEmptySums(const std::string& code) { m_emptySums.insert(account(code).lId); }

void FakeChart::addTotals(const std::string& code) {
    use(UsePlace::sums, code);
    m_totals.insert(account(code).lId);
}

bool FakeChart::hasOnlyTotals(const _CodeInfo& account) { return m_totals.contains(account.lId); }

std::optional<_CodeInfo> FakeChart::accountOf(std::string_view code) {
    m_askedCodes.emplace_back(code);
    const auto found = std::ranges::find(m_accounts, code, &_CodeInfo::sCode);
    return found == m_accounts.end() ? std::nullopt : std::optional(*found);
}

bool FakeChart::isMnemonicTaken(std::string_view mnemonic, int exceptAccountId) {
    return std::ranges::any_of(m_accounts, [&](const _CodeInfo& account) {
        return account.sHelp == mnemonic && account.lId != exceptAccountId;
    });
}

bool FakeChart::hasChildren(std::string_view code) { return account(std::string(code)).bEnd == 0; }

bool FakeChart::isUsed(UsePlace place, const std::vector<int>& accountIds, SumsUse sums) {
    m_asked.push_back(place);
    return std::ranges::any_of(accountIds, [&](int id) {
        const bool isEmptySum = place == UsePlace::sums && m_emptySums.contains(id);
        return m_uses.contains({place, id}) || (isEmptySum && sums == SumsUse::anyRow);
    });
}

}  // namespace chengheng
