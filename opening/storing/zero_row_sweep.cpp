#include "opening/storing/zero_row_sweep.h"

#include <string>
#include <string_view>
#include <vector>

#include "data/access/selected_cells.h"
#include "opening/storing/opening_sql.h"

namespace chengheng {
namespace {

Status run(CNbCwDB& database, const std::string& batch) {
    if (batch.empty() || database.QRYExecuteSQL(batch) != 0) return Status::done();
    return database.lastStatus();
}

struct ToSweep {
    bool hasSums = false;
    bool hasAuxiliary = false;
};

Status findToSweep(CNbCwDB& database, ToSweep& found) {
    const SelectedCells answer(database, opening_sql::isAnythingToSweep());
    if (!answer.isRead()) return database.lastStatus();
    found.hasSums = answer.text(0, 0) == "1";
    found.hasAuxiliary = answer.text(0, 1) == "1";
    return Status::done();
}

Status sweepAccounts(CNbCwDB& database) {
    std::string batch;
    {
        const SelectedCells sizes(database, opening_sql::sumSizes);
        if (!sizes.isRead()) return database.lastStatus();
        std::vector<std::string_view> ids;
        for (int row = 0; row < sizes.rows(); ++row)
            if (sizes.text(row, 0) == "0") ids.push_back(sizes.text(row, 1));
        if (!ids.empty()) batch = opening_sql::deleteSumsOfAccounts(ids);
    }
    return run(database, batch);
}

Status sweepAuxiliary(CNbCwDB& database) {
    std::string batch;
    {
        const SelectedCells sizes(database, opening_sql::auxiliarySizes);
        if (!sizes.isRead()) return database.lastStatus();
        for (int row = 0; row < sizes.rows(); ++row)
            if (sizes.text(row, 0) == "0")
                opening_sql::deleteAuxiliary(
                    batch, {sizes.text(row, 1), sizes.text(row, 2), sizes.text(row, 3),
                            sizes.cell(row, 4), sizes.text(row, 5), sizes.text(row, 6)});
    }
    return run(database, batch);
}

}  // namespace

Status sweepZeroRows(CNbCwDB& database) {
    ToSweep tables;
    Status status = findToSweep(database, tables);
    if (status && tables.hasSums) status = sweepAccounts(database);
    if (status && tables.hasAuxiliary) status = sweepAuxiliary(database);
    return status;
}

}  // namespace chengheng
