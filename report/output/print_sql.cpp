#include "report/output/print_sql.h"

#include "data/sql/sql_format.h"

namespace chengheng::print_sql {

std::string columnsOf(std::int32_t templateNumber) {
    return formatSql("select sColName, byWidth from ZWPrintSub where lTieId = %d ORDER BY lId",
                     templateNumber);
}

std::string fieldColumnsOf(std::int32_t templateNumber) {
    return formatSql(
        "select sColName, sFiled, byWidth from ZWPrintSub where lTieId = %d ORDER BY lId",
        templateNumber);
}

}  // namespace chengheng::print_sql
