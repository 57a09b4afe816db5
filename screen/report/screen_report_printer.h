#pragma once

#include "report/output/report_printer.h"

namespace chengheng {

/// Prints and previews above the window in front. What goes wrong is told through
/// hostMessages().
class ScreenReportPrinter final : public IReportPrinter {
  public:
    void print(const Report& report) override;
    void preview(const Report& report) override;
};

}  // namespace chengheng
