#include "auxiliary/transfer/entry_plan.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <map>
#include <utility>

#include "auxiliary/entries/chosen_dimensions.h"
#include "auxiliary/members/auxiliary_texts.h"
#include "auxiliary/transfer/transfer_texts.h"
#include "base/values/text.h"
#include "forms/input_limit.h"
#include "opening/editing/typed_amount.h"
#include "opening/sheet/opening_texts.h"
#include "sheets/plan_texts.h"

namespace chengheng {
namespace {

namespace texts = transfer_texts;

using Found = std::optional<Refusal>;

constexpr std::size_t shownCodes = 5;
constexpr const char* directionField = "bDirect";

bool isDebitText(std::string_view text) {
    return text == auxiliary_texts::debit || text == auxiliary_texts::debitChoice;
}
bool isCreditText(std::string_view text) {
    return text == auxiliary_texts::credit || text == auxiliary_texts::creditChoice;
}

Found summaryTooLong(const EntryRowFacts& facts) {
    if (characterCount(facts.input.summary) <= static_cast<std::size_t>(entrySummaryWidth))
        return std::nullopt;
    return inputRefusal(fmt::format(texts::summaryTooLong, entrySummaryWidth), entrySummaryField);
}

Found summaryUnreadable(const EntryRowFacts& facts) {
    if (withoutControlCharacters(facts.input.summary) == facts.input.summary) return std::nullopt;
    return inputRefusal(texts::summaryUnreadable, entrySummaryField);
}

Found directionUnknown(const EntryRowFacts& facts) {
    const std::string_view text = facts.direction;
    if (text.empty() || isDebitText(text) || isCreditText(text)) return std::nullopt;
    return inputRefusal(fmt::format(texts::directionUnknown, text), directionField);
}

Found voucherTypeUnknown(const EntryRowFacts& facts) {
    if (facts.isTypeKnown) return std::nullopt;
    return inputRefusal(fmt::format(texts::typeUnknown, facts.input.sign), entrySignField);
}

Found foreignNotKept(const EntryRowFacts& facts) {
    if (facts.account.hasForeign || typedAmount(facts.input.foreign, Measure::foreign) == 0)
        return std::nullopt;
    return inputRefusal(opening_texts::keepsNoCurrency, entryForeignField);
}

Found quantityNotKept(const EntryRowFacts& facts) {
    if (facts.account.hasQuantity || typedAmount(facts.input.quantity, Measure::quantity) == 0)
        return std::nullopt;
    return inputRefusal(opening_texts::keepsNoQuantity, entryQuantityField);
}

constexpr std::array rowChecks{
    Check<EntryRowFacts>{"the summary fits", summaryTooLong},
    Check<EntryRowFacts>{"the summary is one line", summaryUnreadable},
    Check<EntryRowFacts>{"the direction is one", directionUnknown},
    Check<EntryRowFacts>{"the voucher type is there", voucherTypeUnknown},
    Check<EntryRowFacts>{"the account keeps foreign currency", foreignNotKept},
    Check<EntryRowFacts>{"the account keeps quantities", quantityNotKept},
};

EntryField shownIn(const std::string& dialogField) {
    constexpr std::pair<const char*, EntryField> places[] = {
        {entryDateField, EntryField::date},         {entrySignField, EntryField::sign},
        {entryNumberField, EntryField::number},     {entrySummaryField, EntryField::summary},
        {entryMoneyField, EntryField::money},       {entryForeignField, EntryField::foreign},
        {entryQuantityField, EntryField::quantity}, {directionField, EntryField::direction}};
    for (const auto& [name, field] : places)
        if (dialogField == name) return field;
    for (const Dimension each : {Dimension::department, Dimension::person, Dimension::unit})
        if (dialogField == entryField(each)) return fieldOf(each);
    return EntryField::item;
}

/// The entries of an account by what tells most of them apart.
class StoredEntries {
  public:
    explicit StoredEntries(std::span<const AuxiliaryEntry> entries) {
        for (const AuxiliaryEntry& entry : entries)
            m_contents.emplace(std::pair(entry.content.of, entry.content.money), &entry.content);
    }
    bool have(const EntryContent& content) const {
        const auto [first, last] = m_contents.equal_range({content.of, content.money});
        return std::any_of(first, last, [&](const auto& each) { return *each.second == content; });
    }

