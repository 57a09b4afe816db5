#pragma once

#include <span>

#include "base/system/output_target.h"
#include "base/values/status.h"
#include "screen/report/report_document.h"

namespace chengheng {

/// Writes pages, counted from 0, as a PDF file with fonts embedded and texts that can be searched.
/// A file that was there already is replaced as a whole, or not touched; whileWriting() has the
/// words for why.
Status writePdf(const ReportDocument& document, std::span<const std::size_t> pages,
                const std::string& path, Overwrite overwrite, const WorkProgress& progress);

/// The same with all pages of the document, which is laid out before.
Status writePdf(ReportDocument& document, const std::string& path, Overwrite overwrite,
                const WorkProgress& progress);

}  // namespace chengheng
