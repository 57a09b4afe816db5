#pragma once

#include <optional>
#include <string>
#include <vector>

#include "currency/screen/rate_overview.h"
#include "currency/transfer/rate_import.h"
#include "screen/grid/row_plan_window.h"

class QWidget;

namespace chengheng {

/// Many rates at once: from the clipboard, from and to files that the operator chooses, into gaps.
/// What would be written is shown before. Dialogs come up over `window`; the others outlive it.
class RateTransfer {
  public:
    RateTransfer(CurrencyForm& form, RateOverview& overview, IMessages& messages, QWidget& window)
        : m_form(form), m_overview(overview), m_messages(messages), m_window(window) {}

    // The row of the grid to go to; nothing where no rates of the shown currency were written.
    /// From a cell of the grid on, unless the clipboard says of which days they are.
    std::optional<int> paste(const RateCell& cell);
    std::optional<int> importFile();
    std::optional<int> fillGaps();
    void exportFile();

  private:
    std::optional<int> importShown(RateImport& import, const RatePlan& plan, const char* title,
                                   const std::string& source, const std::string& file);
    /// Shows what would be written and writes it when the operator says so.
    std::optional<int> applyShown(const RowPlanWords& shown, const RowPlan& plan,
                                  const std::string& file, const RowPlanWindow::Apply& apply,
                                  const std::vector<RateChange>& changes);
    int currencyId() const;

    CurrencyForm& m_form;
    RateOverview& m_overview;
    IMessages& m_messages;
    QWidget& m_window;
};

}  // namespace chengheng
