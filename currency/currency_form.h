#pragma once

#include "currency/currency_service.h"
#include "currency/rate_sheet.h"
#include "forms/list_form.h"

namespace chengheng {

/// The window of currencies and rates without its screen: a currency is selected or being added,
/// or a rate is being typed into a cell. What is typed there goes its own way: it never becomes
/// something that 确定 would save.
class CurrencyForm final : public ListForm {
  public:
    /// The rates are those of the year of a day; its month is the first to be shown.
    CurrencyForm(IMessages& messages, const Date& day);

    /// What stands in the fields; the window writes into it what is typed.
    CurrencyInput input;

    const RateSheet& sheet() const { return m_sheet; }
    RateKind kind() const { return m_sheet.kind(); }
    int year() const { return m_year; }
    int month() const { return m_month; }
    /// The currency whose rates are shown; null while one is being added.
    const _CyrencyInfo* currency() const { return isAdding() ? nullptr : &m_loaded; }
    /// Another number after each reading of rates or emptying of the grid.
    unsigned readings() const { return m_readings; }

    // Each stays at what is shown when the rates cannot be read.
    /// Other rates than one that was typed have been written.
    void readRatesAnew();
    void showKind(RateKind kind);
    void showMonth(int month);

    bool mayEdit(const RateCell& cell) const { return !isAdding() && m_sheet.isEditable(cell); }
    void beginEdit() { m_isEditing = true; }
    bool isEditing() const { return m_isEditing; }
    /// Writes what was typed into a cell. A text that is no rate changes nothing.
    Outcome endEdit(const RateCell& cell, const std::string& text);
    /// What the last one that was done wrote over, as it was stored.
    const RateEdit& lastEdit() const { return m_lastEdit; }
    void cancelEdit() { m_isEditing = false; }
    /// Whether currency, kind and month can be chosen and the fields be typed into.
    bool isFormOpen() const { return !m_isEditing; }
    bool isMonthOpen() const { return isFormOpen() && kind() == RateKind::floating; }

    bool canSave() const override { return isFormOpen() && ListForm::canSave(); }
    /// A used one too, so that it can be told.
    bool canDelete() const override { return selectedId() != 0; }

  protected:
    std::optional<std::vector<Leaf>> readLeaves() override;
    Outcome load(int id, bool& isUsed) override;
    void clear() override;
    bool isComplete() const override;
    bool isChanged() const override { return input != m_shownInput; }
    Outcome write(SaveMode mode, Leaf& saved) override;
    void holdTyped() override;
    void takeTypedBack() override;
    Outcome erase(const Leaf* leaf) override;
    int leafAfter(int removed) const override;

  private:
    void keep(const _CyrencyInfo& currency, CurrencyInput shown);
    void showAnew(RateKind kind, int month);
    void takeRates(RateKind kind, int month, const std::vector<RateRow>& rows);

    CurrencyService m_service;
    const int m_year;
    int m_month;
    RateSheet m_sheet;
    unsigned m_readings = 0;
    bool m_isEditing = false;
    RateEdit m_lastEdit;
    _CyrencyInfo m_loaded;
    bool m_isNew = false;  ///< the loaded one has been added and was not selected yet
    CurrencyInput m_shownInput;
    CurrencyInput m_typed;
    CurrencyInput m_typedOver;
};

}  // namespace chengheng