  private:
    std::multimap<std::pair<EntryDimensions, double>, const EntryContent*> m_contents;
};

/// Decides on one row.
class RowPlanner {
  public:
    RowPlanner(const EntrySheet& sheet, const EntryPlanFacts& facts, std::size_t row)
        : m_sheet(sheet), m_facts(facts) {
        m_planned.row = row;
        readInput();
    }

    PlannedEntry plan() {
        if (m_facts.isBrowsing) {
            m_planned.reason = opening_texts::onlyBrowsing;
        } else if (auto refusal = findRefusal()) {
            refuse(*refusal);
        } else {
            fillEntry(m_facts.member, m_planned.input, chosen(), m_planned.entry.emplace());
            m_planned.fate = RowFate::added;
        }
        return std::move(m_planned);
    }

  private:
    std::string text(EntryField field) const { return m_sheet.text(m_planned.row, field); }

    void readInput() {
        EntryInput& input = m_planned.input;
        input.date = text(EntryField::date);
        if (input.date.empty()) input.date = isoText(m_facts.day);
        readVoucherNumber();
        input.summary = text(EntryField::summary);
        for (const DimensionWords& words : m_facts.member.dimensions)
            nameOf(input.names, words.dimension) = text(fieldOf(words.dimension));
        m_direction = text(EntryField::direction);
        input.isDebit = m_direction.empty() ? m_facts.account.isDebit : isDebitText(m_direction);
        input.money = text(EntryField::money);
        input.foreign = text(EntryField::foreign);
        input.quantity = text(EntryField::quantity);
    }

    /// "记-0007" in one cell, or in two. A type may be given by its name.
    void readVoucherNumber() {
        EntryInput& input = m_planned.input;
        input.sign = text(EntryField::sign);
        input.number = text(EntryField::number);
        if (m_sheet.columnOf(EntryField::voucherNumber) != 0) {
            input.number = text(EntryField::voucherNumber);
            if (const std::size_t dash = input.number.rfind('-'); dash != std::string::npos) {
                input.sign = input.number.substr(0, dash);
                input.number.erase(0, dash + 1);
            }
        }
        for (const _SignInfo& type : m_facts.voucherTypes)
            if (input.sign == type.sSignName) input.sign = type.sSign;
    }

    bool isTypeKnown() const {
        const std::string& sign = m_planned.input.sign;
        return sign.empty() ||
               std::ranges::count(m_facts.voucherTypes, sign, &_SignInfo::sSign) != 0;
    }

    std::optional<Refusal> findRefusal() {
        auto refusal = firstRefusal(
            entryChecks(), {.member = m_facts.member,
                            .input = m_planned.input,
                            .day = m_facts.day,
                            .isKnown = [this](Dimension each) { return choose(each); },
                            .belongTogether = [this] { return belongTogether(chosen()); }});
        if (refusal && m_instead) refusal->notice.text = *m_instead;
        if (refusal) return refusal;
        return firstRefusal(entryRowChecks(), {.input = m_planned.input,
                                               .account = m_facts.account,
                                               .direction = m_direction,
                                               .isTypeKnown = isTypeKnown()});
    }

    ChosenDimensions chosen() const {
        return [this](Dimension each) { return m_chosen[static_cast<std::size_t>(each)]; };
    }
    const DimensionChoice*& chosenOf(Dimension each) {
        return m_chosen[static_cast<std::size_t>(each)];
    }

