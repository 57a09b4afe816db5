#pragma once

#include "report/layout/report.h"

namespace chengheng {

/// What is done with a report. The numbers are those of CenRptSkill.
enum class ReportOutput { print = 0, preview = 1 };

/// Prints and previews reports. With none installed, a report cannot be printed and the
/// operator is told so.
class IReportPrinter {
  public:
    virtual ~IReportPrinter() = default;
    /// Asks for a printer and prints.
    virtual void print(const Report& report) = 0;
    /// Shows the pages until the operator closes them.
    virtual void preview(const Report& report) = 0;

    /// The same, told in the operation log.
    void put(const Report& report, ReportOutput output);
};

/// The printer of the host's screen. Windows are given nothing but a parent, so it is asked
/// for here.
IReportPrinter& hostReportPrinter();

/// Installs a printer for as long as it lives; afterwards the one before serves again. It is
/// not owned.
class HostReportPrinter {
  public:
    explicit HostReportPrinter(IReportPrinter& printer);
    ~HostReportPrinter();
    HostReportPrinter(const HostReportPrinter&) = delete;
    HostReportPrinter& operator=(const HostReportPrinter&) = delete;

  private:
    IReportPrinter* m_before;
};

}  // namespace chengheng
