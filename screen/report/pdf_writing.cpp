#include "screen/report/pdf_writing.h"

#include <QBuffer>
#include <QPdfWriter>
#include <numeric>
#include <vector>

#include "base/system/staged_file.h"
#include "screen/report/pdf_texts.h"
#include "screen/report/report_paper.h"
#include "screen/report/report_texts.h"
#include "screen/screen_texts.h"

namespace chengheng {
namespace {

constexpr int dotsPerInch = 1200;

QString titleOf(const CReport& report) { return QString::fromStdString(report.title()); }

ReadableCodes codesOf(const ReportDocument& document) {
    std::vector<QFont> fonts;
    for (const LayoutFont& font : document.report().layout().fonts)
        fonts.push_back(paperFont(font));
    return readableCodes(fonts);
}

/// The toolkit tells nobody when a file does not take its bytes, so it paints into memory.
bool paintInto(std::string& pdf, const ReportDocument& document, std::span<const std::size_t> pages,
               const WorkProgress& progress) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(dotsPerInch);
    writer.setPageLayout(paperOf(document.report().layout()));
    writer.setTitle(titleOf(document.report()));
    writer.setCreator(QString::fromUtf8(screen_texts::productName));
    const bool isPainted = document.paintPages(writer, pages, progress);
    pdf = buffer.data().toStdString();
    return isPainted;
}

}  // namespace

Status writePdf(const ReportDocument& document, std::span<const std::size_t> pages,
                const std::string& path, Overwrite overwrite, const WorkProgress& progress) {
    bool isCancelled = false;
    const auto watched = [&](std::size_t done, std::size_t all) {
        isCancelled = isCancelled || !progress(done, all);
        return !isCancelled;
    };
    StagedFile staged(path, overwrite);
    Status status = staged.status();
    std::string pdf;
    if (status && !paintInto(pdf, document, pages, watched))
        status = Status::of(Failure::damaged, report_texts::notPainted);
    if (isCancelled) return Status::of(Failure::cancelled);
    if (status) status = makeTextsReadable(pdf, codesOf(document));
    if (status) status = staged.write(pdf);
    if (status) status = staged.place();
    return status;
}

Status writePdf(ReportDocument& document, const std::string& path, Overwrite overwrite,
                const WorkProgress& progress) {
    if (!document.layOutAll(progress)) return Status::of(Failure::cancelled);
    std::vector<std::size_t> pages(document.pages().pageCount());
    std::iota(pages.begin(), pages.end(), std::size_t{0});
    return writePdf(document, pages, path, overwrite, progress);
}

}  // namespace chengheng
