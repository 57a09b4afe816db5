#pragma once

#include <vector>

#include "operators/screen/division_screen.h"
#include "screen/CNxMiddleDialog.h"

class QComboBox;
class QLabel;

namespace chengheng {

/// Chooses rights to be given as a whole, and shows what they would add and take.
class GiveRightsWindow final : public CNxMiddleDialog {
    Q_OBJECT

  public:
    /// The operator outlives the window.
    GiveRightsWindow(const OperatorRecord& record, std::vector<RightsSource> sources,
                     QWidget* parent);

    const OperatorRights& rights() const;

  private:
    void showPreview();

    const OperatorRecord& m_record;
    const std::vector<RightsSource> m_sources;
    QComboBox* m_choice = nullptr;
    QLabel* m_preview = nullptr;
};

}  // namespace chengheng
