#include "tests/support/opening_books.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <stdexcept>

#include "data/access/row_lease.h"
#include "data/access/unit_of_work.h"
#include "data/tables/accounts.h"
#include "data/tables/balances.h"
#include "data/tables/vouchers.h"
#include "opening/storing/saving.h"

namespace chengheng {
namespace {

std::string rowText(const _AccSumInfo& row, const std::string& code) {
    std::string text = fmt::format("{}: {} {}", row.lId, code, row.byPeroid);
    const std::pair<const char*, double> figures[] = {
        {"begin", row.mBegin},       {"debit", row.mDebet},       {"credit", row.mCredit},
        {"quantity", row.dAmtBegin}, {"in", row.dAmtDebet},       {"out", row.dAmtCredit},
        {"foreign", row.mFgnBegin},  {"received", row.mFgnDebet}, {"paid", row.mFgnCredit}};
    for (const auto& [name, value] : figures)
        if (value != 0) text += fmt::format(" {} {}", name, value);
    return text;
}

}  // namespace

std::string allPeriods(const std::string& value) {
    std::string text;
    for (int period = 1; period <= 12; ++period)
        text += (period > 1 ? " " : "") + std::to_string(period) + "=" + value;
    return text;
}

OpeningTestBooks::OpeningTestBooks(const std::string& location, OpeningLayout layout, bool isNew)
    : m_books(location, isNew) {
    if (isNew && layout == OpeningLayout::midYear)
        m_books.run("UPDATE zAccountM SET dtStart = '2026/3/1' WHERE lId = 1");
}

void OpeningTestBooks::addAccounts(const std::vector<std::string>& codes) {
    for (const std::string& code : codes) m_books.add(code, "科目" + code);
}

void OpeningTestBooks::addCredit(const std::string& code, const std::string& type) {
    m_books.add(code, "科目" + code);
    change(code, formatSql("bDirect = 0, sType = '%s'", type));
}

void OpeningTestBooks::change(const std::string& code, const std::string& assignment) {
    m_books.run(formatSql("UPDATE Code SET %s WHERE sCode = '%s'", SqlFragment{assignment}, code));
}

std::size_t OpeningTestBooks::lineOf(const std::string& code, Measure measure) {
    const auto place = m_work.sheet().placeOfCode(code);
    const auto line = place ? m_work.sheet().lineOf(*place, measure) : std::nullopt;
    if (!line) throw std::runtime_error("no line of " + code);
    return *line;
}

bool OpeningTestBooks::type(const std::string& code, std::string_view text, Measure measure,
                            OpeningField field) {
    m_work.beginEdit();
    const std::size_t column = placeOf(field, m_work.sheet().layout());
    return m_work.endEdit(lineOf(code, measure), column, text) == Outcome::done;
}

std::string OpeningTestBooks::shown(const std::string& code, Measure measure, OpeningField field) {
    return m_work.sheet().text(lineOf(code, measure), placeOf(field, m_work.sheet().layout()));
}

void OpeningTestBooks::addVoucher() {
    _RegMainInfo header;
    header.byPeroid = 1;
    header.dtDate = {2026, 1, 5};
    header.sSign = "记";
    int id = 0;
    if (database().RegMain_AddNew(header, id) != 0) throw std::runtime_error("no voucher");
}

void OpeningTestBooks::addRows(const std::string& code, int count, double opening) {
    for (int period = 1; period <= count; ++period) {
        _AccSumInfo row;
        row.lCodeId = idOf(code);
        row.byPeroid = static_cast<std::uint8_t>(period);
        row.mBegin = opening;
        int id = 0;
        if (database().AccSum_AddNew(row, id) != 0) throw std::runtime_error("no row");
    }
}

std::vector<std::string> OpeningTestBooks::rows() {
    std::map<int, std::string> codes;
    for (const _CodeInfo& account : readRows<_CodeInfo>(database(), nullptr))
        codes[account.lId] = account.sCode;
    std::vector<std::string> texts;
    for (const _AccSumInfo& row : readRows<_AccSumInfo>(database(), "ORDER BY lId"))
        texts.push_back(rowText(row, codes[row.lCodeId]));
    return texts;
}

std::vector<std::string> OpeningTestBooks::rowsOf(const std::string& code) {
    std::vector<std::string> texts;
    const std::string condition = formatSql("lCodeId = %d ORDER BY lId", idOf(code));
    for (const _AccSumInfo& row : readRows<_AccSumInfo>(database(), condition.c_str()))
        texts.push_back(rowText(row, code));
    return texts;
}

std::string OpeningTestBooks::openings(const std::string& code) {
    std::string text;
    const std::string condition = formatSql("lCodeId = %d ORDER BY byPeroid", idOf(code));
    for (const _AccSumInfo& row : readRows<_AccSumInfo>(database(), condition.c_str()))
        text += fmt::format("{}{}={}", text.empty() ? "" : " ", row.byPeroid, row.mBegin);
    return text;
}

std::vector<std::string> OpeningTestBooks::whatASaveWouldChange() {
    const auto before = rows();
    UnitOfWork unit(database());
    OpeningBooks read;
    if (!readOpeningBooks(database(), read) || !postParents(database(), read.sheet))
        throw std::runtime_error("no save: " + database().lastStatus().detail);
    const auto after = rows();
    std::vector<std::string> changed;
    std::ranges::set_difference(after, before, std::back_inserter(changed));
    for (const std::string& row : before)
        if (std::ranges::find(after, row) == after.end()) changed.push_back("gone: " + row);
    return changed;
}

}  // namespace chengheng
