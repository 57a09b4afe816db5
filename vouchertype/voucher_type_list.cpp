#include "vouchertype/voucher_type_list.h"

#include <array>

#include "data/tables/settlement.h"
#include "report/output/list_reading.h"
#include "report/output/print_templates.h"
#include "vouchertype/voucher_type_texts.h"

namespace chengheng {
namespace {

constexpr std::array limitTexts{voucher_type_texts::debitRequired,
                                voucher_type_texts::creditRequired,
                                voucher_type_texts::bothForbidden};

/// Absent for a type without restriction.
ReportCell limitCell(const _SignInfo& type) {
    const bool isLimited = type.byLimit >= 1 && type.byLimit <= limitTexts.size();
    return isLimited ? ReportCell(limitTexts[type.byLimit - 1U]) : ReportCell();
}

ReportCell filledCell(const std::string& text) {
    return text.empty() ? ReportCell() : ReportCell(text);
}

constexpr std::array fields{
    ListField<_SignInfo>{"sSign", Alignment::left,
                         [](const _SignInfo& type) { return ReportCell(type.sSign); }},
    ListField<_SignInfo>{"sSignName", Alignment::left,
                         [](const _SignInfo& type) { return ReportCell(type.sSignName); }},
    ListField<_SignInfo>{"byLimit", Alignment::left, limitCell},
    ListField<_SignInfo>{"sCode1", Alignment::left,
                         [](const _SignInfo& type) { return filledCell(type.sCode1); }},
    ListField<_SignInfo>{"sCode2", Alignment::left,
                         [](const _SignInfo& type) { return filledCell(type.sCode2); }},
};

}  // namespace

PrintedList voucherTypeList() {
    return {voucherTypeTemplate, ColumnSource::position, everyRecord(fields)};
}

}  // namespace chengheng
