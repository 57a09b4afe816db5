#pragma once

#include <array>

#include "screen/forms/list_form_dialog.h"
#include "vouchertype/voucher_type_form.h"

class QButtonGroup;
class QCheckBox;
class QPushButton;

namespace chengheng {

/// The voucher types (凭证类别).
class VoucherTypeWindow final : public ListFormDialog {
    Q_OBJECT

  public:
    explicit VoucherTypeWindow(QWidget* parent = nullptr);
    /// Reads the host's cache of voucher types again.
    ~VoucherTypeWindow() override;

  protected:
    ListForm& form() override { return m_form; }
    void addFields() override;
    void DoDataExchange(bool isSaving) override;
    void printRecords(ReportOutput output) override;
    std::span<const MenuItemResource> ownFileItems() const override;
    bool OnCommand(int command) override;

  private:
    static constexpr int importCommand = firstOwnCommand;
    static constexpr int exportCommand = firstOwnCommand + 1;

    /// An account of the restriction, and the button that offers those there are.
    struct AccountField {
        LimitedEdit* code = nullptr;
        QPushButton* choice = nullptr;
    };

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
};

}  // namespace chengheng
