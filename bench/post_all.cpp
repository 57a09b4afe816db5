#include "bench/post_all.h"

#include "bench/timing.h"
#include "data/access/unit_of_work.h"
#include "data/sql/sql_format.h"

namespace bench {

void postAll(CNbCwDB& database, int accounts) {
    chengheng::UnitOfWork unit(database);
    require(unit.isOpen(), "beginning the unit of work");
    std::string batch;
    for (int account = 1; account <= accounts; ++account) {
        const int last = database.AccSum_GetLastId();
        batch.clear();
        for (int period = 1; period <= 12; ++period)
            chengheng::appendSql(batch,
                                 "INSERT AccSum Values( %d, %d, %d, %lf, 0.00, 0.00, %lf, 0.00, "
                                 "0.00, %lf, 0.00, 0.00 )\n",
                                 last + period, account, period, account * 1.25, account * 0.5,
                                 account * 0.25);
        chengheng::appendSql(batch, "Update ABIdTable Set lLastId = %d Where sTable = 'AccSum'",
                             last + 12);
        require(database.QRYExecuteSQL(batch) != 0, "the batch of an account");
    }
    require(unit.commit().isDone(), "committing the unit of work");
}

}  // namespace bench
