#include "data/lookups/one_cell.h"

namespace chengheng {

OneCell readOneCell(CNbCwDB& database, std::string_view select) {
    char** cells = nullptr;
    int columnCount = 0;
    int rowCount = 0;
    if (database.QRYGetData(select, cells, columnCount, rowCount) != 0) return {};
    OneCell cell{.text = std::nullopt, .isRead = true};
    if (cells != nullptr && columnCount > 0 && rowCount > 0)
        cell.text = cells[0] == nullptr ? "" : cells[0];
    database.QRYReleaseBuffer(cells, columnCount, rowCount);
    return cell;
}

}  // namespace chengheng
