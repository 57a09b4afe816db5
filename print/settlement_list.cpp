#include "print/settlement_list.h"

#include <array>

#include "host/books/print_templates.h"
#include "print/list_fields.h"
#include "print/list_reading.h"
#include "print/print_sql.h"
#include "print/print_texts.h"

namespace chengheng {
namespace {

constexpr int registerBit = 1;

constexpr std::array fields{
    ListField<_SettleInfo>{"sStlId", Alignment::left,
                           [](const _SettleInfo& method) { return ReportCell(method.sStlId); }},
    ListField<_SettleInfo>{"sSettle", Alignment::left,
                           [](const _SettleInfo& method) { return ReportCell(method.sSettle); }},
    ListField<_SettleInfo>{"bNote", Alignment::center,
                           [](const _SettleInfo& method) {
                               return (method.bNote & registerBit) != 0
                                          ? ReportCell(print_texts::checkMark)
                                          : ReportCell();
                           }},
};

}  // namespace

void addSettlements(Report& report, std::span<const _SettleInfo> methods) {
    addRows<_SettleInfo>(report, fields, methods);
}

PrintedList settlementList() {
    return {settlementTemplate, ColumnSource::position, [](Report& report) {
                std::vector<_SettleInfo> methods;
                if (!readForList(print_sql::inOrderOfIds, methods)) return false;
                addSettlements(report, methods);
                return true;
            }};
}

}  // namespace chengheng
