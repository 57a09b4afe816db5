#pragma once

#include "screen/CNxMiddleDialog.h"
#include "session/function_at_work.h"
#include "vouchertype/preset/preset_pages.h"
#include "vouchertype/preset/preset_service.h"

class QLabel;
class QPushButton;
class QRadioButton;
class QStackedWidget;
class QVBoxLayout;

namespace chengheng {

/// Fills books without voucher types with one of the preset sets, in two pages (凭证类别预置).
class PresetWizard final : public CNxMiddleDialog {
    Q_OBJECT

  public:
    /// What DoModal gives when the wizard was finished.
    static constexpr int finished = 0x3025;

    explicit PresetWizard(QWidget* parent);
    bool OnHelpInfo() override;

  protected:
    bool OnInitDialog() override;

  private:
    QWidget* buildClassifying();
    QWidget* buildWays();
    QWidget* buildButtons();
    QPushButton* addButton(const char* caption, const char* name, void (PresetWizard::*work)());
    QRadioButton* addChoice(QVBoxLayout& column, const char* caption, const char* name);

    void goBack();
    void goOn();
    void finish();
    void cancel() { EndDialog(Rejected); }
    /// Brings the pages to what is chosen in them.
    void follow();
    void showPage();
    void showButtons();
    void showPreview();

    const FunctionAtWork m_atWork;
    PresetPages m_pages;
    PresetService m_service;
    QStackedWidget* m_sheets = nullptr;
    QRadioButton* m_classified = nullptr;
    QList<QRadioButton*> m_ways;  ///< in the order of the sets
    QLabel* m_preview = nullptr;
    QPushButton* m_back = nullptr;
    QPushButton* m_next = nullptr;
    QPushButton* m_finish = nullptr;
};

}  // namespace chengheng
