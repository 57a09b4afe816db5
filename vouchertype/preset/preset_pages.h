#pragma once

#include "vouchertype/preset/preset_table.h"

namespace chengheng {

/// The two pages of the wizard of preset voucher types, without a screen: which one is shown, what
/// is chosen and which button is there. Without classification the first page is the last.
class PresetPages {
  public:
    /// What is chosen on the two pages; the window writes it.
    bool isClassified = true;
    PresetSet way = PresetSet::receiptsAndPayments;

    int page() const { return m_page; }
    bool canGoBack() const { return m_page == 2; }
    bool canGoOn() const { return m_page == 1 && isClassified; }
    bool canFinish() const { return !canGoOn(); }
    void goBack() { m_page = 1; }
    void goOn() {
        if (canGoOn()) m_page = 2;
    }
    /// What finishing writes.
    PresetSet chosen() const { return m_page == 2 ? way : PresetSet::unclassified; }

  private:
    int m_page = 1;
};

}  // namespace chengheng
