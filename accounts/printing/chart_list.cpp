#include "accounts/printing/chart_list.h"

#include <array>
#include <vector>

#include "accounts/chart/account_entry.h"
#include "accounts/chart/account_sql.h"
#include "accounts/codes/code_levels.h"
#include "data/access/host_database.h"
#include "data/lookups/CGetData.h"
#include "report/output/list_fields.h"
#include "report/output/list_reading.h"
#include "report/output/print_templates.h"

namespace chengheng {
namespace {

constexpr std::array fields{
    ListField<_CodeInfo>{
        "byGrade", Alignment::center,
        [](const _CodeInfo& account) { return ReportCell(std::to_string(account.byGrade)); }},
    ListField<_CodeInfo>{"sCode", Alignment::left,
                         [](const _CodeInfo& account) { return ReportCell(account.sCode); }, true},
    ListField<_CodeInfo>{"sName", Alignment::left,
                         [](const _CodeInfo& account) {
                             return ReportCell(indentedName(account.sName, account.byGrade));
                         }},
    ListField<_CodeInfo>{"byExchId", Alignment::left,
                         [](const _CodeInfo& account) {
                             return account.byExchId == 0
                                        ? ReportCell()
                                        : ReportCell(CGetData::GetExchName(g_lpszNbZwDBName,
                                                                           account.byExchId));
                         }},
    ListField<_CodeInfo>{"sAssBook", Alignment::left,
                         [](const _CodeInfo& account) {
                             const auto name = auxiliaryName(account.sAssBook);
                             return name.empty() ? ReportCell() : ReportCell(name);
                         }},
};

}  // namespace

bool ChartRange::holds(const _CodeInfo& account) const {
    const bool isBeforeEnd =
        lastCode.empty() || account.sCode <= lastCode || account.sCode.starts_with(lastCode);
    return account.sCode >= firstCode && isBeforeEnd && account.byGrade >= firstLevel &&
           account.byGrade <= lastLevel;
}

void addAccounts(Report& report, std::span<const _CodeInfo> accounts) {
    addRows<_CodeInfo>(report, fields, accounts);
}

PrintedList chartList(const ChartRange& range) {
    return {accountChartTemplate, ColumnSource::field, [range](Report& report) {
                std::vector<_CodeInfo> accounts;
                if (!readForList(account_sql::all, accounts)) return false;
                std::erase_if(accounts,
                              [&range](const _CodeInfo& account) { return !range.holds(account); });
                addAccounts(report, accounts);
                return true;
            }};
}

}  // namespace chengheng