    /// Finds whom the text of a dimension means. A person of another department is known, but does
    /// not belong to the given one.
    bool choose(Dimension dimension) {
        LookupScope scope;
        if (dimension == Dimension::item && !readItemClass(scope)) return false;
        const DimensionChoice* const department = chosenOf(Dimension::department);
        if (dimension == Dimension::person && department != nullptr)
            scope.department = department->id;
        const std::string& name = nameOf(m_planned.input.names, dimension);
        const auto found = m_facts.directory.find(dimension, name, scope);
        if (found.size() > 1) m_instead = equalNames(name, found);
        if (found.size() != 1)
            return found.empty() && dimension == Dimension::person &&
                   !m_facts.directory.find(dimension, name).empty();
        chosenOf(dimension) = found.front();
        if (dimension == Dimension::person && m_planned.input.names.department.empty())
            chosenOf(Dimension::department) =
                m_facts.directory.department(found.front()->department);
        return true;
    }

    bool readItemClass(LookupScope& scope) {
        const std::string given = text(EntryField::itemClass);
        if (given.empty()) return true;
        const auto code = m_facts.directory.classOf(given);
        if (!code) {
            m_instead = fmt::format(texts::classUnknown, given);
            m_insteadField = EntryField::itemClass;
            return false;
        }
        scope.itemClasses = {*code};
        return true;
    }

    static std::string equalNames(const std::string& name, const EntryDirectory::Found& found) {
        std::vector<std::string> codes;
        for (const DimensionChoice* choice : found)
            if (codes.size() < shownCodes) codes.push_back(choice->code);
        std::string listed = fmt::format("{}", fmt::join(codes, plan_texts::listSeparator));
        if (found.size() > codes.size()) listed += texts::moreCodes;
        return fmt::format(texts::equalNames, found.size(), name, listed);
    }

    void refuse(const Refusal& refusal) {
        m_planned.reason = refusal.notice.text;
        EntryField field = m_insteadField.value_or(shownIn(refusal.notice.focusField));
        const bool isOfNumber = field == EntryField::sign || field == EntryField::number;
        if (isOfNumber && m_sheet.columnOf(field) == 0) field = EntryField::voucherNumber;
        m_planned.column = m_sheet.columnOf(field);
        if (m_planned.column != 0) m_planned.heading = headingOf(field);
    }

    const EntrySheet& m_sheet;
    const EntryPlanFacts& m_facts;
    PlannedEntry m_planned;
    std::string m_direction;
    std::array<const DimensionChoice*, 4> m_chosen{};
    std::optional<std::string> m_instead;      ///< says more of a name than that it is unknown
    std::optional<EntryField> m_insteadField;  ///< when it is about another column
};

}  // namespace

std::span<const Check<EntryRowFacts>> entryRowChecks() { return rowChecks; }

std::size_t EntryPlan::refusedCount() const {
    return static_cast<std::size_t>(std::ranges::count_if(rows, &PlannedEntry::isRefused));
}

std::size_t EntryPlan::repeatedCount() const {
    return static_cast<std::size_t>(std::ranges::count_if(rows, &PlannedEntry::isThere));
}

std::vector<EntryChange> EntryPlan::changes() const {
    std::vector<EntryChange> changes;
    changes.reserve(rows.size());
    for (const PlannedEntry& row : rows) changes.push_back({.before = {}, .after = row.entry});
    return changes;
}

EntryPlan planEntries(const EntrySheet& sheet, const EntryPlanFacts& facts) {
    EntryPlan plan;
    plan.ignored = sheet.ignoredHeadings();
    plan.rows.reserve(sheet.rows().size());
    const StoredEntries stored(facts.entries);
    for (const std::size_t row : sheet.rows()) {
        PlannedEntry& planned = plan.rows.emplace_back(RowPlanner(sheet, facts, row).plan());
        planned.isThere = planned.entry && stored.have(planned.entry->content);
    }
    return plan;
}

std::string namesText(const PlannedEntry& row, const AuxiliaryMember& member) {
    const EntryNames& names = row.entry ? row.entry->names : row.input.names;
    std::string text;
    for (const DimensionWords& words : member.dimensions) {
        const std::string& name = nameOf(names, words.dimension);
        if (!text.empty() && !name.empty()) text += ' ';
        text += name;
    }
    return text;
}

}  // namespace chengheng
