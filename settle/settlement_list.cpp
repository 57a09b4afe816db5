#include "settle/settlement_list.h"

#include <array>

#include "data/tables/settlement.h"
#include "report/engine/print_texts.h"
#include "report/output/list_reading.h"
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

PrintedList settlementList() {
    return {settlementTemplate, ColumnSource::position, everyRecord(fields)};
}

}  // namespace chengheng
