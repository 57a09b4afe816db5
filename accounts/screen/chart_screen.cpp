#include "accounts/screen/chart_screen.h"

#include <algorithm>
#include <array>

#include "accounts/chart/account_entry.h"
#include "accounts/chart/account_sql.h"
#include "accounts/codes/code_levels.h"
#include "accounts/screen/chart_commands.h"
#include "accounts/screen/chart_sql.h"
#include "accounts/screen/chart_texts.h"
#include "base/values/text.h"
#include "data/access/host_database.h"
#include "data/access/row_lease.h"
#include "data/lookups/CGetData.h"
#include "session/open_books.h"

namespace chengheng {
namespace {

constexpr std::array commandsOnAnAccount{
    chart_command::print,     chart_command::preview,     chart_command::remove,
    chart_command::modify,    chart_command::copy,        chart_command::find,
    chart_command::whereUsed, chart_command::exportChart, chart_command::history};

}  // namespace

bool isSameForFinding(std::string_view shown, std::string_view wanted) {
    return isSameInAnyCase(withoutLeadingBlanks(shown), withoutLeadingBlanks(wanted));
}

Status ChartScreen::readClasses() {
    m_tabs.clear();
    const RowLease<_zCodeClassInfo> classes(*g_pDB, account_sql::allClasses);
    if (!classes.isFound()) return g_pDB->lastStatus();
    m_tabs.emplace_back(chart_texts::allAccounts);
    for (const _zCodeClassInfo* accountClass : classes.rows()) {
        if (m_tabs.size() > mostClasses) break;
        m_tabs.push_back(accountClass->sClsName);
    }
    return Status::done();
}

Status ChartScreen::load(std::string_view category) {
    m_category = category;
    m_rows.clear();
    m_currencies.clear();
    if (Status selected = selectOpenBooks(); !selected) return selected;
    const std::string condition = category == chart_texts::allAccounts
                                      ? chart_sql::ofOtherClasses(category)
                                      : chart_sql::ofClass(category);
    const RowLease<_CodeInfo> accounts(*g_pDB, condition.c_str());
    if (!accounts.isRead()) return g_pDB->lastStatus();
    m_rows.reserve(accounts.rows().size());
    for (const _CodeInfo* account : accounts.rows()) m_rows.emplace_back(*account);
    for (const ListedAccount& row : m_rows) nameCurrency(row.currencyId);
    return Status::done();
}

void ChartScreen::nameCurrency(int currencyId) {
    if (currencyId == 0 || m_currencies.contains(currencyId)) return;
    m_currencies.emplace(currencyId, CGetData::GetExchName(g_lpszNbZwDBName, currencyId));
}

std::string ChartScreen::text(int row, ListColumn column) const {
    if (row < 0 || row >= count()) return {};
    const ListedAccount& account = this->row(row);
    switch (column) {
        case ListColumn::level:
            return std::to_string(account.grade);
        case ListColumn::code:
            return account.code;
        case ListColumn::name:
            return indentedName(account.name, account.grade);
        case ListColumn::currency:
            return account.currencyId == 0 ? std::string() : m_currencies.at(account.currencyId);
        case ListColumn::auxiliary:
            return std::string(auxiliaryName(account.letters));
    }
    return {};
}

std::string ChartScreen::countText() const { return std::to_string(m_rows.size()); }

std::string ChartScreen::codeAt(int row) const { return text(row, ListColumn::code); }

std::string ChartScreen::path(int row) const {
    if (row < 0 || row >= count()) return {};
    const std::string_view code = this->row(row).code;
    std::string path;
    for (std::size_t length = 1; length <= code.size(); ++length) {
        const int above = rowOfCode(code.substr(0, length));
        if (above < 0) continue;
        path += (path.empty() ? "" : chart_texts::pathSeparator) + this->row(above).name;
    }
    return path;
}

int ChartScreen::placeOf(std::string_view code) const {
    const auto place = std::ranges::lower_bound(
        m_rows, code, {}, [](const ListedAccount& row) { return std::string_view(row.code); });
    return static_cast<int>(place - m_rows.begin());
}

int ChartScreen::rowOfCode(std::string_view code) const {
    const int place = placeOf(code);
    return place < count() && row(place).code == code ? place : -1;
}

int ChartScreen::rowOfId(int id) const {
    const auto found = std::ranges::find(m_rows, id, &ListedAccount::id);
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

std::optional<int> ChartScreen::find(std::string_view text) const {
    const auto found = std::ranges::find_if(m_rows, [text](const ListedAccount& row) {
        return isSameForFinding(row.code, text) || isSameForFinding(row.name, text);
    });
    if (found == m_rows.end()) return std::nullopt;
    return static_cast<int>(found - m_rows.begin());
}

bool ChartScreen::isListed(const _CodeInfo& account) const {
    return m_category == chart_texts::allAccounts || m_category == account.sType;
}

void ChartScreen::insert(int row, const _CodeInfo& account) {
    nameCurrency(account.byExchId);
    m_rows.emplace(m_rows.begin() + row, account);
}

void ChartScreen::replace(int row, const _CodeInfo& account) {
    nameCurrency(account.byExchId);
    m_rows[static_cast<std::size_t>(row)] = ListedAccount(account);
}

void ChartScreen::remove(int row) { m_rows.erase(m_rows.begin() + row); }

bool ChartScreen::needsAccount(int command) {
    return std::ranges::find(commandsOnAnAccount, command) != commandsOnAnAccount.end();
}

}  // namespace chengheng
