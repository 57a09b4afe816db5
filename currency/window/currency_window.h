#pragma once

#include "currency/screen/rate_overview.h"
#include "currency/window/rate_transfer.h"
#include "screen/forms/list_form_dialog.h"

class QRadioButton;

namespace chengheng {
class RatePanel;

/// The foreign currencies and their rates (汇率管理).
class CurrencyWindow final : public ListFormDialog {
    Q_OBJECT

  public:
    explicit CurrencyWindow(QWidget* parent = nullptr);
    /// Reads the host's cache of currencies again.
    ~CurrencyWindow() override;

  protected:
    ListForm& form() override { return m_form; }
    void addFields() override;
    QWidget* arrangeForm(QWidget* fields) override;
    void DoDataExchange(bool isSaving) override;
    void printRecords(ReportOutput output) override;
    HistorySubject selectedHistory() override {
        return {.table = "Cyrency", .id = m_form.selectedId()};  // sic
    }
    std::span<const MenuItemResource> ownFileItems() const override;
    std::span<const MenuItemResource> ownEditItems() const override;
    bool OnCommand(int command) override;
    void OnOK() override;
    bool finishTyping() override;
    void giveUpTyping() override;

  private:
    QRadioButton* addMode(const char* caption, const char* name, const QString& label);
    void connectRates();
    void showOpenness();
    void showCommands();
    void carryOutOnRates(int command);
    /// Goes to a row of what the form shows now.
    void goTo(std::optional<int> row);
    void write(const RateCell& cell, const QString& text);
    void takeUpAgain(std::int32_t rateId, const RateCell& cell, const QString& text);

    CurrencyForm m_form;
    RateOverview m_overview;
    RateTransfer m_transfer;
    _CyrencyInfo m_shownCurrency;  ///< to be told by what was modified
    LimitedEdit* m_symbol = nullptr;
    LimitedEdit* m_name = nullptr;
    LimitedEdit* m_decimals = nullptr;
    LimitedEdit* m_maxError = nullptr;
    QRadioButton* m_multiplied = nullptr;
    QRadioButton* m_divided = nullptr;
    RatePanel* m_rates = nullptr;
    bool m_isUnwritten = false;  ///< what was typed last failed to be written
};

}  // namespace chengheng
