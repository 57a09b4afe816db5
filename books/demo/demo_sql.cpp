#include "books/demo/demo_sql.h"

#include "data/sql/sql_format.h"

namespace chengheng::demo_sql {

std::string projectItem(std::string_view classCode, std::int32_t id, std::string_view code,
                        std::string_view name) {
    return formatSql("INSERT INTO ProjItems%s VALUES( %d, '%s', '%s' )", SqlFragment{classCode}, id,
                     code, name);
}

std::string voucherCounters(std::int32_t lastHeader, std::int32_t lastLine) {
    return formatSql(
        "BEGIN TRANSACTION xiugai\r\n"
        "Update ABIdTable Set lLastId = %d Where sTable = 'RegMain'\r\n"
        "Update ABIdTable Set lLastId = %d Where sTable = 'RegSub'\r\n"
        "Update ABIdTable Set lLastId = %d Where sTable = 'UnRegMain'\r\n"
        "Update ABIdTable Set lLastId = %d Where sTable = 'UnRegSub'\r\n"
        "COMMIT TRANSACTION xiugai",
        lastHeader, lastLine, lastHeader, lastLine);
}

}  // namespace chengheng::demo_sql
