#pragma once

#include <span>

#include "screen/report/report_document.h"
#include "sheets/sheet_failure.h"

namespace chengheng {

/// How writing a PDF file ended. A file that was there already is replaced as a whole, or not
/// touched.
enum class PdfOutcome { written, cancelled, failed };

/// Writes pages, counted from 0, with fonts embedded and texts that can be searched. After
/// `failed`, the failure says why.
PdfOutcome writePdf(const ReportDocument& document, std::span<const std::size_t> pages,
                    const std::string& path, const WorkProgress& progress, SheetFailure& failure);

/// The same with all pages of the document, which is laid out before.
PdfOutcome writePdf(ReportDocument& document, const std::string& path, const WorkProgress& progress,
                    SheetFailure& failure);

}  // namespace chengheng
