#pragma once

#include "currency/screen/rate_overview.h"
#include "currency/transfer/rate_import.h"

class QWidget;

namespace chengheng {

/// Many rates at once: from the clipboard, from and to files that the operator chooses, into gaps.
/// What would be written is shown before. Dialogs come up over `window`; the others outlive it.
class RateTransfer {
  public:
    RateTransfer(CurrencyForm& form, RateOverview& overview, IMessages& messages, QWidget& window)
        : m_form(form), m_overview(overview), m_messages(messages), m_window(window) {}

    // Whether rates were written.
    /// From a cell of the grid on, unless the clipboard says of which days they are.
    bool paste(const RateCell& cell);
    bool importFile();
    bool fillGaps();
    void exportFile();

  private:
    bool applyShown(RateImport& import, const RatePlan& plan, const char* title,
                    const std::string& source, const std::string& file);
    int currencyId() const;

    CurrencyForm& m_form;
    RateOverview& m_overview;
    IMessages& m_messages;
    QWidget& m_window;
};

}  // namespace chengheng
