#pragma once

#include <memory>
#include <string>
#include <utility>

#include "books/carrying/carry_table.h"
#include "report/output/report_printer.h"
#include "screen/grid/plan_window.h"

namespace chengheng {

/// Shows a table of the carry-forward, which can be printed, and with the preview of its pages
/// written to a file. Accepted when the operator wants done what it shows.
class CarryWindow final : public PlanWindow {
    Q_OBJECT

  public:
    /// Where there is no question there is nothing to do but look.
    CarryWindow(CarryTable table, std::string question, QWidget* parent)
        : CarryWindow(std::make_shared<const CarryTable>(std::move(table)), std::move(question),
                      parent) {}

  protected:
    void apply() override;

  private:
    CarryWindow(std::shared_ptr<const CarryTable> table, std::string question, QWidget* parent);
    void print(ReportOutput output);

    const std::shared_ptr<const CarryTable> m_table;
    const std::string m_question;
};

}  // namespace chengheng
