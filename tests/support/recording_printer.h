#pragma once

#include <vector>

#include "report/output/report_printer.h"

namespace chengheng {

/// A printer without a screen: keeps every report it was given, in order.
class RecordingPrinter final : public IReportPrinter {
  public:
    void print(const Report& report) override { outputs.push_back({ReportOutput::print, report}); }
    void preview(const Report& report) override {
        outputs.push_back({ReportOutput::preview, report});
    }

    struct Output {
        ReportOutput kind;
        Report report;
    };
    std::vector<Output> outputs;
};

}  // namespace chengheng
