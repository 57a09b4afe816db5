#include "books/parameters/parameters_sql.h"

#include "data/sql/sql_format.h"

namespace chengheng::parameters_sql {

std::string change(const _zAccountMInfo& record) {
    return formatSql(
        "UPDATE zAccountM SET sName = '%s', sCompany = '%s', bFgn = %d, sCodeLen = '%s', "
        "dtStart = '%d/%d/%d' WHERE lId = %d",
        record.sName, record.sCompany, int{record.bFgn}, record.sCodeLen, int{record.dtStart.year},
        int{record.dtStart.month}, int{record.dtStart.day}, record.lId);
}

}  // namespace chengheng::parameters_sql
