#include "vouchertype/voucher_type_sql.h"

#include "data/sql/sql_format.h"

namespace chengheng::voucher_type_sql {

std::string ofNumber(std::string_view number) { return formatSql("sSign = '%s'", number); }

std::string ofNewNumber(std::string_view number, std::string_view loadedNumber) {
    return formatSql("sSign = '%s' AND sSign <> '%s'", number, loadedNumber);
}

std::string ofFirstLevelAccount(std::string_view code) {
    return formatSql("sCode = '%s' AND byGrade = 1", code);
}

}  // namespace chengheng::voucher_type_sql
