#pragma once

#include <optional>
#include <vector>

#include "opening/balance/imbalance_causes.h"
#include "screen/CNxMiddleDialog.h"

class QListView;
class QPushButton;

namespace chengheng {

/// Lists what may keep the books from balancing, the likeliest first. Accepted when the
/// operator wants to go to the account of the current one.
class CausesWindow final : public CNxMiddleDialog {
    Q_OBJECT

  public:
    CausesWindow(double difference, std::vector<ImbalanceCause> causes, QWidget* parent);

    /// The place of the account that the current cause is about; nothing when it is about none.
    std::optional<std::size_t> chosenPlace() const;

  protected:
    void OnOK() override;

  private:
    void buildControls(double difference);

    std::vector<ImbalanceCause> m_causes;
    QListView* m_list = nullptr;
    QPushButton* m_goes = nullptr;
};

}  // namespace chengheng
