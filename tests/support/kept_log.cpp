#include "tests/support/kept_log.h"

#include <fmt/format.h>

#include "data/connection/database.h"
#include "tests/support/engine_tools.h"

namespace chengheng {

KeptLog::KeptLog(CNbCwDB& database) : m_database(database) {
    database.selectedDatabase()->keepLog({.operatorId = 1, .operatorName = "张三"});
    news();
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
