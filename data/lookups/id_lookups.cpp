#include "data/lookups/id_lookups.h"

#include "data/access/host_database.h"
#include "data/access/selected_cells.h"
#include "data/sql/sql_format.h"

namespace chengheng {
namespace {

bool isSelected(const char* databaseName) {
    return g_pDB != nullptr && g_pDB->DBSelect(databaseName) != 0;
}

/// The id that a select gives first.
int idFrom(const std::string& select) {
    const SelectedCells cells(*g_pDB, select);
    if (!cells.isRead()) return -1;
    return cells.rows() > 0 ? cells.number<int>(0, 0) : 0;
}

int idBy(const Directory& directory, const char* column, std::string_view text) {
    return idFrom(formatSql("SELECT lId FROM %s WHERE %s = '%s' ORDER BY lId",
                            SqlFragment{directory.table}, SqlFragment{column}, text));
}

}  // namespace

int idOf(const Directory& directory, const char* databaseName, std::string_view nameOrCode) {
    if (nameOrCode.empty()) return 0;
    if (!isSelected(databaseName)) return -1;
    const int id = idBy(directory, directory.codeColumn, nameOrCode);
    return id != 0 ? id : idBy(directory, directory.nameColumn, nameOrCode);
}

std::string nameOf(const Directory& directory, const char* databaseName, int id) {
    if (!isSelected(databaseName)) return {};
    const auto select =
        formatSql("SELECT %s FROM %s WHERE lId = %d", SqlFragment{directory.nameColumn},
                  SqlFragment{directory.table}, id);
    const SelectedCells cells(*g_pDB, select);
    return cells.rows() > 0 ? std::string(cells.text(0, 0)) : std::string();
}

int accountIdOf(std::string_view code) {
    if (g_pDB == nullptr) return -1;
    return idFrom(formatSql("SELECT lId FROM Code WHERE sCode = '%s'", code));
}

}  // namespace chengheng
