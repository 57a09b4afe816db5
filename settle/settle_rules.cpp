#include "settle/settle_rules.h"

#include <array>

#include "base/values/text.h"
#include "settle/settle_texts.h"

namespace chengheng {
namespace {

constexpr std::int16_t chequeRegisterBit = 1;

bool isAddition(const SettleClashFacts& facts) { return facts.wanted.lId == 0; }

Refusal numberClash(const SettleClashFacts& facts, bool isFirstLeaf) {
    using namespace settle_texts;
    if (!isAddition(facts)) return settleNumberRefusal(numberNotModified);
    return settleNumberRefusal(isFirstLeaf ? firstNumberNotAdded : numberNotAdded);
}

Refusal nameClash(const SettleClashFacts& facts, bool isFirstLeaf) {
    using namespace settle_texts;
    if (!isAddition(facts)) return settleNameRefusal(nameNotModified);
    return settleNameRefusal(isFirstLeaf ? firstNameNotAdded : nameNotAdded);
}

/// Leaf by leaf, number before name.
std::optional<Refusal> leafClash(const SettleClashFacts& facts) {
    for (const Leaf& leaf : facts.leaves) {
        if (leaf.id == facts.wanted.lId) continue;
        const auto [number, name] = settleLeafParts(leaf.text);
        const bool isFirst = &leaf == &facts.leaves.front();
        if (number == facts.wanted.sStlId) return numberClash(facts, isFirst);
        if (name == facts.wanted.sSettle) return nameClash(facts, isFirst);
    }
    return std::nullopt;
}

std::optional<Refusal> storedNumberClash(const SettleClashFacts& facts) {
    if (!facts.hasStoredNumber(facts.wanted.sStlId)) return std::nullopt;
    return numberClash(facts, false);
}

std::optional<Refusal> storedNameClash(const SettleClashFacts& facts) {
    if (!facts.hasStoredName(facts.wanted.sSettle)) return std::nullopt;
    return nameClash(facts, false);
}

constexpr std::array clashChecks{
    Check<SettleClashFacts>{"no leaf has its number or name", leafClash},
    Check<SettleClashFacts>{"no stored method has its number", storedNumberClash},
    Check<SettleClashFacts>{"no stored method has its name", storedNameClash},
};

}  // namespace

Refusal settleNumberRefusal(const char* text) {
    return {RefusalKind::wrongInput, {.text = text, .beep = true, .focusField = settleNumberField}};
}

Refusal settleNameRefusal(const char* text) {
    return {RefusalKind::wrongInput, {.text = text, .beep = true, .focusField = settleNameField}};
}

std::span<const Check<SettleClashFacts>> settleClashChecks() { return clashChecks; }

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
