#include "operators/operator_rules.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "base/values/text.h"
#include "operators/operator_texts.h"

namespace chengheng {
namespace {

namespace texts = operator_texts;

using Refused = std::optional<Refusal>;

Refusal fieldRefusal(std::string text, const char* field) {
    return {RefusalKind::wrongInput, {.text = std::move(text), .beep = true, .focusField = field}};
}

Refusal deletionRefusal(std::string text) {
    return {RefusalKind::wrongInput, {.text = std::move(text)}};
}

Refused passwordsMatch(const OperatorInputFacts& facts) {
    if (facts.input.password == facts.input.confirmation) return std::nullopt;
    return fieldRefusal(texts::passwordsDiffer, confirmationField);
}

Refused nameIsFree(const OperatorInputFacts& facts) {
    const std::string_view name = operatorName(facts.input);
    if (!facts.isNameTaken(name)) return std::nullopt;
    return fieldRefusal(facts.isAddition ? fmt::format(texts::nameTakenByAddition, name)
                                         : texts::nameTakenByModification,
                        operatorNameField);
}

constexpr std::array inputChecks{
    Check<OperatorInputFacts>{"password and confirmation are equal", passwordsMatch},
    Check<OperatorInputFacts>{"nobody else has the name", nameIsFree},
};

Refused isNotLoggedOn(const OperatorDeletionFacts& facts) {
    if (!facts.isLoggedOn) return std::nullopt;
    return deletionRefusal(fmt::format(texts::loggedOn, facts.name));
}

/// Vouchers that are not posted yet do not keep an operator.
Refused isNotUsed(const OperatorDeletionFacts& facts) {
    if (!facts.hasPostedVouchers) return std::nullopt;
    return deletionRefusal(texts::used);
}

Refused isNotLastSupervisor(const OperatorDeletionFacts& facts) {
    if (!facts.isLastSupervisor) return std::nullopt;
    return deletionRefusal(fmt::format(texts::lastSupervisorDeleted, facts.name));
}

constexpr std::array deletionChecks{
    Check<OperatorDeletionFacts>{"is not logged on", isNotLoggedOn},
    Check<OperatorDeletionFacts>{"is in no posted voucher", isNotUsed},
    Check<OperatorDeletionFacts>{"is not the last supervisor", isNotLastSupervisor},
};

Refused isSomebodyElse(const SupervisorEndFacts& facts) {
    if (!facts.isOwn) return std::nullopt;
    return deletionRefusal(texts::ownSupervision);
}

Refused leavesASupervisor(const SupervisorEndFacts& facts) {
    if (!facts.isLastSupervisor) return std::nullopt;
    return deletionRefusal(fmt::format(texts::lastSupervisorEnded, facts.name));
}

constexpr std::array endChecks{
    Check<SupervisorEndFacts>{"is not who is logged on here", isSomebodyElse},
    Check<SupervisorEndFacts>{"is not the last supervisor", leavesASupervisor},
};

std::string groupInWords(const OperatorRights& rights, int group) {
    const RightsGroup& found = rightsGroups()[static_cast<std::size_t>(group)];
    if (rights.state(group) == GroupState::all) return fmt::format(texts::wholeGroup, found.name);
    std::string names;
    for (int slot = 0; slot < functionsOf(group); ++slot) {
        if (!rights.grants(firstFunctionOf(group) + slot)) continue;
        if (!names.empty()) names += texts::betweenFunctions;
        names += found.functions[static_cast<std::size_t>(slot)];
    }
    return fmt::format(texts::partOfGroup, found.name, names);
}

/// Whether every operator has an id that no other has; they come in the order of the ids.
bool areToldApart(std::span<const _UsersInfo> users) {
    std::int32_t last = 0;
    return std::ranges::all_of(users, [&last](const _UsersInfo& user) {
        return user.lUserId > std::exchange(last, user.lUserId);
    });
}

}  // namespace

std::optional<std::vector<OperatorRecord>> pairedOperators(std::span<const _UsersInfo> users,
                                                           std::span<const _UserAuthInfo> rights) {
    if (users.empty() || users.size() != rights.size() || !areToldApart(users)) return std::nullopt;
    std::vector<OperatorRecord> paired;
    paired.reserve(users.size());
    for (std::size_t place = 0; place < users.size(); ++place)
        paired.push_back({.user = users[place], .rights = OperatorRights(rights[place].sAuthId)});
    return paired;
}

std::string_view operatorName(const OperatorInput& input) {
    return withoutBlanksAround(input.name);
}

bool isOperatorInputChanged(const OperatorInput& input, const OperatorInput& opened) {
    const std::string_view name = operatorName(input);
    return !name.empty() && (name != operatorName(opened) || input.password != opened.password ||
                             input.wantsNewPassword != opened.wantsNewPassword);
}

std::span<const Check<OperatorInputFacts>> operatorInputChecks() { return inputChecks; }

std::span<const Check<OperatorDeletionFacts>> operatorDeletionChecks() { return deletionChecks; }

std::span<const Check<SupervisorEndFacts>> supervisorEndChecks() { return endChecks; }

std::string rightsInWords(const OperatorRights& rights) {
    std::string words;
    for (int group = 0; group < rightsGroupCount; ++group) {
        if (rights.state(group) == GroupState::none) continue;
        if (!words.empty()) words += texts::betweenGroups;
        words += groupInWords(rights, group);
    }
    return words.empty() ? texts::nothing : words;
}

}  // namespace chengheng
