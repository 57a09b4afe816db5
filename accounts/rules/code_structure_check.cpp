#include "accounts/rules/code_structure_check.h"

#include <array>

#include "accounts/chart/account_entry.h"
#include "accounts/chart/account_texts.h"
#include "accounts/rules/entry_refusal.h"
#include "base/values/text.h"

namespace chengheng {
namespace {

std::optional<Refusal> codeRefusalIf(bool isRefused, const char* text) {
    return entryRefusalIf(isRefused, text, account_field::code);
}

std::optional<Refusal> codeIsThere(const CodeFacts& facts) {
    return codeRefusalIf(facts.code.empty(), account_texts::codeMissing);
}

std::optional<Refusal> codeHasNoBlank(const CodeFacts& facts) {
    return codeRefusalIf(hasBlank(facts.code), account_texts::codeHasBlank);
}

std::optional<Refusal> codeIsUnique(const CodeFacts& facts) {
    return codeRefusalIf(facts.isTaken(), account_texts::codeNotUnique);
}

std::optional<Refusal> codeFitsALevel(const CodeFacts& facts) {
    return codeRefusalIf(!facts.levels.isWellFormed(facts.code), account_texts::codeMalformed);
}

std::optional<Refusal> parentIsThere(const CodeFacts& facts) {
    const bool isAtTop = facts.levels.parentOf(facts.code).empty();
    return codeRefusalIf(!isAtTop && !facts.hasParent, account_texts::parentMissing);
}

constexpr std::array codeCheckList{
    Check<CodeFacts>{"code is there", codeIsThere},
    Check<CodeFacts>{"code has no blank", codeHasNoBlank},
    Check<CodeFacts>{"code is unique", codeIsUnique},
    Check<CodeFacts>{"code fits a level", codeFitsALevel},
    Check<CodeFacts>{"parent is there", parentIsThere},
};

}  // namespace

std::span<const Check<CodeFacts>> codeChecks() { return codeCheckList; }
std::span<const Check<CodeFacts>> codeTextChecks() { return codeChecks().first(2); }
std::span<const Check<CodeFacts>> codePlaceChecks() { return codeChecks().last(2); }

}  // namespace chengheng
