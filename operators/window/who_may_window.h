#pragma once

#include "forms/leaf_list.h"
#include "operators/screen/division_screen.h"
#include "screen/CNxMiddleDialog.h"

class QLabel;
class QLineEdit;
class QListView;

namespace chengheng {
class LeafModel;

/// Looks for a function among all and shows who may use it.
class WhoMayWindow final : public CNxMiddleDialog {
    Q_OBJECT

  public:
    /// The screen outlives the window.
    WhoMayWindow(const DivisionScreen& screen, QWidget* parent);

  protected:
    void OnOK() override;

  private:
    void filter();
    void showOperators();

    const DivisionScreen& m_screen;
    LeafList m_functions;
    LeafModel* m_model = nullptr;
    QLineEdit* m_search = nullptr;
    QListView* m_list = nullptr;
    QLabel* m_operators = nullptr;
};

}  // namespace chengheng
