#include "data/tables/schema.h"

#include <algorithm>

#include "base/values/text.h"
#include "data/tables/operation_log_tables.h"
#include "data/tables/record_type.h"

namespace chengheng {
namespace {

bool isClassCodeLetter(char letter) {
    const char lower = lowerAscii(letter);
    return (lower >= 'a' && lower <= 'z') || (letter >= '0' && letter <= '9');
}

}  // namespace

std::span<const RecordType* const> allRecordTypes() {
    static const RecordType* const types[] = {
        &recordTypeOf<_BooksFormatInfo>(), &recordTypeOf<_ABIdTableInfo>(),
        &recordTypeOf<_zAccountMInfo>(),   &recordTypeOf<_zCodeClassInfo>(),
        &recordTypeOf<_zAuthInfo>(),       &recordTypeOf<_CodeInfo>(),
        &recordTypeOf<_AccSumInfo>(),      &recordTypeOf<_AssAccInfo>(),
        &recordTypeOf<_SignInfo>(),        &recordTypeOf<_SettleInfo>(),
        &recordTypeOf<_CyrencyInfo>(),     &recordTypeOf<_ExchgFixInfo>(),
        &recordTypeOf<_ExchgFltInfo>(),    &recordTypeOf<_UsersInfo>(),
        &recordTypeOf<_UserAuthInfo>(),    &recordTypeOf<_LoginInfo>(),
        &recordTypeOf<_DeptInfo>(),        &recordTypeOf<_PersonInfo>(),
        &recordTypeOf<_EnterClassInfo>(),  &recordTypeOf<_EnterInfo>(),
        &recordTypeOf<_ProjClassInfo>(),   &recordTypeOf<_ProjCodesInfo>(),
        &recordTypeOf<_RegMainInfo>(),     &recordTypeOf<_RegSubInfo>(),
        &recordTypeOf<_UnregMainInfo>(),   &recordTypeOf<_UnregSubInfo>(),
        &recordTypeOf<_AutoMainInfo>(),    &recordTypeOf<_AutoSubInfo>(),
        &recordTypeOf<_FreqSubInfo>(),     &recordTypeOf<__DigestInfo>(),
        &recordTypeOf<_RecpBankInfo>(),    &recordTypeOf<_RecpEnterInfo>(),
        &recordTypeOf<_ZWPrintMainInfo>(), &recordTypeOf<_ZWPrintSubInfo>(),
        &recordTypeOf<_LogonTriesInfo>(),
    };
    return types;
}

const std::vector<TableInfo>& allTables() {
    static const std::vector<TableInfo> tables = [] {
        std::vector<TableInfo> made;
        for (const RecordType* type : allRecordTypes()) made.push_back(type->table);
        // No record of the module: their rows are written and read by the log alone.
        made.insert(made.end(),
                    {operationLogTable(), operationLogPartTable(), operationLogHeadTable()});
        return made;
    }();
    return tables;
}

const TableInfo* findTable(std::string_view name) {
    const auto& tables = allTables();
    const auto found = std::ranges::find_if(
        tables, [name](const TableInfo& table) { return isSameInAnyCase(table.name, name); });
    return found == tables.end() ? nullptr : &*found;
}

TableInfo projectItemTable(std::string_view classCode) {
    if (classCode.empty() || !std::ranges::all_of(classCode, isClassCodeLetter)) return {};
    return {
        "ProjItems" + std::string(classCode),
        "",
        {{"lId", ColumnType::integer}, {"FIELD0", ColumnType::text}, {"FIELD1", ColumnType::text}},
        {"FIELD1"}};
}

}  // namespace chengheng
