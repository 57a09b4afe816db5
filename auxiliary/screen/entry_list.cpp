#include "auxiliary/screen/entry_list.h"

#include <algorithm>
#include <map>
#include <optional>
#include <unordered_map>
#include <utility>

#include "auxiliary/members/auxiliary_texts.h"
#include "base/values/amount_text.h"
#include "base/values/numbers.h"
#include "base/values/text.h"
#include "opening/editing/typed_amount.h"

namespace chengheng {
namespace {

/// Nothing that is typed into a filter.
constexpr char betweenColumns = '\n';

EntryColumn columnOf(Dimension dimension) {
    switch (dimension) {
        case Dimension::department:
            return EntryColumn::department;
        case Dimension::person:
            return EntryColumn::person;
        case Dimension::unit:
            return EntryColumn::unit;
        case Dimension::item:
            break;
    }
    return EntryColumn::item;
}

std::string figureText(double value, Measure measure) {
    return value == 0 ? std::string() : ftoaWithSap(value, decimalsOf(measure));
}

double figureOf(const EntryContent& content, EntryColumn column) {
    if (column == EntryColumn::money) return content.money;
    return column == EntryColumn::foreign ? content.foreign : content.quantity;
}

/// By what an entry is sorted: a number, or a text where that is 0 for all.
struct SortKey {
    double number = 0;
    std::string text;

