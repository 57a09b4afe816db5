#include "opening/sheet/opening_sheet.h"

#include <algorithm>

#include "base/values/numbers.h"
#include "base/values/text.h"
#include "opening/sheet/opening_texts.h"
#include "opening/sheet/roll_up.h"

namespace chengheng {
namespace {

using Field = OpeningField;

bool isFigure(Field field) { return figureOf(field) != nullptr; }

}  // namespace

OpeningSheet::OpeningSheet(OpeningLayout layout, std::vector<OpeningAccount> accounts,
                           std::vector<OpeningCurrency> currencies)
    : m_layout(layout), m_accounts(std::move(accounts)), m_currencies(std::move(currencies)) {
    addLines();
    indexAccounts();
}

void OpeningSheet::addLines() {
    m_lines.reserve(m_accounts.size() + m_accounts.size() / 4);
    for (std::size_t place = 0; place < m_accounts.size(); ++place) {
        OpeningAccount& account = m_accounts[place];
        account.firstLine = static_cast<std::uint32_t>(m_lines.size());
        for (const Measure measure : measures)
            if (account.keeps(measure))
                m_lines.push_back({static_cast<std::uint32_t>(place), measure});
    }
}

void OpeningSheet::indexAccounts() {
    m_placesById.reserve(m_accounts.size());
    for (std::size_t place = 0; place < m_accounts.size(); ++place)
        m_placesById.emplace_back(m_accounts[place].id, static_cast<std::uint32_t>(place));
    std::ranges::sort(m_placesById);
}

std::optional<std::size_t> OpeningSheet::placeOfId(std::int32_t id) const {
    const auto found = std::ranges::lower_bound(m_placesById, id, {},
                                                &std::pair<std::int32_t, std::uint32_t>::first);
    if (found == m_placesById.end() || found->first != id) return std::nullopt;
    return found->second;
}

std::optional<std::size_t> OpeningSheet::placeOfCode(std::string_view code) const {
    const auto found = std::ranges::lower_bound(m_accounts, code, {}, &OpeningAccount::code);
    if (found == m_accounts.end() || found->code != code) return std::nullopt;
    return static_cast<std::size_t>(found - m_accounts.begin());
}

std::optional<std::size_t> OpeningSheet::lineOf(std::size_t place, Measure measure) const {
    const OpeningAccount& account = m_accounts[place];
    if (!account.keeps(measure)) return std::nullopt;
    const bool isAfterForeign = measure == Measure::quantity && account.keeps(Measure::foreign);
    return account.firstLine + (measure == Measure::money ? 0u : 1u) + (isAfterForeign ? 1u : 0u);
}

int OpeningSheet::marker(std::size_t line) const {
    const OpeningAccount& account = accountOfLine(line);
    if (!m_lines[line].isMain()) return m_lines[line].measure == Measure::quantity ? 2 : 0;
    if (account.currency != 0) return account.hasQuantity ? 4 : 3;
    return account.hasQuantity ? 2 : 0;
}

LineRole OpeningSheet::role(std::size_t line) const {
    const OpeningAccount& account = accountOfLine(line);
    if (!account.isEnd) return LineRole::parent;
    return account.isAuxiliary() ? LineRole::auxiliary : LineRole::endAccount;
}

double OpeningSheet::hiddenFigure(const OpeningLine& line, Measure measure) const {
    const OpeningAccount& account = m_accounts[line.account];
    if (!line.isMain() || (!account.isEnd && !m_isRolledUp)) return 0;
    return account.balance(measure).opening;
}

double OpeningSheet::number(std::size_t line, std::size_t column) const {
    const OpeningLine& shown = m_lines[line];
    const OpeningAccount& account = m_accounts[shown.account];
    const Field field = columns()[column].field;
    if (const BalanceFigure figure = figureOf(field)) return account.balance(shown.measure).*figure;
    switch (field) {
        case Field::id:
            return account.id;
        case Field::isEnd:
            return shown.isMain() && account.isEnd ? 1.0 : 0.0;
        case Field::grade:
            return account.grade;
        case Field::marker:
            return marker(line);
        case Field::foreign:
            return hiddenFigure(shown, Measure::foreign);
        case Field::quantity:
            return hiddenFigure(shown, Measure::quantity);
        default:
            return 0;
    }
}

std::string OpeningSheet::unitText(const OpeningLine& line) const {
    const OpeningAccount& account = m_accounts[line.account];
    if (line.measure == Measure::quantity) return account.unit;
    if (line.isMain())
        return account.currency != 0 || account.hasQuantity ? opening_texts::homeCurrency : "";
    const auto found = std::ranges::find(m_currencies, account.currency, &OpeningCurrency::id);
    return found == m_currencies.end() ? "" : found->name;
}

std::string OpeningSheet::figureText(const OpeningLine& line, BalanceFigure figure) const {
    return ftoaWithSap(m_accounts[line.account].balance(line.measure).*figure,
                       decimalsOf(line.measure));
}

std::string OpeningSheet::text(std::size_t line, std::size_t column) const {
    const OpeningLine& shown = m_lines[line];
    const OpeningAccount& account = m_accounts[shown.account];
    const Field field = columns()[column].field;
    if (const BalanceFigure figure = figureOf(field)) return figureText(shown, figure);
    switch (field) {
        case Field::code:
            return shown.isMain() ? account.code : "";
        case Field::name:
            return shown.isMain() ? openingName(account.name, account.grade) : "";
        case Field::direction:
            return account.isDebit ? opening_texts::debit : opening_texts::credit;
        case Field::unit:
            return unitText(shown);
        case Field::type:
            return shown.isMain() ? account.type : "";
        case Field::auxiliary:
            return shown.isMain() && account.isEnd ? auxiliaryText(account.auxiliary) : "";
        default:
            return ftoa(number(line, column));
    }
}

bool OpeningSheet::isEditable(std::size_t line, std::size_t column) const {
    const OpeningAccount& account = accountOfLine(line);
    return !m_isBrowsing && account.isEnd && !account.isAuxiliary() &&
           isFigure(columns()[column].field);
}

bool OpeningSheet::opensAuxiliary(std::size_t line, std::size_t column) const {
    return m_lines[line].isMain() && accountOfLine(line).isAuxiliary() &&
           columns()[column].field == Field::opening;
}

bool OpeningSheet::disagrees(std::size_t line) const {
    const OpeningLine& shown = m_lines[line];
    const OpeningAccount& account = m_accounts[shown.account];
    if (m_layout == OpeningLayout::simple || !account.isEnd) return false;
    return !agrees(account.balance(shown.measure), account.isDebit, shown.measure);
}

std::optional<std::size_t> OpeningSheet::nextEditable(std::size_t line, int direction) const {
    const std::size_t column = placeOf(Field::opening, m_layout);
    for (std::size_t at = line + static_cast<std::size_t>(direction); at < m_lines.size();
         at += static_cast<std::size_t>(direction))
        if (isEditable(at, column)) return at;
    return std::nullopt;
}

bool OpeningSheet::isMatch(std::size_t line, std::string_view text) const {
    const OpeningAccount& account = accountOfLine(line);
    return m_lines[line].isMain() &&
           (account.code.starts_with(text) || containsInAnyCase(account.name, text));
}

std::optional<std::size_t> OpeningSheet::find(std::string_view text,
                                              std::optional<std::size_t> after) const {
    if (text.empty()) return std::nullopt;
    const std::size_t first = after ? *after + 1 : 0;
    for (std::size_t step = 0; step < m_lines.size(); ++step) {
        const std::size_t line = (first + step) % m_lines.size();
        if (isMatch(line, text)) return line;
    }
    return std::nullopt;
}

std::optional<std::size_t> OpeningSheet::findBefore(std::string_view text,
                                                    std::size_t before) const {
    if (text.empty()) return std::nullopt;
    for (std::size_t step = 1; step <= m_lines.size(); ++step) {
        const std::size_t line = (before + m_lines.size() - step) % m_lines.size();
        if (isMatch(line, text)) return line;
    }
    return std::nullopt;
}

void OpeningSheet::rollUp() {
    chengheng::rollUp(m_accounts, m_layout);
    m_isRolledUp = true;
}

void OpeningSheet::rollUpAround(std::size_t place) {
    const Subtree around = subtreeAround(m_accounts, place);
    chengheng::rollUp(std::span(m_accounts).subspan(around.first, around.count), m_layout);
}

}  // namespace chengheng
