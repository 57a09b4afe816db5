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

std::string fixedRatesOf(std::int32_t currency) {
    return formatSql("byExchId = %d ORDER BY byPeroid", currency);
}

std::string floatingRatesOf(std::int32_t currency, int month) {
    return month == 0
               ? formatSql("byExchId = %d ORDER BY dtDate", currency)
               : formatSql("byExchId = %d AND byPeroid = %d ORDER BY dtDate", currency, month);
}

}  // namespace chengheng::print_sql
