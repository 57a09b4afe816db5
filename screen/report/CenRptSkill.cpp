#include "screen/report/CenRptSkill.h"

#include "report/output/report_printer.h"
#include "screen/report/report_preview.h"
#include "screen/report/report_printing.h"
#include "session/host_messages.h"

void CenRptSkill(CReport& report, int mode, QWidget* parent) {
    using chengheng::ReportOutput;
    chengheng::ReportDocument document(report);
    if (mode == static_cast<int>(ReportOutput::print))
        chengheng::printDocument(document, parent, chengheng::hostMessages());
    if (mode == static_cast<int>(ReportOutput::preview))
        chengheng::ReportPreview(document, parent).DoModal();
}
