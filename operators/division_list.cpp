#include "operators/division_list.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/values/text.h"
#include "data/access/host_database.h"
#include "operators/operator_reading.h"
#include "operators/operator_texts.h"
#include "report/engine/print_texts.h"
#include "report/output/list_fields.h"
#include "report/output/print_templates.h"

namespace chengheng {
namespace {

namespace texts = operator_texts;

constexpr const char* divisionLayout = "DivideW.rpn";
constexpr int narrowestOperator = 6;

constexpr std::array divisionFields{
    ListField<OperatorRecord>{
        "sUserName", Alignment::left,
        [](const OperatorRecord& record) { return ReportCell(record.user.sUserName); }},
    ListField<OperatorRecord>{"bManager", Alignment::center,
                              [](const OperatorRecord& record) {
                                  return ReportCell(record.isSupervisor() ? texts::supervisor
                                                                          : texts::plainOperator);
                              }},
    ListField<OperatorRecord>{"sAuthId", Alignment::left,
                              [](const OperatorRecord& record) {
                                  return ReportCell(record.isSupervisor()
                                                        ? std::string(texts::everything)
                                                        : rightsInWords(record.rights));
                              }},
};

struct NumberedFunction {
    int number;
    const char* group;
    const char* name;
};

constexpr std::array functionFields{
    ListField<NumberedFunction>{"lId", Alignment::center,
                                [](const NumberedFunction& function) {
                                    return ReportCell(std::to_string(function.number));
                                }},
    ListField<NumberedFunction>{
        "sGroup", Alignment::left,
        [](const NumberedFunction& function) { return ReportCell(function.group); }},
    ListField<NumberedFunction>{
        "sName", Alignment::left,
        [](const NumberedFunction& function) { return ReportCell(function.name); }},
};

std::vector<NumberedFunction> allFunctions() {
    std::vector<NumberedFunction> functions;
    functions.reserve(functionCount);
    for (const RightsGroup& group : rightsGroups())
        for (const char* name : group.functions)
            functions.push_back({static_cast<int>(functions.size()) + 1, group.name, name});
    return functions;
}

bool fillDivision(Report& report) {
    std::optional<std::vector<OperatorRecord>> operators;
    if (!readOperators(*g_pDB, operators) || !operators) return false;
    report.layoutFile = divisionLayout;
    addRows<OperatorRecord>(report, divisionFields, *operators);
    return true;
}

bool fillMatrix(Report& report) {
    std::optional<std::vector<OperatorRecord>> operators;
    if (!readOperators(*g_pDB, operators) || !operators) return false;
    const std::vector<NumberedFunction> functions = allFunctions();
    Report left;
    left.columns = report.columns;
    addRows<NumberedFunction>(left, functionFields, functions);
    report.columns = left.columns;
    report.keyColumn = left.keyColumn;
    for (const OperatorRecord& record : *operators) {
        const int width = 2 * static_cast<int>(characterCount(record.user.sUserName));
        ReportColumn& column = report.columns.emplace_back();
        column.heading = record.user.sUserName;
        column.width = std::max(width, narrowestOperator);
        column.alignment = Alignment::center;
    }
    for (std::size_t row = 0; row < functions.size(); ++row) {
        std::vector<ReportCell> cells;
        for (std::size_t column = 0; column < left.columns.size(); ++column)
            cells.push_back(left.cell(row, column));
        for (const OperatorRecord& record : *operators) {
            const bool has = record.isSupervisor() || record.rights.grants(functions[row].number);
            cells.push_back(has ? ReportCell(print_texts::checkMark) : ReportCell());
        }
        report.addRow(std::move(cells));
    }
    return true;
}

}  // namespace

PrintedList divisionList() {
    return {divisionTemplate, ColumnSource::field, fillDivision, texts::safetyFault};
}

PrintedList rightsMatrix() {
    return {rightsMatrixTemplate, ColumnSource::field, fillMatrix, texts::safetyFault};
}

}  // namespace chengheng
