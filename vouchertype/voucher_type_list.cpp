#include "vouchertype/voucher_type_list.h"

#include <array>

#include "data/tables/settlement.h"
#include "report/output/list_reading.h"
#include "report/output/print_templates.h"
#include "vouchertype/restriction_kind.h"
#include "vouchertype/voucher_type_rules.h"
#include "vouchertype/voucher_type_texts.h"

namespace chengheng {
namespace {

/// Absent for a type without restriction.
ReportCell limitCell(const _SignInfo& type) {
    if (!isRestricted(type)) return {};
    const char* text = restrictionKindText(type.byLimit);
    return ReportCell(text == nullptr ? voucher_type_texts::unknownRestriction : text);
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
