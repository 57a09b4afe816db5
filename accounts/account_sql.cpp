#include "accounts/account_sql.h"

#include "data/format/sql_format.h"

namespace chengheng::account_sql {

std::string ofCode(std::string_view code) { return formatSql("sCode = '%s'", code); }

std::string below(std::string_view code) {
    return formatSql("sCode Like '%s%%' AND sCode <> '%s'", code, code);
}

std::string ofCodeAndBelow(std::string_view code) { return formatSql("sCode LIKE '%s%%'", code); }

}  // namespace chengheng::account_sql
