#pragma once

#include "base/messages/messages.h"
#include "screen/report/report_document.h"

class QPrinter;

namespace chengheng {

/// Asks for a printer, pages and copies, and prints; other paper than the document's is taken
/// over into it. False when the operator gave it up or it failed, which has been told.
bool printDocument(ReportDocument& document, QWidget* parent, IMessages& messages);

/// The pages that a printer's settings ask for, in their order, counted from 0; copies too
/// where the printer does not make them itself.
std::vector<std::size_t> wantedPages(const QPrinter& printer, std::size_t pageCount,
                                     std::size_t currentPage = 0);

}  // namespace chengheng
