#include "auxiliary/screen/entry_form.h"

#include <algorithm>

#include "auxiliary/entries/chosen_dimensions.h"
#include "auxiliary/members/auxiliary_texts.h"
#include "base/values/text.h"
#include "data/access/host_database.h"
#include "data/lookups/CGetData.h"
#include "session/last_failure.h"
#include "session/open_books.h"

namespace chengheng {
namespace {

EntryInput emptyInput(const AuxiliaryAccount& account) {
    EntryInput input;
    input.date = isoText(openingEntryDay(CGetData::GetStartDate()));
    input.isDebit = account.isDebit;
    return input;
}

DimensionChoice choiceOf(const AuxiliaryEntry& entry, Dimension dimension) {
    const EntryDimensions& of = entry.content.of;
    DimensionChoice choice{.id = of.item, .code = {}, .name = nameOf(entry.names, dimension)};
    if (dimension == Dimension::department) choice.id = of.department;
    if (dimension == Dimension::unit) choice.id = of.unit;
    if (dimension == Dimension::item) choice.itemClass = of.itemClass;
    if (dimension == Dimension::person) {
        choice.id = of.person.value_or(0);
        choice.department = of.department;
    }
    return choice;
}

}  // namespace

std::vector<std::string> codesToPickFrom(const std::vector<DimensionChoice>& choices) {
    const bool areOfSeveralClasses = std::ranges::any_of(
        choices, [&](const auto& each) { return each.itemClass != choices.front().itemClass; });
    std::vector<std::string> codes;
    codes.reserve(choices.size());
    for (const DimensionChoice& each : choices)
        codes.push_back(areOfSeveralClasses ? each.itemClass + ' ' + each.code : each.code);
    return codes;
}

EntryForm::EntryForm(IMessages& messages, const AuxiliaryMember& member,
                     const AuxiliaryAccount& account, const AuxiliaryEntry* modified)
    : input(modified != nullptr ? entryInput(*modified) : emptyInput(account)),
      m_messages(messages),
      m_member(member),
      m_account(account),
      m_isModifying(modified != nullptr),
      m_loaded(input) {
    if (modified == nullptr) return;
    m_modified = *modified;
    for (const DimensionWords& words : m_member.dimensions) {
        const std::string& name = nameOf(input.names, words.dimension);
        if (!name.empty())
            chosenOf(words.dimension) = Chosen{name, choiceOf(*modified, words.dimension)};
    }
}

const char* EntryForm::title() const {
    return m_isModifying ? m_member.modifyingTitle : m_member.addingTitle;
}

bool EntryForm::mayGiveUp(bool isByButton) {
    if (!isChanged() || (isByButton && !m_member.asksBeforeGivingUp)) return true;
    return m_messages.ask({.text = auxiliary_texts::discardInput}) == Answer::yes;
}

const DimensionChoice* EntryForm::chosen(Dimension dimension) const {
    const auto& found = m_chosen[static_cast<std::size_t>(dimension)];
    const std::string_view typed = withoutBlanksAround(nameOf(input.names, dimension));
    return found && found->name == typed ? &found->choice : nullptr;
}

Status EntryForm::readScope(LookupScope& scope) {
    Status status = selectOpenBooks();
    if (const DimensionChoice* department = chosen(Dimension::department))
        scope.department = department->id;
    if (status && m_member.has(Dimension::item))
        status = readItemClasses(*g_pDB, m_account.id, scope.itemClasses);
    return status;
}

bool EntryForm::find(Dimension dimension, std::vector<DimensionChoice>& found) {
    const std::string_view typed = withoutBlanksAround(nameOf(input.names, dimension));
    LookupScope scope;
    if (readScope(scope) && findByText(*g_pDB, dimension, typed, scope, found)) return true;
    tellLastFailure(m_messages);
    return false;
}

Settling EntryForm::settle(Dimension dimension, const ChoicePicker& pick) {
    if (chosen(dimension) != nullptr) return Settling::named;
    if (withoutBlanksAround(nameOf(input.names, dimension)).empty()) return Settling::unknown;
    std::vector<DimensionChoice> found;
    if (!find(dimension, found)) return Settling::failed;
    if (found.empty()) return Settling::unknown;
    const auto choice = found.size() == 1 ? std::optional(found.front()) : pick(dimension, found);
    if (!choice) return Settling::undecided;
    return choose(dimension, *choice) ? Settling::named : Settling::failed;
}

std::optional<std::vector<DimensionChoice>> EntryForm::choices(Dimension dimension) {
    std::vector<DimensionChoice> all;
    LookupScope scope;
    if (readScope(scope) && readChoices(*g_pDB, dimension, scope, all)) return all;
    tellLastFailure(m_messages);
    return std::nullopt;
}

bool EntryForm::choose(Dimension dimension, const DimensionChoice& choice) {
    if (dimension == Dimension::person && !takeDepartmentOf(choice)) return false;
    nameOf(input.names, dimension) = choice.name;
    chosenOf(dimension) = Chosen{choice.name, choice};
    return true;
}

bool EntryForm::takeDepartmentOf(const DimensionChoice& person) {
    if (!withoutBlanksAround(input.names.department).empty()) return true;
    std::optional<DimensionChoice> department;
    if (!selectOpenBooks() || !readDepartment(*g_pDB, person.department, department)) {
        tellLastFailure(m_messages);
        return false;
    }
    return !department || choose(Dimension::department, *department);
}

/// A person of another department is known, but does not belong to the typed one.
Settling EntryForm::settleForGood(Dimension dimension, const ChoicePicker& pick) {
    const Settling settling = settle(dimension, pick);
    if (settling != Settling::unknown || dimension != Dimension::person) return settling;
    std::vector<DimensionChoice> anywhere;
    const std::string_view typed = withoutBlanksAround(input.names.person);
    if (!findByText(*g_pDB, dimension, typed, {}, anywhere)) {
        tellLastFailure(m_messages);
        return Settling::failed;
    }
    return anywhere.empty() ? Settling::unknown : Settling::named;
}

std::optional<AuxiliaryEntry> EntryForm::accept(const ChoicePicker& pick) {
    m_focusField.clear();
    if (m_isModifying && !isChanged()) {
        input.money = rewrittenAmount(input.money);
        return m_modified;
    }
    bool goesOn = true;
    const auto isKnown = [&](Dimension dimension) {
        const Settling settling = settleForGood(dimension, pick);
        goesOn = settling != Settling::failed && settling != Settling::undecided;
        if (!goesOn) m_focusField = entryField(dimension);
        return settling == Settling::named;
    };
    const ChosenDimensions asChosen = [this](Dimension dimension) { return chosen(dimension); };
    const auto refusal =
        firstRefusal(entryChecks(), {.member = m_member,
                                     .input = input,
                                     .day = openingEntryDay(CGetData::GetStartDate()),
                                     .isKnown = isKnown,
                                     .belongTogether = [&] { return belongTogether(asChosen); }});
    if (!goesOn) return std::nullopt;
    if (refusal) {
        m_focusField = refusal->notice.focusField;
        m_messages.tell(refusal->notice);
        if (m_focusField == entryDateField)
            input.date = isoText(openingEntryDay(CGetData::GetStartDate()));
        return std::nullopt;
    }
    AuxiliaryEntry entry = m_modified;
    fillEntry(m_member, input, asChosen, entry);
    input.money = rewrittenAmount(input.money);
    return entry;
}

}  // namespace chengheng
