#pragma once

#include <array>

#include "screen/forms/list_form_dialog.h"
#include "vouchertype/voucher_type_form.h"

class QButtonGroup;
class QCheckBox;
class QPushButton;
class QTabWidget;

namespace chengheng {
class TrialPane;

/// The voucher types (凭证类别), and on a page beside their fields a tester of vouchers.
class VoucherTypeWindow final : public ListFormDialog {
    Q_OBJECT

  public:
    explicit VoucherTypeWindow(QWidget* parent = nullptr);
    /// Reads the host's cache of voucher types again.
    ~VoucherTypeWindow() override;

  protected:
    ListForm& form() override { return m_form; }
    QWidget* arrangeForm(QWidget* fields) override;
    void addFields() override;
    void showFields() override;
    void DoDataExchange(bool isSaving) override;
    void printRecords(ReportOutput output) override;
    HistorySubject selectedHistory() override {
        return {.table = "Sign", .id = m_form.selectedId()};
    }
    std::span<const MenuItemResource> ownFileItems() const override;
    std::span<const MenuItemResource> ownEditItems() const override;
    void OnOK() override;
    bool OnCommand(int command) override;

  private:
    static constexpr int importCommand = firstOwnCommand;
    static constexpr int exportCommand = firstOwnCommand + 1;
    static constexpr int tryCommand = firstOwnCommand + 2;
    static constexpr int usageCommand = firstOwnCommand + 3;

    /// An account of the restriction, and the button that offers those there are.
    struct AccountField {
        LimitedEdit* code = nullptr;
        QPushButton* choice = nullptr;
    };

    bool isTrying() const;
    void turnToTrial();
    void addRestriction();
    AccountField addAccount(const char* label, char key, const char* name);
    void restrictionChecked();
    void choose(LimitedEdit& account);
    void showRestriction(const _SignInfo& type);
    void letTabReachChosenKind();

    VoucherTypeForm m_form;
    LimitedEdit* m_number = nullptr;
    LimitedEdit* m_name = nullptr;
    QCheckBox* m_isRestricted = nullptr;
    QButtonGroup* m_kinds = nullptr;  ///< by what is stored for each
    std::array<AccountField, 2> m_accounts;
    QTabWidget* m_pages = nullptr;
    TrialPane* m_trial = nullptr;
};

}  // namespace chengheng
