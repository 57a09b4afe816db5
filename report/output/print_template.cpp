#include "report/output/print_template.h"

#include <fmt/format.h>

#include <algorithm>

#include "data/access/selected_cells.h"
#include "data/tables/printing.h"
#include "report/engine/print_texts.h"
#include "report/layout/print_refusal.h"
#include "report/output/print_sql.h"
#include "report/output/print_templates.h"
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

/// Books that were made before a list had a template print it by that of the program.
bool takeOwnTemplate(std::int32_t number, ColumnSource source, Report& report) {
    const bool isLater = number >= firstLaterTemplate;
    if (!isLater || g_pDB->lastStatus().failure != Failure::missing) return false;
    const auto found = std::ranges::find(printTemplates(), number, &PrintTemplate::number);
    if (found == printTemplates().end()) return false;
    report.title = found->title;
    report.page = {.paper = found->paper, .isPortrait = found->isPortrait};
    for (const TemplateColumn& column : found->columns) {
        report.columns.emplace_back();
        report.columns.back().heading = column.heading;
        if (source == ColumnSource::field) report.columns.back().field = column.field;
        report.columns.back().width = column.width;
    }
    return true;
}

}  // namespace

std::optional<Refusal> readPrintTemplate(std::int32_t number, ColumnSource source, Report& report) {
    report = {};
    if (!readHeader(number, report)) {
        if (takeOwnTemplate(number, source, report)) return std::nullopt;
        return unread(number);
    }
    const bool hasFields = source == ColumnSource::field;
    const SelectedCells cells(
        *g_pDB, hasFields ? print_sql::fieldColumnsOf(number) : print_sql::columnsOf(number));
    if (!cells.isRead()) return unread(number);
    for (int row = 0; row < cells.rows(); ++row) {
        ReportColumn column;
        column.heading = cells.text(row, 0);
        if (hasFields) column.field = cells.text(row, 1);
        column.width = std::clamp(cells.number<int>(row, hasFields ? 2 : 1), 0, widestColumn);
        report.columns.push_back(std::move(column));
    }
    if (report.columns.empty()) return missing(number);
    return std::nullopt;
}

}  // namespace chengheng
