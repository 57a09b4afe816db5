#pragma once

#include <QWidget>

#include "opening/balance/trial_balance.h"

class QLabel;

namespace chengheng {

/// Below the grid: the sums of debits and credits, and the account that the keyboard is on, whose
/// columns may be out of sight.
class OpeningFoot final : public QWidget {
    Q_OBJECT

  public:
    explicit OpeningFoot(QWidget* parent);

    void showTotals(const TrialBalance& totals);
    void showAccount(const OpeningAccount& account);

  private:
    QLabel* addSum(const char* name);

    QLabel* m_debits;
    QLabel* m_credits;
    QLabel* m_difference;
    QLabel* m_account;
};

}  // namespace chengheng
