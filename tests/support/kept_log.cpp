#include "tests/support/kept_log.h"

#include <fmt/format.h>

#include <stdexcept>

#include "data/connection/database.h"
#include "data/layout/layout.h"
#include "tests/support/engine_tools.h"
#include "tests/support/small_books.h"

namespace chengheng {

KeptLog::KeptLog(CNbCwDB& database) : m_database(database) {
    Database& books = *database.selectedDatabase();
    if (findTable(operationLogTable().name) == nullptr) {
        for (const TableInfo* table : {&operationLogTable(), &operationLogPartTable()})
            runScript(books.engine(), createTableSql(*table, books.engine().dialect()));
        runScript(books.engine(), "INSERT INTO ABIdTable VALUES ('OperationLog', 0)");
    }
    books.keepLog({.operatorId = 1, .operatorName = "张三"});
}

std::vector<std::string> KeptLog::news() {
    std::vector<std::string> found;
    const std::string sql = fmt::format(
        "SELECT lId, lFunction, sWords FROM OperationLog WHERE lId > {} ORDER BY lId", m_seen);
    for (const auto& row : readSql(m_database.selectedDatabase()->engine(), sql)) {
        m_seen = std::stol(row[0]);
        found.push_back(row[1] + " " + row[2]);
    }
    return found;
}

}  // namespace chengheng
