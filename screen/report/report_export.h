#pragma once

#include <QString>
#include <string>

#include "screen/report/report_document.h"
#include "session/record_change.h"

namespace chengheng {

enum class ExportKind { pdf, xlsx, csv };

/// A file to write a report to, chosen by the operator; empty when they gave it up.
QString askForExportFile(ExportKind kind, const std::string& title, QWidget* parent);

/// Writes a report to a file while windows go on painting; refused when the operator gave it up.
UntoldOutcome exportDocument(ReportDocument& document, ExportKind kind, const std::string& path,
                             QWidget* parent);

}  // namespace chengheng
