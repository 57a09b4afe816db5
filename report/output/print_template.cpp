#include "report/output/print_template.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <string_view>

#include "data/access/CNbCwDB.h"
#include "data/tables/printing.h"
#include "report/engine/print_refusal.h"
#include "report/engine/print_texts.h"
#include "report/output/print_sql.h"
#include "session/host_globals.h"
#include "session/last_failure.h"

namespace chengheng {
namespace {

constexpr int widestColumn = 255;

Refusal missing(std::int32_t number) {
    return printRefusal(fmt::format(print_texts::templateMissing, number));
}

/// Nothing was read: because there is nothing, or because the database failed.
Refusal unread(std::int32_t number) {
    const Status& status = g_pDB->lastStatus();
    if (status || status.failure == Failure::missing) return missing(number);
    return printRefusal(fmt::format(print_texts::templateUnreadable, number, lastFailureText()));
}

/// The number a decimal text begins with; 0 when it begins with none.
int numberOf(std::string_view text) {
    int value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return std::clamp(value, 0, widestColumn);
}

/// The cells of a select, given back with the end of the reading.
class SelectedCells {
  public:
    explicit SelectedCells(const std::string& select) {
        m_isRead = g_pDB->QRYGetData(select, m_cells, m_columns, m_rows) == 0;
    }
    ~SelectedCells() {
        if (m_isRead) g_pDB->QRYReleaseBuffer(m_cells, m_columns, m_rows);
    }
    SelectedCells(const SelectedCells&) = delete;
    SelectedCells& operator=(const SelectedCells&) = delete;

    bool isRead() const { return m_isRead; }
    int rows() const { return m_rows; }
    /// Empty for an absent cell.
    std::string_view at(int row, int column) const {
        const char* cell = m_cells[row * m_columns + column];
        return cell == nullptr ? std::string_view() : std::string_view(cell);
    }

  private:
    char** m_cells = nullptr;
    int m_columns = 0;
    int m_rows = 0;
    bool m_isRead = false;
};

/// Header of the template; its buffer is released before this returns.
bool readHeader(std::int32_t number, Report& report) {
    _ZWPrintMainInfo* header = nullptr;
    if (g_pDB->ZWPrintMain_GetInfo(header, number) != 0) return false;
    if (header != nullptr) {
        report.title = header->sTitle;
        report.page = {.paper = header->byPage, .isPortrait = header->bPortrait != 0};
    }
    const bool isFound = header != nullptr;
    g_pDB->ZWPrintMain_ReleaseAllBuffer();
    return isFound;
}

}  // namespace

std::optional<Refusal> readPrintTemplate(std::int32_t number, ColumnSource source, Report& report) {
    report = {};
    if (!readHeader(number, report)) return unread(number);
    const bool hasFields = source == ColumnSource::field;
    const SelectedCells cells(hasFields ? print_sql::fieldColumnsOf(number)
                                        : print_sql::columnsOf(number));
    if (!cells.isRead()) return unread(number);
    for (int row = 0; row < cells.rows(); ++row) {
        ReportColumn column;
        column.heading = cells.at(row, 0);
        if (hasFields) column.field = cells.at(row, 1);
        column.width = numberOf(cells.at(row, hasFields ? 2 : 1));
        report.columns.push_back(std::move(column));
    }
    if (report.columns.empty()) return missing(number);
    return std::nullopt;
}

}  // namespace chengheng
