#include "session/rights/new_password_mark.h"

#include <array>

#include "data/connection/database.h"
#include "data/layout/layout_steps.h"
#include "session/rights/new_password_sql.h"

namespace chengheng {

Status readNewPasswordMark(CNbCwDB& books, std::int32_t operatorId, bool& isWanted) {
    isWanted = false;
    return books.onSelected([&](Database& database) {
        if (columnsMissingFrom(database.layout(), "LogonTries").contains("bNewPassword"))
            return Status::done();
        const std::array values{Value::of(std::int64_t{operatorId})};
        return database.selectPlain(new_password_sql::readMark, values, [&](Cursor& cursor) {
            if (cursor.next() == Cursor::Step::row) isWanted = cursor.integer(0) != 0;
            return cursor.status();
        });
    });
}

Status writeNewPasswordMark(CNbCwDB& books, std::int32_t operatorId, bool isWanted) {
    return books.onSelected([&](Database& database) {
        const std::array values{Value::of(std::int64_t{operatorId}),
                                Value::of(std::int64_t{isWanted ? 1 : 0})};
        return database.executePlain(new_password_sql::writeMark, values);
    });
}

}  // namespace chengheng
