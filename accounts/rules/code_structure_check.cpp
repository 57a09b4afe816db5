#include "accounts/rules/code_structure_check.h"

#include <algorithm>
#include <span>

#include "accounts/chart/account_texts.h"
#include "base/values/text.h"

namespace chengheng {
namespace {

bool isMissing(const CodeFacts& facts) { return facts.code.empty(); }

bool hasBlankInside(const CodeFacts& facts) { return hasBlank(facts.code); }

bool isTaken(const CodeFacts& facts) { return facts.isTaken(facts.code); }

bool isMalformed(const CodeFacts& facts) { return !facts.levels.isWellFormed(facts.code); }

bool lacksParent(const CodeFacts& facts) {
    const std::string parent = facts.levels.parentOf(facts.code);
    return !parent.empty() && !facts.hasAccount(parent);
}

std::optional<Notice> firstRefusal(std::span<const CodeCheck> checks, const CodeFacts& facts) {
    const auto refusing = std::ranges::find_if(
        checks, [&facts](const CodeCheck& check) { return check.refuses(facts); });
    if (refusing == checks.end()) return std::nullopt;
    return Notice{.text = refusing->message, .beep = true, .focusField = codeField};
}

}  // namespace

const std::array<CodeCheck, 5> codeChecks{{
    {"code is there", isMissing, account_texts::codeMissing},
    {"code has no blank", hasBlankInside, account_texts::codeHasBlank},
    {"code is unique", isTaken, account_texts::codeNotUnique},
    {"code fits a level", isMalformed, account_texts::codeMalformed},
    {"parent is there", lacksParent, account_texts::parentMissing},
}};

std::optional<Notice> codeRefusal(const CodeFacts& facts) {
    return firstRefusal(codeChecks, facts);
}

std::optional<Notice> codeTextRefusal(const CodeFacts& facts) {
    return firstRefusal(std::span(codeChecks).first(2), facts);
}

std::optional<Notice> codePlaceRefusal(const CodeFacts& facts) {
    return firstRefusal(std::span(codeChecks).last(2), facts);
}

}  // namespace chengheng
