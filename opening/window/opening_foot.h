#pragma once

#include <QWidget>

#include "opening/balance/trial_balance.h"

class QLabel;
class QLayout;

namespace chengheng {

/// Below the grid: the sums of debits and credits, and the account that the keyboard is on, whose
/// columns may be out of sight. Below these, what there is to say of the last edit.
class OpeningFoot final : public QWidget {
    Q_OBJECT

  public:
    explicit OpeningFoot(QWidget* parent);

    void showTotals(const TrialBalance& totals);
    void showAccount(const OpeningAccount& account);
    /// A line of its own, which keeps its place while it is empty.
    /// One on a success is no warning and does not look like one.
    void showRemark(const std::string& remark, bool isOnSuccess);

  private:
    QLabel* addSum(QLayout& line, const char* name);

    QLabel* m_debits;
    QLabel* m_credits;
    QLabel* m_difference;
    QLabel* m_account;
    QLabel* m_remark;
};

}  // namespace chengheng
