#include "data/lookups/existence.h"

#include <string>

#include "data/access/host_database.h"
#include "data/access/selected_cells.h"
#include "data/sql/sql_format.h"

using chengheng::formatSql;

namespace {

int existence(const std::string& select) {
    if (g_pDB == nullptr) return -1;
    const chengheng::SelectedCells cells(*g_pDB, select);
    if (!cells.isRead()) return -1;
    return cells.rows() > 0 ? 0 : 1;
}

}  // namespace

int CodeIsExist(std::string_view code) {
    return existence(formatSql("SELECT lId FROM Code WHERE sCode = '%s'", code));
}

int SettleIsExist(std::string_view number) {
    return existence(formatSql("SELECT lId FROM Settle WHERE sStlId = '%s'", number));
}

int SignIsExist(std::string_view number) {
    return existence(formatSql("SELECT lId FROM Sign WHERE sSign = '%s'", number));
}

int chengheng::currencyExistence(int currencyId) {
    return existence(formatSql("SELECT lId FROM Cyrency WHERE lId = %d", currencyId));
}
