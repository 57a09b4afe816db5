#include "report/engine/report_run.h"

#include <fmt/format.h>

#include "report/layout/layout_settings.h"
#include "report/layout/layout_texts.h"
#include "report/layout/print_refusal.h"
#include "session/GetPrintFile.h"

namespace chengheng {
namespace {

/// Headings, widths and cells of a report as the engine takes them. The report outlives them.
struct ReportArrays {
    explicit ReportArrays(const Report& report) {
        for (const ReportColumn& column : report.columns) {
            headings.push_back(column.heading.c_str());
            widths.push_back(column.width);
            alignments.push_back(column.alignment);
        }
        cells.reserve(report.cells.size());
        for (const ReportCell& cell : report.cells) cells.push_back(cell ? cell->c_str() : nullptr);
    }

    std::vector<const char*> headings;
    std::vector<int> widths;
    std::vector<Alignment> alignments;
    std::vector<const char*> cells;
};

Refusal withBeep(Refusal refusal) {
    refusal.notice.beep = true;
    return refusal;
}

}  // namespace

std::optional<Refusal> runReport(const Report& report,
                                 const std::function<void(CReport& report)>& put) {
    const ReportArrays arrays(report);
    const std::string layoutFile = GetPrintFile(report.layoutFile.c_str());
    CReport engine;
    const int result = engine.StructTheRpt(
        layoutFile.c_str(), arrays.cells.data(), static_cast<int>(arrays.cells.size()),
        static_cast<int>(arrays.headings.size()), arrays.headings.data(), arrays.widths.data(), 0);
    if (result != 0) return withBeep(printRefusal(engine.fault()));
    ReportExtension& extension = StructRPTExt(engine);
    extension.page = {.byPaper = report.page.paper,
                      .bSetting = report.page.isPortrait ? uprightPage : turnedPage,
                      .bFit = 1};
    extension.alignments = arrays.alignments;
    extension.lines = report.lines;
    extension.keyColumn = report.keyColumn;
    extension.facts = report.facts;
    _SetColWordAlign(1, 0);
    engine.setHeadingLine(0, "");
    engine.setHeadingLine(1, report.title);
    engine.setHeadingLine(2, "");
    StructRPTExt(engine);
    // The file has room on its own paper; the template may name a smaller one.
    if (!hasRoomForTable(engine.layout()))
        return withBeep(printRefusal(fmt::format(layout_texts::noRoomOnPaper, layoutFile)));
    put(engine);
    return std::nullopt;
}

}  // namespace chengheng
