#include "host/screen/report/pdf_writing.h"

#include <QFile>
#include <QPdfWriter>
#include <numeric>
#include <vector>

#include "data/platform/staged_file.h"
#include "host/screen/report/pdf_texts.h"
#include "host/screen/screen_texts.h"

namespace chengheng {
namespace {

constexpr int dotsPerInch = 1200;

QString titleOf(const CReport& report) { return QString::fromStdString(report.title()); }

/// Why the system did not take the file's bytes.
Status statusOf(const QFile& file) {
    const bool isFull =
        file.error() == QFileDevice::ResourceError || file.error() == QFileDevice::WriteError;
    return Status::of(isFull ? Failure::full : Failure::refused, file.errorString().toStdString());
}

ReadableCodes codesOf(const ReportDocument& document) {
    std::vector<QFont> fonts;
    for (const LayoutFont& font : document.report().layout().fonts)
        fonts.push_back(paperFont(font));
    return readableCodes(fonts);
}

bool paintInto(QFile& file, const ReportDocument& document, std::span<const std::size_t> pages,
               const WorkProgress& progress) {
    QPdfWriter writer(&file);
    writer.setResolution(dotsPerInch);
    writer.setPageLayout(document.paper());
    writer.setTitle(titleOf(document.report()));
    writer.setCreator(QString::fromUtf8(screen_texts::productName));
    return document.paintPages(writer, pages, progress);
}

}  // namespace

PdfOutcome writePdf(const ReportDocument& document, std::span<const std::size_t> pages,
                    const std::string& path, const WorkProgress& progress, SheetFailure& failure) {
    bool isCancelled = false;
    const auto watched = [&](std::size_t done, std::size_t all) {
        isCancelled = isCancelled || !progress(done, all);
        return !isCancelled;
    };
    StagedFile staged(path);
    Status status = staged.status();
    const std::string painted = staged.path() + ".painted";
    if (status) {
        QFile file(QString::fromStdString(painted));
        bool isPainted =
            file.open(QIODevice::WriteOnly) && paintInto(file, document, pages, watched);
        if (isCancelled) return PdfOutcome::cancelled;
        isPainted = isPainted && file.flush() && file.error() == QFileDevice::NoError;
        if (!isPainted) status = statusOf(file);
    }
    if (status) status = copyWithReadableTexts(painted, staged.path(), codesOf(document));
    if (status) status = staged.place(true);
    if (status) return PdfOutcome::written;
    failure = whileWriting(status, path);
    return PdfOutcome::failed;
}

PdfOutcome writePdf(ReportDocument& document, const std::string& path, const WorkProgress& progress,
                    SheetFailure& failure) {
    if (!document.layOutAll(progress)) return PdfOutcome::cancelled;
    std::vector<std::size_t> pages(document.pages().pageCount());
    std::iota(pages.begin(), pages.end(), std::size_t{0});
    return writePdf(document, pages, path, progress, failure);
}

}  // namespace chengheng
