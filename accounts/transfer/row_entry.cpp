#include "accounts/transfer/row_entry.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "accounts/chart/account_texts.h"
#include "accounts/codes/code_levels.h"
#include "accounts/codes/mnemonic.h"
#include "accounts/transfer/import_texts.h"
#include "base/values/text.h"
#include "data/tables/accounts.h"
#include "data/tables/currency.h"

namespace chengheng {
namespace {

namespace texts = import_texts;

constexpr std::array<std::string_view, 6> yesWords{texts::yes, "√", "1", "y", "yes", "true"};
constexpr std::array<std::string_view, 6> noWords{texts::no, "", "0", "n", "no", "false"};

/// The text of a cell without blanks around it; nothing when its column is not there.
std::optional<std::string> cellOf(const ChartRow& row, ChartField field) {
    const auto& cell = row.at(field);
    if (!cell) return std::nullopt;
    return std::string(withoutBlanksAround(*cell));
}

/// The name without the indentation that an exported chart gives it, and without any other
/// unless the account is named so.
std::string nameOf(const std::string& cell, const std::string& nameBefore, int grade) {
    if (!nameBefore.empty() && cell == indentedName(nameBefore, grade)) return nameBefore;
    return std::string(withoutBlanksAround(cell));
}

/// An empty cell takes away what somebody has given, but not the initials that an account has
/// by itself: a file without them could not be imported twice otherwise.
void readMnemonic(const ChartRow& row, const std::string& nameBefore, AccountEntry& entry) {
    const auto cell = cellOf(row, ChartField::mnemonic);
    if (!cell || *cell == entry.mnemonic) return;
    if (cell->empty() && isMnemonicOf(nameBefore, entry.mnemonic)) return;
    entry.mnemonic = inPlainCapitals(*cell);
}

std::optional<CellRefusal> readClass(const ChartRow& row, const ChartState& state,
                                     AccountEntry& entry) {
    const auto cell = cellOf(row, ChartField::className);
    if (cell && !cell->empty()) entry.className = *cell;
    const auto found =
        std::ranges::find(state.classes, entry.className, &_zCodeClassInfo::sClsName);
    if (found != state.classes.end()) return std::nullopt;
    if (entry.className.empty()) return CellRefusal{ChartField::className, texts::classMissing};
    return CellRefusal{ChartField::className, fmt::format(texts::classUnknown, entry.className)};
}

std::optional<CellRefusal> readDirection(const ChartRow& row, AccountEntry& entry) {
    const auto cell = cellOf(row, ChartField::direction);
    if (!cell || cell->empty()) return std::nullopt;
    if (*cell != account_texts::debit && *cell != account_texts::credit)
        return CellRefusal{ChartField::direction, fmt::format(texts::directionUnknown, *cell)};
    entry.direction = static_cast<std::int16_t>(*cell == account_texts::debit ? 1 : 0);
    return std::nullopt;
}

std::optional<CellRefusal> readCurrency(const ChartRow& row, const ChartState& state,
                                        AccountEntry& entry) {
    const auto cell = cellOf(row, ChartField::currency);
    if (!cell) return std::nullopt;
    entry.keepsForeign = !cell->empty();
    entry.currencyId = 0;
    if (cell->empty()) return std::nullopt;
    const auto found = std::ranges::find_if(state.currencies, [&](const _CyrencyInfo& currency) {
        return isSameInAnyCase(currency.sExchCode, *cell) || currency.sExchName == *cell;
    });
    if (found == state.currencies.end())
        return CellRefusal{ChartField::currency, fmt::format(texts::currencyUnknown, *cell)};
    entry.currencyId = found->lId;
    return std::nullopt;
}

bool isOneOf(std::span<const std::string_view> words, std::string_view cell) {
    return std::ranges::any_of(
        words, [cell](std::string_view word) { return isSameInAnyCase(cell, word); });
}

std::optional<CellRefusal> readSwitch(const ChartRow& row, ChartField field, bool& isOn) {
    const auto cell = cellOf(row, field);
    if (!cell) return std::nullopt;
    isOn = isOneOf(yesWords, *cell);
    if (isOn || isOneOf(noWords, *cell)) return std::nullopt;
    return CellRefusal{field, fmt::format(texts::neitherYesNorNo, *cell)};
}

std::optional<CellRefusal> readQuantity(const ChartRow& row, AccountEntry& entry) {
    const auto unit = cellOf(row, ChartField::unit);
    if (unit) entry.unit = *unit;
    if (unit && !row.at(ChartField::quantity)) entry.keepsQuantity = !unit->empty();
    return readSwitch(row, ChartField::quantity, entry.keepsQuantity);
}

std::optional<CellRefusal> readBooks(const ChartRow& row, AuxiliaryBooks& books) {
    const std::pair<ChartField, bool*> switches[] = {
        {ChartField::byPerson, &books.byPerson},         {ChartField::byUnit, &books.byUnit},
        {ChartField::byDepartment, &books.byDepartment}, {ChartField::byProject, &books.byProject},
        {ChartField::isJournal, &books.isJournal},       {ChartField::isBank, &books.isBank}};
    for (const auto& [field, isOn] : switches)
        if (auto refusal = readSwitch(row, field, *isOn)) return refusal;
    return std::nullopt;
}

}  // namespace

std::optional<CellRefusal> readRowEntry(const ChartRow& row, const ChartState& state, int grade,
                                        AccountEntry& entry) {
    const std::string nameBefore = entry.name;
    entry.name = nameOf(row.at(ChartField::name).value_or(""), nameBefore, grade);
    if (const auto page = cellOf(row, ChartField::page)) entry.page = *page;
    readMnemonic(row, nameBefore, entry);
    if (auto refusal = readClass(row, state, entry)) return refusal;
    if (auto refusal = readDirection(row, entry)) return refusal;
    if (auto refusal = readCurrency(row, state, entry)) return refusal;
    if (auto refusal = readQuantity(row, entry)) return refusal;
    return readBooks(row, entry.books);
}

}  // namespace chengheng
