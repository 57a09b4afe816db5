#pragma once

#include <array>
#include <string>

#include "screen/CNxMiddleDialog.h"

/// The result of a trial balance: debit classes and credit classes, their totals below them, and
/// what comes of it.
class CBalanceTableDlg : public CNxMiddleDialog {
    Q_OBJECT

  public:
    /// What DoModal gives when the operator asked for the likely causes.
    static constexpr int causesWanted = 2;

    /// The texts in the order of the fields: debit classes, credit classes, debit total, credit
    /// total, result. Causes can be asked for when there is something to explain.
    CBalanceTableDlg(const std::array<const std::string*, 5>& texts, bool hasCauses,
                     QWidget* parent = nullptr);

  private:
    void buildControls(const std::array<const std::string*, 5>& texts, bool hasCauses);
};
