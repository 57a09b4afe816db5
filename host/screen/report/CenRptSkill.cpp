#include "host/screen/report/CenRptSkill.h"

#include "host/screen/report/report_preview.h"
#include "host/screen/report/report_printing.h"
#include "host/services/host_messages.h"
#include "print/report_printer.h"

void CenRptSkill(CReport& report, int mode, QWidget* parent) {
    using chengheng::ReportOutput;
    chengheng::ReportDocument document(report);
    if (mode == static_cast<int>(ReportOutput::print))
        chengheng::printDocument(document, parent, chengheng::hostMessages());
    if (mode == static_cast<int>(ReportOutput::preview))
        chengheng::ReportPreview(document, parent).DoModal();
}
