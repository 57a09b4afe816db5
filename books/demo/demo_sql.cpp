#include "books/demo/demo_sql.h"

#include "data/sql/sql_format.h"

namespace chengheng::demo_sql {

std::string projectItem(std::string_view classCode, std::int32_t id, std::string_view code,
                        std::string_view name) {
    return formatSql("INSERT INTO ProjItems%s VALUES( %d, '%s', '%s' )", SqlFragment{classCode}, id,
                     code, name);
}

}  // namespace chengheng::demo_sql
