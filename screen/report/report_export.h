#pragma once

#include <QString>
#include <string>

#include "screen/report/report_document.h"
#include "sheets/sheet_failure.h"

namespace chengheng {

enum class ExportKind { pdf, xlsx, csv };
enum class ExportOutcome { written, cancelled, failed };

/// A file to write a report to, chosen by the operator; empty when they gave it up.
QString askForExportFile(ExportKind kind, const std::string& title, QWidget* parent);

/// Writes a report to a file while windows go on painting. After `failed`, the failure says why.
ExportOutcome exportDocument(ReportDocument& document, ExportKind kind, const std::string& path,
                             QWidget* parent, SheetFailure& failure);

}  // namespace chengheng