    auto operator<=>(const SortKey&) const = default;
};

SortKey sortKey(const AuxiliaryEntry& entry, EntryColumn column) {
    if (isFigure(column)) return {figureOf(entry.content, column), {}};
    return {0, cellText(entry, column)};
}

bool hasText(const std::string& text, const std::string& wanted) {
    return containsInAnyCase(text, withoutBlanksAround(wanted));
}

/// A wanted text that is no number is no amount.
bool hasAmount(double value, const std::string& wanted, Measure measure) {
    if (withoutBlanksAround(wanted).empty()) return true;
    const auto amount = readAmount(wanted);
    return amount && typedAmount(wanted, measure) == value;
}

bool hasDate(const Date& date, const std::string& wanted) {
    const std::string_view text = withoutBlanksAround(wanted);
    if (text.empty()) return true;
    const auto day = parseDate(text);
    return day ? *day == date : isoText(date).find(text) != std::string::npos;
}

bool hasNumber(const EntryContent& content, const std::string& wanted) {
    const std::string_view text = withoutBlanksAround(wanted);
    if (text.empty()) return true;
    const std::size_t digits = std::min(text.find_first_not_of('0'), text.size() - 1);
    return std::to_string(content.number) == text.substr(digits);
}

EntryFigures sumOf(const AuxiliaryAccount& account, auto begin, auto end, auto entryAt) {
    FigureSums sums;
    for (auto at = begin; at != end; ++at) sums.add(figuresOf(entryAt(at).content, account));
    return sums.total();
}

}  // namespace

std::vector<EntryColumn> columnsOf(const AuxiliaryMember& member) {
    std::vector<EntryColumn> columns{EntryColumn::date, EntryColumn::voucherNumber,
                                     EntryColumn::summary};
    for (const DimensionWords& words : member.dimensions)
        columns.push_back(columnOf(words.dimension));
    columns.insert(columns.end(), {EntryColumn::direction, EntryColumn::money, EntryColumn::foreign,
                                   EntryColumn::quantity});
    return columns;
}

const char* headingOf(EntryColumn column) {
    using namespace auxiliary_texts;
    switch (column) {
        case EntryColumn::date:
            return date;
        case EntryColumn::voucherNumber:
            return voucherNumber;
        case EntryColumn::summary:
            return summary;
        case EntryColumn::department:
            return department;
        case EntryColumn::person:
            return person;
        case EntryColumn::unit:
            return unit;
        case EntryColumn::item:
            return project;
        case EntryColumn::direction:
            return direction;
        case EntryColumn::money:
            return money;
        case EntryColumn::foreign:
            return foreign;
        case EntryColumn::quantity:
            break;
    }
    return quantity;
}

bool isFigure(EntryColumn column) { return column >= EntryColumn::money; }

std::string cellText(const AuxiliaryEntry& entry, EntryColumn column) {
    const EntryContent& content = entry.content;
    switch (column) {
        case EntryColumn::date:
            return isoText(content.date);
        case EntryColumn::voucherNumber:
            return voucherNumberText(content);
        case EntryColumn::summary:
            return content.summary;
        case EntryColumn::department:
            return entry.names.department;
        case EntryColumn::person:
            return entry.names.person;
        case EntryColumn::unit:
            return entry.names.unit;
        case EntryColumn::item:
            return entry.names.item;
        case EntryColumn::direction:
            return content.isDebit ? auxiliary_texts::debit : auxiliary_texts::credit;
        case EntryColumn::money:
            return ftoaWithSap(content.money, decimalsOf(Measure::money));
        case EntryColumn::foreign:
            return figureText(content.foreign, Measure::foreign);
        case EntryColumn::quantity:
            break;
    }
    return figureText(content.quantity, Measure::quantity);
}

bool fits(const AuxiliaryEntry& entry, const EntrySearch& search) {
    const EntryContent& content = entry.content;
    const bool isEither = search.isDebit == search.isCredit;
    return hasDate(content.date, search.date) && hasText(content.sign, search.sign) &&
           hasNumber(content, search.number) && hasText(content.summary, search.summary) &&
           hasText(entry.names.department, search.names.department) &&
           hasText(entry.names.person, search.names.person) &&
           hasText(entry.names.unit, search.names.unit) &&
           hasText(entry.names.item, search.names.item) &&
           (isEither || content.isDebit == search.isDebit) &&
           hasAmount(content.money, search.money, Measure::money) &&
           hasAmount(content.foreign, search.foreign, Measure::foreign) &&
           hasAmount(content.quantity, search.quantity, Measure::quantity);
}

std::size_t EntryList::rowOf(std::int32_t lineId) const {
    const auto found = std::ranges::find_if(
        m_shown, [&](std::size_t place) { return m_entries[place].lineId == lineId; });
    return static_cast<std::size_t>(found - m_shown.begin());
}

void EntryList::assign(std::vector<AuxiliaryEntry> entries) {
    m_entries = std::move(entries);
    m_texts.assign(m_entries.size(), {});
    ++m_revision;
    showMatching();
}

void EntryList::put(const AuxiliaryEntry& entry) { change({&entry, 1}, {}); }

void EntryList::remove(std::int32_t lineId) { change({}, {&lineId, 1}); }

void EntryList::change(std::span<const AuxiliaryEntry> come, std::span<const std::int32_t> gone) {
    std::unordered_map<std::int32_t, const AuxiliaryEntry*> wanted;
    for (const std::int32_t line : gone) wanted[line] = nullptr;
    for (const AuxiliaryEntry& entry : come) wanted[entry.lineId] = &entry;
    std::size_t kept = 0;
    for (std::size_t place = 0; place < m_entries.size(); ++place) {
        const auto found = wanted.find(m_entries[place].lineId);
        const bool isChanged = found != wanted.end();
        if (isChanged && found->second == nullptr) continue;
        if (kept != place) {
            m_entries[kept] = std::move(m_entries[place]);
            m_texts[kept] = std::move(m_texts[place]);
        }
        if (isChanged) {
            m_entries[kept] = *std::exchange(found->second, nullptr);
            m_texts[kept].clear();
        }
        ++kept;
    }
    m_entries.resize(kept);
    for (const AuxiliaryEntry& entry : come)
        if (wanted[entry.lineId] != nullptr) m_entries.push_back(entry);
    m_texts.resize(kept);
    m_texts.resize(m_entries.size());
    ++m_revision;
    showMatching();
}

void EntryList::setFilter(std::string text) {
    m_filter = std::move(text);
    showMatching();
}

void EntryList::sortBy(int column, bool isDescending) {
    m_sortColumn = column;
    m_isDescending = isDescending;
    showMatching();
}

/// The texts are made once, not for each key that is typed into the filter.
bool EntryList::matches(std::size_t place, std::string_view wanted) {
    if (wanted.empty()) return true;
    std::string& text = m_texts[place];
    if (text.empty())
        for (const EntryColumn column : m_columns)
            text += inSmallLetters(cellText(m_entries[place], column)) + betweenColumns;
    return text.find(wanted) != std::string::npos;
}

void EntryList::showMatching() {
    m_shown.clear();
    const std::string wanted = inSmallLetters(withoutBlanksAround(m_filter));
    for (std::size_t place = 0; place < m_entries.size(); ++place)
        if (matches(place, wanted)) m_shown.push_back(place);
    if (m_sortColumn >= 0) sortShown();
}

/// Keys are made once for each entry, not for each comparison.
void EntryList::sortShown() {
    const EntryColumn column = m_columns[static_cast<std::size_t>(m_sortColumn)];
    std::vector<std::pair<SortKey, std::size_t>> keyed;
    keyed.reserve(m_shown.size());
    for (const std::size_t place : m_shown)
        keyed.emplace_back(sortKey(m_entries[place], column), place);
    std::ranges::stable_sort(keyed, [this](const auto& one, const auto& other) {
        return m_isDescending ? other.first < one.first : one.first < other.first;
    });
    std::ranges::transform(keyed, m_shown.begin(), [](const auto& each) { return each.second; });
}

std::size_t EntryList::find(const EntrySearch& search, std::size_t after) const {
    for (std::size_t step = 1; step <= rowCount(); ++step) {
        const std::size_t row = after >= rowCount() ? step - 1 : (after + step) % rowCount();
        if (fits(atRow(row), search)) return row;
    }
    return rowCount();
}

EntryFigures EntryList::total(const AuxiliaryAccount& account) const {
    return sumOf(account, m_entries.begin(), m_entries.end(),
                 [](auto at) -> const AuxiliaryEntry& { return *at; });
}

EntryFigures EntryList::shownTotal(const AuxiliaryAccount& account) const {
    return sumOf(account, m_shown.begin(), m_shown.end(),
                 [this](auto at) -> const AuxiliaryEntry& { return m_entries[*at]; });
}

std::vector<CombinationTotal> totalsOf(const std::vector<AuxiliaryEntry>& entries,
                                       const AuxiliaryAccount& account) {
    std::vector<CombinationTotal> totals;
    std::vector<FigureSums> sums;
    std::map<EntryDimensions, std::size_t> places;
    for (const AuxiliaryEntry& entry : entries) {
        const auto [found, isNew] = places.try_emplace(entry.content.of, totals.size());
        const std::size_t place = found->second;
        if (isNew) {
            totals.push_back(
                {.of = entry.content.of, .names = entry.names, .count = 0, .figures = {}});
            sums.emplace_back();
        }
        ++totals[place].count;
        sums[place].add(figuresOf(entry.content, account));
    }
    for (std::size_t place = 0; place < totals.size(); ++place)
        totals[place].figures = sums[place].total();
    return totals;
}

}  // namespace chengheng
