#include "settle/settlement_list.h"

#include <array>

#include "report/engine/print_texts.h"
#include "report/output/list_fields.h"
#include "report/output/list_reading.h"
#include "report/output/print_sql.h"
#include "report/output/print_templates.h"

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
