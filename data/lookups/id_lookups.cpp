#include "data/lookups/id_lookups.h"

#include <charconv>

#include "data/access/host_database.h"
#include "data/lookups/one_cell.h"
#include "data/sql/sql_format.h"

namespace chengheng {
namespace {

bool isSelected(const char* databaseName) {
    return g_pDB != nullptr && g_pDB->DBSelect(databaseName) != 0;
}

int idFrom(const OneCell& cell) {
    if (!cell.isRead) return -1;
    int id = 0;
    if (cell.text) std::from_chars(cell.text->data(), cell.text->data() + cell.text->size(), id);
    return id;
}

int idBy(const Directory& directory, const char* column, std::string_view text) {
    return idFrom(
        readOneCell(*g_pDB, formatSql("SELECT lId FROM %s WHERE %s = '%s' ORDER BY lId",
                                      SqlFragment{directory.table}, SqlFragment{column}, text)));
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
    return readOneCell(*g_pDB, select).text.value_or("");
}

int accountIdOf(std::string_view code) {
    if (g_pDB == nullptr) return -1;
    return idFrom(readOneCell(*g_pDB, formatSql("SELECT lId FROM Code WHERE sCode = '%s'", code)));
}

}  // namespace chengheng
