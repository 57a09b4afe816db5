#include "data/tables/operation_log_tables.h"

namespace chengheng {

const TableInfo& operationLogTable() {
    static const TableInfo table{.name = "OperationLog",
                                 .idRow = "",
                                 .columns = {{"lId", ColumnType::integer},
                                             {"sTime", ColumnType::text},
                                             {"lUserId", ColumnType::integer},
                                             {"sUser", ColumnType::text},
                                             {"sStation", ColumnType::text},
                                             {"lProcess", ColumnType::integer},
                                             {"sProgram", ColumnType::text},
                                             {"lFunction", ColumnType::integer},
                                             {"sWords", ColumnType::text},
                                             {"sUnit", ColumnType::text},
                                             {"lParts", ColumnType::integer},
                                             {"lRows", ColumnType::integer},
                                             {"sPartsHash", ColumnType::text},
                                             {"sHash", ColumnType::text}},
                                 .indexes = {"sTime", "sUser, lId", "lFunction, lId", "sUnit"},
                                 .isAddedToOnly = true};
    return table;
}

const TableInfo& operationLogPartTable() {
    static const TableInfo table{
        .name = "OperationLogPart",
        .idRow = "",
        .columns = {{"sUnit", ColumnType::text},
                    {"lPart", ColumnType::integer},
                    {"sTable", ColumnType::text},
                    {"lLowest", ColumnType::integer},
                    {"lHighest", ColumnType::integer},
                    {"lLowAccount", ColumnType::integer},
                    {"lHighAccount", ColumnType::integer},
                    {"lRows", ColumnType::integer},
                    {"sPacked", ColumnType::text}},
        // What is sought in a range stands in the index whole, so that no part is read for it.
        .indexes = {"sUnit, lPart", "sTable, lLowest, lHighest, sUnit",
                    "lLowAccount, lHighAccount, sUnit"},
        .isAddedToOnly = true};
    return table;
}

const TableInfo& operationLogHeadTable() {
    static const TableInfo table{.name = "OperationLogHead",
                                 .idRow = "",
                                 .columns = {{"lId", ColumnType::integer},
                                             {"lLastId", ColumnType::integer},
                                             {"sHash", ColumnType::text}},
                                 .indexes = {}};
    return table;
}

}  // namespace chengheng
