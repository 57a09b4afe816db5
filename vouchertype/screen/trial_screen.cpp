#include "vouchertype/screen/trial_screen.h"

#include <fmt/format.h>

#include <algorithm>
#include <span>

#include "base/values/amount_text.h"
#include "base/values/numbers.h"
#include "base/values/text.h"
#include "sheets/delimited/delimited_text.h"
#include "sheets/files/sheet_export.h"
#include "vouchertype/screen/trial_screen_texts.h"
#include "vouchertype/tester/trial_reading.h"
#include "vouchertype/tester/trial_sheet.h"

namespace chengheng {

namespace texts = trial_screen_texts;

namespace {

constexpr int leastRows = 6;
constexpr std::size_t toldFaults = 20;
constexpr int moneyDecimals = 2;

/// Where a column is kept; null for the name.
std::string TrialLine::*fieldOf(TrialColumn column) {
    switch (column) {
        case TrialColumn::account:
            return &TrialLine::account;
        case TrialColumn::debit:
            return &TrialLine::debit;
        case TrialColumn::credit:
            return &TrialLine::credit;
        case TrialColumn::name:
            break;
    }
    return nullptr;
}

bool isAmount(TrialColumn column) {
    return column == TrialColumn::debit || column == TrialColumn::credit;
}

/// The only cell of a block.
const std::string* singleText(const Sheet& block, std::string& text) {
    if (block.rows.size() != 1 || block.rows.front().size() != 1) return nullptr;
    text = cellText(block.at(0, 0));
    return &text;
}

TrialWord wordOf(const TypeVerdict& verdict) {
    const auto& [type, isAllowed, words, lines] = verdict;
    return isAllowed
               ? TrialWord{TrialWord::Kind::allowed,
                           fmt::format(texts::allowed, type.sSign, type.sSignName, words),
                           {}}
               : TrialWord{TrialWord::Kind::refused,
                           fmt::format(texts::refused, type.sSign, type.sSignName, words), lines};
}

}  // namespace

void TrialScreen::refresh() {
    m_books = readTrialBooks(m_messages);
    say();
}

int TrialScreen::rowCount() const {
    return std::max(leastRows, static_cast<int>(m_lines.size()) + 1);
}

TrialLine& TrialScreen::lineAt(int row) {
    const auto place = static_cast<std::size_t>(row);
    while (m_lines.size() <= place)
        m_lines.push_back({static_cast<int>(m_lines.size()) + 1, {}, {}, {}});
    return m_lines[place];
}

std::string TrialScreen::text(const TrialCell& cell) const {
    const auto place = static_cast<std::size_t>(cell.row);
    if (place >= m_lines.size()) return {};
    const TrialLine& line = m_lines[place];
    if (const auto field = fieldOf(cell.column)) return line.*field;
    return m_books ? m_books->nameOf(accountIn(*m_books, line.account)) : std::string();
}

std::string TrialScreen::shownText(const TrialCell& cell) const {
    const std::string typed = text(cell);
    if (!isAmount(cell.column) || typed.empty()) return typed;
    const auto amount = readAmount(typed);
    double rounded = amount.value_or(0);
    Round(rounded, moneyDecimals);
    return amount == rounded ? ftoaWithSap(rounded, moneyDecimals) : typed;
}

void TrialScreen::type(const TrialCell& cell, std::string_view text) {
    const auto field = fieldOf(cell.column);
    if (field == nullptr) return;
    lineAt(cell.row).*field = withoutBlanksAround(text);
    say();
}

void TrialScreen::erase(const std::vector<TrialCell>& cells) {
    for (const TrialCell& cell : cells)
        if (isEditable(cell) && cell.row < static_cast<int>(m_lines.size()))
            (lineAt(cell.row).*fieldOf(cell.column)).clear();
    say();
}

void TrialScreen::clear() {
    m_lines.clear();
    say();
}

bool TrialScreen::paste(const TrialCell& cell, const std::string& block) {
    Sheet sheet;
    std::vector<TrialLine> pasted;
    auto failure = readClipboardBlock(block, sheet);
    if (std::string single; !failure && singleText(sheet, single) != nullptr) {
        type(cell, single);
        return true;
    }
    if (!failure) failure = readTrialLines(sheet, pasted);
    if (failure) {
        m_messages.tell(sheetWarning(failure->text()));
        return false;
    }
    if (pasted.empty()) {
        m_messages.tell({.text = texts::nothingPasted});
        return false;
    }
    for (int row = cell.row; TrialLine & line : pasted) {
        line.number = row + 1;
        lineAt(row++) = std::move(line);
    }
    say();
    return true;
}

TrialCell TrialScreen::afterEnter(const TrialCell& cell) const {
    const TrialCell nextLine{std::min(cell.row + 1, rowCount() - 1), TrialColumn::account};
    switch (cell.column) {
        case TrialColumn::account:
        case TrialColumn::name:
            return {cell.row, TrialColumn::debit};
        case TrialColumn::debit:
            return text(cell).empty() ? TrialCell{cell.row, TrialColumn::credit} : nextLine;
        case TrialColumn::credit:
            break;
    }
    return nextLine;
}

TrialCell TrialScreen::beforeEnter(const TrialCell& cell) const {
    switch (cell.column) {
        case TrialColumn::credit:
            return {cell.row, TrialColumn::debit};
        case TrialColumn::debit:
        case TrialColumn::name:
            return {cell.row, TrialColumn::account};
        case TrialColumn::account:
            break;
    }
    return cell.row == 0 ? cell : TrialCell{cell.row - 1, TrialColumn::credit};
}

void TrialScreen::say() {
    while (!m_lines.empty() && m_lines.back().isBlank()) m_lines.pop_back();
    m_words.clear();
    if (!m_books) return;
    const TrialResult result = tryVoucher(m_lines, *m_books);
    const std::size_t told = std::min(result.faults.size(), toldFaults);
    for (const std::string& fault : std::span(result.faults).first(told))
        m_words.push_back({TrialWord::Kind::fault, fault});
    if (told < result.faults.size())
        m_words.push_back(
            {TrialWord::Kind::fault, fmt::format(texts::moreFaults, result.faults.size() - told)});
    for (const std::string& note : result.notes) m_words.push_back({TrialWord::Kind::note, note});
    for (const TypeVerdict& verdict : result.verdicts) m_words.push_back(wordOf(verdict));
}

}  // namespace chengheng
