#include "settle/settle_sql.h"

#include "data/format/sql_format.h"

namespace chengheng::settle_sql {

std::string ofNumber(std::string_view number) { return formatSql("sStlId = '%s'", number); }

std::string ofNoteMethod(std::string_view number) {
    return formatSql("sNoteMethod = '%s'", number);
}

std::string ofOtherNumber(std::string_view number, int id) {
    return formatSql("sStlId = '%s' AND lId <> %d", number, id);
}

std::string ofOtherName(std::string_view name, int id) {
    return formatSql("sSettle = '%s' AND lId <> %d", name, id);
}

}  // namespace chengheng::settle_sql
