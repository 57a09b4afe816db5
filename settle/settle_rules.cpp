#include "settle/settle_rules.h"

#include "base/values/text.h"
#include "settle/settle_texts.h"

namespace chengheng {
namespace {

constexpr std::int16_t chequeRegisterBit = 1;

bool isAddition(const SettleClashFacts& facts) { return facts.wanted.lId == 0; }

Notice numberClash(const SettleClashFacts& facts, bool isFirstLeaf) {
    using namespace settle_texts;
    if (!isAddition(facts)) return settleNumberNotice(numberNotModified);
    return settleNumberNotice(isFirstLeaf ? firstNumberNotAdded : numberNotAdded);
}

Notice nameClash(const SettleClashFacts& facts, bool isFirstLeaf) {
    using namespace settle_texts;
    if (!isAddition(facts)) return settleNameNotice(nameNotModified);
    return settleNameNotice(isFirstLeaf ? firstNameNotAdded : nameNotAdded);
}

/// Leaf by leaf, number before name.
std::optional<Notice> leafClash(const SettleClashFacts& facts) {
    for (const Leaf& leaf : facts.leaves) {
        if (leaf.id == facts.wanted.lId) continue;
        const auto [number, name] = settleLeafParts(leaf.text);
        const bool isFirst = &leaf == &facts.leaves.front();
        if (number == facts.wanted.sStlId) return numberClash(facts, isFirst);
        if (name == facts.wanted.sSettle) return nameClash(facts, isFirst);
    }
    return std::nullopt;
}

std::optional<Notice> storedNumberClash(const SettleClashFacts& facts) {
    if (!facts.hasStoredNumber(facts.wanted.sStlId)) return std::nullopt;
    return numberClash(facts, false);
}

std::optional<Notice> storedNameClash(const SettleClashFacts& facts) {
    if (!facts.hasStoredName(facts.wanted.sSettle)) return std::nullopt;
    return nameClash(facts, false);
}

}  // namespace

Notice settleNumberNotice(const char* text) {
    return {.text = text, .beep = true, .focusField = settleNumberField};
}

Notice settleNameNotice(const char* text) {
    return {.text = text, .beep = true, .focusField = settleNameField};
}

const std::array<SettleClashCheck, 3> settleClashChecks{{
    {"no leaf has its number or name", leafClash},
    {"no stored method has its number", storedNumberClash},
    {"no stored method has its name", storedNameClash},
}};

std::optional<Notice> settleClash(const SettleClashFacts& facts) {
    for (const SettleClashCheck& check : settleClashChecks) {
        if (auto refusal = check.refusal(facts)) return refusal;
    }
    return std::nullopt;
}

SettleInput settleInput(const _SettleInfo& method) {
    return {method.sStlId, method.sSettle, (method.bNote & chequeRegisterBit) != 0};
}

_SettleInfo settleRecord(const SettleInput& input, const _SettleInfo& base) {
    const int otherBits = base.bNote & ~chequeRegisterBit;
    return {.lId = base.lId,
            .sStlId = std::string(withoutBlanksAround(input.number)),
            .sSettle = std::string(withoutBlanksAround(input.name)),
            .bNote = static_cast<std::int16_t>(otherBits | (input.usesChequeRegister ? 1 : 0))};
}

std::string settleLeafText(const _SettleInfo& method) {
    return method.sStlId + ' ' + method.sSettle;
}

SettleLeafParts settleLeafParts(std::string_view leafText) {
    const std::size_t blank = leafText.find(' ');
    if (blank == std::string_view::npos) return {leafText, {}};
    return {leafText.substr(0, blank), leafText.substr(blank + 1)};
}

}  // namespace chengheng
