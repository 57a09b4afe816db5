#include "vouchertype/usage/usage_list.h"

#include <fmt/format.h>

#include <array>

#include "data/tables/definitions.h"
#include "data/tables/vouchers.h"
#include "report/output/list_reading.h"
#include "report/output/print_templates.h"
#include "vouchertype/usage/type_usage.h"
#include "vouchertype/usage/usage_texts.h"
#include "vouchertype/voucher_type_sql.h"

namespace chengheng {
namespace {

namespace texts = usage_texts;

ReportCell numberCell(std::int64_t number) {
    return number == 0 ? ReportCell() : ReportCell(fmt::to_string(number));
}

ReportCell dateCell(const UsageRow& row, const Date& date) {
    return row.vouchers == 0 ? ReportCell() : ReportCell(isoText(date));
}

ReportCell monthCell(const UsageRow& row) {
    return row.month == 0 ? ReportCell(texts::wholeYear)
                          : ReportCell(fmt::format(texts::month, row.month));
}

constexpr std::array fields{
    ListField<UsageRow>{"sSign", Alignment::left,
                        [](const UsageRow& row) { return ReportCell(row.type); }},
    ListField<UsageRow>{"sSignName", Alignment::left,
                        [](const UsageRow& row) { return ReportCell(row.name); }},
    ListField<UsageRow>{"byPeroid", Alignment::center, monthCell},
    ListField<UsageRow>{
        "lCount", Alignment::right,
        [](const UsageRow& row) { return ReportCell(fmt::to_string(row.vouchers)); }},
    ListField<UsageRow>{"lUnposted", Alignment::right,
                        [](const UsageRow& row) { return numberCell(row.unposted); }},
    ListField<UsageRow>{"lFirst", Alignment::right,
                        [](const UsageRow& row) { return numberCell(row.firstNumber); }},
    ListField<UsageRow>{"dtFirst", Alignment::center,
                        [](const UsageRow& row) { return dateCell(row, row.firstDate); }},
    ListField<UsageRow>{"lLast", Alignment::right,
                        [](const UsageRow& row) { return numberCell(row.lastNumber); }},
    ListField<UsageRow>{"dtLast", Alignment::center,
                        [](const UsageRow& row) { return dateCell(row, row.lastDate); }},
    ListField<UsageRow>{"sRemark", Alignment::left,
                        [](const UsageRow& row) {
                            return row.remarks.empty() ? ReportCell() : ReportCell(row.remarks);
                        }},
};

/// Headers of no month are those of opening entries.
template <class Header>
bool readHeaders(bool isPosted, TypeCarriers& carriers) {
    std::vector<Header> headers;
    if (!readForList(print_sql::inOrderOfIds, headers)) return false;
    for (const Header& header : headers) {
        if (header.byPeroid == 0)
            ++carriers.openingEntries[header.sSign];
        else
            carriers.vouchers.push_back(
                {header.sSign, header.byPeroid, header.lNumber, header.dtDate, isPosted});
    }
    return true;
}

bool readCarriers(TypeCarriers& carriers) {
    std::vector<_AutoMainInfo> transfers;
    if (!readHeaders<_UnregMainInfo>(false, carriers) ||
        !readHeaders<_RegMainInfo>(true, carriers) ||
        !readForList(print_sql::inOrderOfIds, transfers))
        return false;
    for (const _AutoMainInfo& transfer : transfers) ++carriers.transfers[transfer.sSign];
    return true;
}

bool fill(Report& report) {
    std::vector<_SignInfo> types;
    TypeCarriers carriers;
    if (!readForList(voucher_type_sql::inOrder, types) || !readCarriers(carriers)) return false;
    addRows<UsageRow>(report, fields, typeUsage(types, carriers));
    return true;
}

}  // namespace

PrintedList voucherTypeUsageList() { return {voucherTypeUsageTemplate, ColumnSource::field, fill}; }

}  // namespace chengheng
