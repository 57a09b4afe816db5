#include "settle/settle_sql.h"

#include "data/sql/sql_format.h"

namespace chengheng::settle_sql {

std::string ofNumber(std::string_view number) { return formatSql("sStlId = '%s'", number); }

std::string ofNoteMethod(std::string_view number) {
    return formatSql("sNoteMethod = '%s'", number);
}

std::string ofName(std::string_view name) { return formatSql("sSettle = '%s'", name); }

}  // namespace chengheng::settle_sql
