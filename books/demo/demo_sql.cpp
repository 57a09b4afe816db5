#include "books/demo/demo_sql.h"

#include "data/sql/sql_format.h"

namespace chengheng::demo_sql {

std::string projectItem(std::string_view classCode, std::int32_t id, std::string_view code,
                        std::string_view name) {
    return formatSql("INSERT INTO ProjItems%s VALUES( %d, '%s', '%s' )", SqlFragment{classCode}, id,
                     code, name);
}

std::string turnover() {
    return "UPDATE AccSum SET mDebet = mBegin * (byPeroid % 3), mCredit = mBegin * (byPeroid % 3), "
           "dAmtDebet = dAmtBegin * (byPeroid % 3), dAmtCredit = dAmtBegin * (byPeroid % 3), "
           "mFgnDebet = mFgnBegin * (byPeroid % 3), mFgnCredit = mFgnBegin * (byPeroid % 3);"
           "UPDATE AssAcc SET mDebt = mBegin * (byPeroid % 3), mCredit = mBegin * (byPeroid % 3), "
           "dDebt = dBegin * (byPeroid % 3), dCredit = dBegin * (byPeroid % 3), "
           "mFDebt = mFBegin * (byPeroid % 3), mFCredit = mFBegin * (byPeroid % 3);";
}

}  // namespace chengheng::demo_sql
