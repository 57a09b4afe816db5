#pragma once

#include "screen/forms/list_form_dialog.h"
#include "settle/settle_form.h"

class QCheckBox;

/// The settlement methods (结算方式).
class CNbCwSettleDlg : public chengheng::ListFormDialog {
    Q_OBJECT

  public:
    explicit CNbCwSettleDlg(QWidget* parent = nullptr);
    /// Reads the host's cache of settlement methods again.
    ~CNbCwSettleDlg() override;

  protected:
    chengheng::ListForm& form() override { return m_form; }
    void addFields() override;
    void DoDataExchange(bool isSaving) override;
    void printRecords(chengheng::ReportOutput output) override;
    chengheng::HistorySubject selectedHistory() override {
        return {.table = "Settle", .id = m_form.selectedId()};
    }

  private:
    chengheng::SettleForm m_form;
    chengheng::LimitedEdit* m_number = nullptr;
    chengheng::LimitedEdit* m_name = nullptr;
    QCheckBox* m_usesChequeRegister = nullptr;
};
