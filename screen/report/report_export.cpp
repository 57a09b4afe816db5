#include "screen/report/report_export.h"

#include <QFileDialog>
#include <QRegularExpression>
#include <QStandardPaths>

#include "report/output/report_sheet.h"
#include "screen/background_work.h"
#include "screen/report/pdf_writing.h"
#include "screen/report/report_texts.h"
#include "screen/report/work_progress.h"
#include "session/log_notes.h"
#include "session/session_texts.h"
#include "sheets/files/sheet_files.h"

namespace chengheng {
namespace {

struct ExportForm {
    ExportKind kind;
    const char* filter;
    const char* suffix;
};
constexpr ExportForm forms[] = {{ExportKind::pdf, report_texts::pdfFiles, "pdf"},
                                {ExportKind::xlsx, report_texts::xlsxFiles, "xlsx"},
                                {ExportKind::csv, report_texts::csvFiles, "csv"}};

const ExportForm& formOf(ExportKind kind) {
    for (const ExportForm& form : forms)
        if (form.kind == kind) return form;
    return forms[0];
}

/// A title as the name of a file.
QString fileName(const std::string& title, const char* suffix) {
    static const QRegularExpression unfit(QStringLiteral("[/\\\\:*?\"<>|\\x00-\\x1f]"));
    QString name = QString::fromStdString(title).trimmed().replace(unfit, QStringLiteral("_"));
    return name + QLatin1Char('.') + QLatin1String(suffix);
}

UntoldOutcome failed(const SheetFailure& failure) {
    return {Outcome::failed,
            Notice{.text = failure.text(), .icon = MessageIcon::warning, .beep = true}};
}

UntoldOutcome writePages(ReportDocument& document, const std::string& path, QWidget* parent) {
    WorkProgressBox box(report_texts::writing, parent);
    const Status status = writePdf(document, path, Overwrite::replace, box.progress());
    if (status) return UntoldOutcome::done();
    if (status.failure == Failure::cancelled) return {Outcome::refused};
    return failed(whileWriting(status, path));
}

UntoldOutcome writeRows(ReportDocument& document, ExportKind kind, const std::string& path) {
    std::optional<SheetFailure> failure;
    runBesidePainting([&] {
        const Sheet sheet = sheetOf(document.report());
        failure = kind == ExportKind::xlsx ? writeXlsx(sheet, path, Overwrite::replace)
                                           : writeCsv(sheet, path, Overwrite::replace);
    });
    return failure ? failed(*failure) : UntoldOutcome::done();
}

}  // namespace

QString askForExportFile(ExportKind kind, const std::string& title, QWidget* parent) {
    const ExportForm& form = formOf(kind);
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QFileDialog dialog(parent, QString::fromUtf8(report_texts::exportTitle), folder,
                       QString::fromUtf8(form.filter));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QLatin1String(form.suffix));
    dialog.selectFile(fileName(title, form.suffix));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return dialog.selectedFiles().constFirst();
}

UntoldOutcome exportDocument(ReportDocument& document, ExportKind kind, const std::string& path,
                             QWidget* parent) {
    UntoldOutcome outcome = kind == ExportKind::pdf ? writePages(document, path, parent)
                                                    : writeRows(document, kind, path);
    if (outcome.outcome == Outcome::done)
        noteOutput(session_texts::exported, document.report().title(), path);
    return outcome;
}

}  // namespace chengheng
