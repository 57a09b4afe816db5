#include "auxiliary/screen/entry_form.h"

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
    return m_messages.ask({.text = auxiliary_texts::discardInput, .preset = Answer::no}) ==
           Answer::yes;
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

bool EntryForm::settle(Dimension dimension, const ChoicePicker& pick) {
    if (chosen(dimension) != nullptr || withoutBlanksAround(nameOf(input.names, dimension)).empty())
        return true;
    std::vector<DimensionChoice> found;
    if (!find(dimension, found)) return false;
    if (found.empty()) return true;
    const auto choice = found.size() == 1 ? std::optional(found.front()) : pick(dimension, found);
    if (choice) choose(dimension, *choice);
    return true;
}

std::vector<DimensionChoice> EntryForm::choices(Dimension dimension) {
    std::vector<DimensionChoice> all;
    LookupScope scope;
    if (!readScope(scope) || !readChoices(*g_pDB, dimension, scope, all))
        tellLastFailure(m_messages);
    return all;
}

void EntryForm::choose(Dimension dimension, const DimensionChoice& choice) {
    nameOf(input.names, dimension) = choice.name;
    chosenOf(dimension) = Chosen{choice.name, choice};
    if (dimension == Dimension::person) takeDepartmentOf(choice);
}

void EntryForm::takeDepartmentOf(const DimensionChoice& person) {
    if (!withoutBlanksAround(input.names.department).empty()) return;
    const std::string name = CGetData::GetDeptName(g_lpszNbZwDBName, person.department);
    if (name.empty()) return;
    choose(Dimension::department, {.id = person.department, .code = {}, .name = name});
}

std::optional<AuxiliaryEntry> EntryForm::accept(const ChoicePicker& pick) {
    m_focusField.clear();
    if (m_isModifying && !isChanged()) {
        input.money = rewrittenAmount(input.money);
        return m_modified;
    }
    bool hasFailed = false;
    // A person of another department is known, but does not belong to the typed one.
    const auto isKnown = [&](Dimension dimension) {
        hasFailed = hasFailed || !settle(dimension, pick);
        if (hasFailed || chosen(dimension) != nullptr) return !hasFailed;
        if (dimension != Dimension::person) return false;
        std::vector<DimensionChoice> anywhere;
        const std::string_view typed = withoutBlanksAround(input.names.person);
        hasFailed = !findByText(*g_pDB, dimension, typed, {}, anywhere);
        if (hasFailed) tellLastFailure(m_messages);
        return !anywhere.empty();
    };
    const ChosenDimensions asChosen = [this](Dimension dimension) { return chosen(dimension); };
    const auto refusal =
        firstRefusal(entryChecks(), {.member = m_member,
                                     .input = input,
                                     .day = openingEntryDay(CGetData::GetStartDate()),
                                     .isKnown = isKnown,
                                     .belongTogether = [&] { return belongTogether(asChosen); }});
    if (hasFailed) return std::nullopt;
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
