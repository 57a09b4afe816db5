#include "accounts/screen/chart_sql.h"

#include "data/sql/sql_format.h"

namespace chengheng::chart_sql {

std::string ofClass(std::string_view className) {
    return formatSql("sType = '%s' ORDER BY sCode", className);
}

std::string ofOtherClasses(std::string_view className) {
    return formatSql("sType <> '%s' ORDER BY sCode", className);
}

}  // namespace chengheng::chart_sql
