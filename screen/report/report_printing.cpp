#include "screen/report/report_printing.h"

#include <QPrintDialog>
#include <QPrinter>
#include <algorithm>
#include <numeric>

#include "report/layout/layout_settings.h"
#include "screen/report/pdf_writing.h"
#include "screen/report/report_paper.h"
#include "screen/report/report_texts.h"
#include "screen/report/work_progress.h"
#include "screen/screen_texts.h"
#include "sheets/sheet_failure.h"

namespace chengheng {
namespace {

void setUp(QPrinter& printer, const ReportDocument& document) {
    printer.setDocName(QString::fromStdString(document.report().title()));
    printer.setCreator(QString::fromUtf8(screen_texts::productName));
    printer.setPageLayout(paperOf(document.report().layout()));
    printer.setFullPage(true);
}

bool askForPrinter(QPrinter& printer, const ReportDocument& document, QWidget* parent) {
    QPrintDialog dialog(&printer, parent);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    dialog.setMinMax(1, static_cast<int>(document.pages().pageCount()));
    return dialog.exec() == QDialog::Accepted;
}

/// Sends pages to the printer; what failed, empty when nothing did. A printer that writes a PDF
/// file writes the one that can be searched.
std::string put(const ReportDocument& document, QPrinter& printer,
                std::span<const std::size_t> pages, const WorkProgress& progress) {
    if (printer.outputFormat() == QPrinter::PdfFormat && !printer.outputFileName().isEmpty()) {
        const std::string path = printer.outputFileName().toStdString();
        const Status status = writePdf(document, pages, path, Overwrite::replace, progress);
        const bool isFailed = !status && status.failure != Failure::cancelled;
        return isFailed ? whileWriting(status, path).text() : std::string();
    }
    const bool isPrinted =
        document.paintPages(printer, pages, progress) && printer.printerState() != QPrinter::Error;
    if (!isPrinted) printer.abort();
    return isPrinted ? std::string() : report_texts::printFailed;
}

}  // namespace

std::vector<std::size_t> wantedPages(const QPrinter& printer, std::size_t pageCount,
                                     std::size_t currentPage) {
    std::size_t first = 0;
    std::size_t end = pageCount;
    if (printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0) {
        first = std::min(static_cast<std::size_t>(printer.fromPage() - 1), pageCount);
        end = std::min(static_cast<std::size_t>(std::max(printer.toPage(), 0)), pageCount);
    } else if (printer.printRange() == QPrinter::CurrentPage) {
        first = std::min(currentPage, pageCount);
        end = std::min(currentPage + 1, pageCount);
    }
    std::vector<std::size_t> once(first < end ? end - first : 0);
    std::iota(once.begin(), once.end(), first);
    if (printer.pageOrder() == QPrinter::LastPageFirst) std::ranges::reverse(once);
    const int copies = printer.supportsMultipleCopies() ? 1 : std::max(printer.copyCount(), 1);
    std::vector<std::size_t> pages;
    for (int copy = 0; copy < copies; ++copy) pages.insert(pages.end(), once.begin(), once.end());
    if (!printer.collateCopies())
        std::ranges::stable_sort(pages, {}, [&](std::size_t page) {
            return printer.pageOrder() == QPrinter::LastPageFirst ? pageCount - page : page;
        });
    return pages;
}

namespace {

bool layOutAll(ReportDocument& document, QWidget* parent) {
    WorkProgressBox box(report_texts::layingOutAll, parent);
    return document.layOutAll(box.progress());
}

/// Paper, direction and margins chosen in the printer's properties hold for the pages; false
/// when they leave no room, which has been told, or the laying out was given up.
bool takeProperties(ReportDocument& document, const QPrinter& printer, QWidget* parent,
                    IMessages& messages) {
    const ReportLayout chosen = onPaper(document.report().layout(), printer.pageLayout());
    if (chosen == document.report().layout()) return true;
    if (!hasRoomForTable(chosen)) {
        messages.tell(
            {.text = report_texts::noRoomOnPaper, .icon = MessageIcon::warning, .beep = true});
        return false;
    }
    document.useLayout(chosen);
    return layOutAll(document, parent);
}

}  // namespace

bool printDocument(ReportDocument& document, QWidget* parent, IMessages& messages) {
    if (!layOutAll(document, parent)) return false;
    QPrinter printer(QPrinter::HighResolution);
    setUp(printer, document);
    if (!askForPrinter(printer, document, parent) ||
        !takeProperties(document, printer, parent, messages))
        return false;
    setUp(printer, document);
    const auto pages = wantedPages(printer, document.pages().pageCount());
    if (pages.empty()) return false;
    WorkProgressBox box(report_texts::printing, parent);
    const std::string failure = put(document, printer, pages, box.progress());
    const bool isCancelled = box.isCancelled();
    box.close();
    if (isCancelled) messages.tell({.text = report_texts::printCancelled});
    if (!isCancelled && !failure.empty())
        messages.tell({.text = failure, .icon = MessageIcon::warning, .beep = true});
    return !isCancelled && failure.empty();
}

}  // namespace chengheng
