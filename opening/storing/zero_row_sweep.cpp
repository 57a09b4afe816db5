#include "opening/storing/zero_row_sweep.h"

#include <string>
#include <string_view>
#include <vector>

#include "opening/storing/opening_sql.h"

namespace chengheng {
namespace {

/// The cells of a select while this lives.
class TextCells {
  public:
    TextCells(CNbCwDB& database, const char* select) : m_database(database) {
        m_isRead = database.QRYGetData(select, m_cells, m_columns, m_rows) == 0;
    }
    ~TextCells() {
        if (m_isRead) m_database.QRYReleaseBuffer(m_cells, m_columns, m_rows);
    }
    TextCells(const TextCells&) = delete;
    TextCells& operator=(const TextCells&) = delete;

    bool isRead() const { return m_isRead; }
    int rows() const { return m_rows; }
    const char* cell(int row, int column) const { return m_cells[row * m_columns + column]; }

  private:
    CNbCwDB& m_database;
    char** m_cells = nullptr;
    int m_columns = 0;
    int m_rows = 0;
    bool m_isRead = false;
};

bool isZero(const char* cell) { return cell != nullptr && std::string_view(cell) == "0"; }

std::string_view textOf(const char* cell) { return cell == nullptr ? std::string_view() : cell; }

Status run(CNbCwDB& database, const std::string& batch) {
    if (batch.empty() || database.QRYExecuteSQL(batch) != 0) return Status::done();
    return database.lastStatus();
}

Status sweepAccounts(CNbCwDB& database) {
    std::string batch;
    {
        const TextCells sizes(database, opening_sql::sumSizes);
        if (!sizes.isRead()) return database.lastStatus();
        std::vector<std::string_view> ids;
        for (int row = 0; row < sizes.rows(); ++row)
            if (isZero(sizes.cell(row, 0))) ids.push_back(textOf(sizes.cell(row, 1)));
        if (!ids.empty()) batch = opening_sql::deleteSumsOfAccounts(ids);
    }
    return run(database, batch);
}

Status sweepAuxiliary(CNbCwDB& database) {
    std::string batch;
    {
        const TextCells sizes(database, opening_sql::auxiliarySizes);
        if (!sizes.isRead()) return database.lastStatus();
        for (int row = 0; row < sizes.rows(); ++row)
            if (isZero(sizes.cell(row, 0)))
                opening_sql::deleteAuxiliary(
                    batch, {textOf(sizes.cell(row, 1)), textOf(sizes.cell(row, 2)),
                            textOf(sizes.cell(row, 3)), sizes.cell(row, 4),
                            textOf(sizes.cell(row, 5)), textOf(sizes.cell(row, 6))});
    }
    return run(database, batch);
}

}  // namespace

Status sweepZeroRows(CNbCwDB& database) {
    const Status status = sweepAccounts(database);
    return status ? sweepAuxiliary(database) : status;
}

}  // namespace chengheng
