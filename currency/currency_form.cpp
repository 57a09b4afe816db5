#include "currency/currency_form.h"

#include "base/values/text.h"

namespace chengheng {
namespace {

Leaf leafOf(const _CyrencyInfo& currency) { return {currency.lId, currency.sExchName}; }

/// Fixed rates are read for the whole year.
int monthRead(RateKind kind, int month) { return kind == RateKind::fixed ? 0 : month; }

}  // namespace

CurrencyForm::CurrencyForm(IMessages& messages, const Date& day)
    : ListForm(messages), m_service(messages), m_year(day.year), m_month(day.month) {}

std::optional<std::vector<Leaf>> CurrencyForm::readLeaves() {
    const auto currencies = m_service.readAll();
    if (!currencies) return std::nullopt;
    std::vector<Leaf> leaves;
    leaves.reserve(currencies->size());
    for (const _CyrencyInfo& currency : *currencies) leaves.push_back(leafOf(currency));
    return leaves;
}

/// One that is read anew stays as it is shown: the kind of its rates, the month, the text of its
/// maximum error.
Outcome CurrencyForm::load(int id, bool& isUsed) {
    _CyrencyInfo currency;
    const Outcome outcome = m_service.read(id, currency, isUsed);
    if (outcome != Outcome::done) return outcome;
    const bool isShown = id == m_loaded.lId && !m_isNew;
    const RateKind shownKind = isShown ? kind() : RateKind::fixed;
    const auto rows =
        m_service.ratesAfterRead(shownKind, id, m_year, monthRead(shownKind, m_month));
    if (!rows) return Outcome::failed;
    takeRates(shownKind, m_month, *rows);
    const bool isSame = isShown && currency == m_loaded;
    keep(currency, isSame ? m_shownInput : currencyInput(currency));
    m_isEditing = false;
    m_isNew = false;
    return outcome;
}

void CurrencyForm::clear() {
    keep({}, {});
    m_isEditing = false;
    m_sheet.empty(RateKind::fixed);
    ++m_readings;
}

bool CurrencyForm::isComplete() const {
    return !withoutBlanksAround(input.symbol).empty() && !withoutBlanksAround(input.name).empty();
}

Outcome CurrencyForm::write(SaveMode mode, Leaf& saved) {
    input = capitalised(input);
    const bool isAddition = mode == SaveMode::addition;
    _CyrencyInfo written;
    const Outcome outcome = isAddition ? m_service.add(input, m_year, written)
                                       : m_service.modify(m_loaded, input, written);
    if (outcome != Outcome::done) return outcome;
    keep(written, isAddition ? currencyInput(written) : input);
    m_isNew = isAddition;
    saved = leafOf(written);
    return outcome;
}

void CurrencyForm::holdTyped() {
    m_typed = input;
    m_typedOver = m_shownInput;
}

void CurrencyForm::takeTypedBack() {
    if (isAdding()) m_typedOver = {};
    if (m_typed.symbol != m_typedOver.symbol) input.symbol = m_typed.symbol;
    if (m_typed.name != m_typedOver.name) input.name = m_typed.name;
    if (m_typed.mode != m_typedOver.mode) input.mode = m_typed.mode;
    if (m_typed.decimals != m_typedOver.decimals) input.decimals = m_typed.decimals;
    if (m_typed.maxError != m_typedOver.maxError) input.maxError = m_typed.maxError;
}

Outcome CurrencyForm::erase(const Leaf* leaf) {
    return m_service.remove(leaf == nullptr ? 0 : leaf->id, isUsed());
}

int CurrencyForm::leafAfter(int removed) const {
    const int first = leaves().firstShown();
    return first == removed ? leaves().neighbourOf(removed) : first;
}

void CurrencyForm::showKind(RateKind kind) {
    if (kind == this->kind()) return;
    if (isAdding()) {
        m_sheet.empty(kind);
        ++m_readings;
    } else {
        showAnew(kind, m_month);
    }
}

void CurrencyForm::showMonth(int month) {
    if (month == m_month) return;
    if (isAdding()) {
        m_month = month;
    } else {
        showAnew(kind(), month);
    }
}

void CurrencyForm::readRatesAnew() {
    if (!isAdding()) showAnew(kind(), m_month);
}

Outcome CurrencyForm::endEdit(const RateCell& cell, const std::string& text) {
    m_isEditing = false;
    const auto rate = typedRate(text, m_sheet.decimals());
    if (!rate || !mayEdit(cell)) return Outcome::refused;
    const RateColumn column =
        cell.column == RateSheetColumn::rate ? RateColumn::rate : RateColumn::adjustRate;
    const Outcome outcome = m_service.writeRate(kind(), m_loaded.lId, m_sheet.idIn(cell.row),
                                                column, *rate, m_lastEdit);
    if (outcome == Outcome::done) m_sheet.put(cell.row, m_lastEdit.after);
    if (outcome == Outcome::stale) {
        if (isChanged())
            readAgainBelowTyped();
        else
            refresh();
    }
    return outcome;
}

void CurrencyForm::keep(const _CyrencyInfo& currency, CurrencyInput shown) {
    m_loaded = currency;
    m_shownInput = std::move(shown);
    input = m_shownInput;
    m_sheet.setDecimals(currency.byDecimal);
}

void CurrencyForm::showAnew(RateKind kind, int month) {
    const auto rows = m_service.rates(kind, m_loaded.lId, m_year, monthRead(kind, month));
    if (rows) takeRates(kind, month, *rows);
}

void CurrencyForm::takeRates(RateKind kind, int month, const std::vector<RateRow>& rows) {
    m_month = month;
    m_sheet.show(kind, m_year, month, rows);
    ++m_readings;
}

}  // namespace chengheng
