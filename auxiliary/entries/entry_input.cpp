#include "auxiliary/entries/entry_input.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "auxiliary/members/auxiliary_texts.h"
#include "base/values/amount_text.h"
#include "base/values/numbers.h"
#include "base/values/text.h"
#include "opening/editing/typed_amount.h"

namespace chengheng {
namespace {

constexpr int writtenDecimals = 5;

using Found = std::optional<Refusal>;

Refusal refusal(const char* text, const char* field) {
    return {RefusalKind::wrongInput, {.text = text, .focusField = field}};
}

bool isBlank(const std::string& text) { return withoutBlanksAround(text).empty(); }

/// Without a text nothing is refused here.
Found amountRefusal(const std::string& text, const char* field, const char* invalid) {
    if (isBlank(text)) return std::nullopt;
    const auto amount = readAmount(text);
    if (!amount) return refusal(invalid, field);
    if (!(std::fabs(*amount) < leastTooLarge)) return refusal(auxiliary_texts::tooLarge, field);
    return std::nullopt;
}

Found dateWrong(const EntryFacts& facts) {
    const auto date = parseDate(withoutBlanksAround(facts.input.date));
    const bool fits = date && date->year == facts.day.year && date->month == facts.day.month &&
                      date->day <= facts.day.day;
    if (fits) return std::nullopt;
    return refusal(auxiliary_texts::dateInvalid, entryDateField);
}

Found moneyEmpty(const EntryFacts& facts) {
    if (!isBlank(facts.input.money)) return std::nullopt;
    return refusal(auxiliary_texts::moneyEmpty, entryMoneyField);
}

Found moneyInvalid(const EntryFacts& facts) {
    return amountRefusal(facts.input.money, entryMoneyField, auxiliary_texts::moneyInvalid);
}

Found moneyZero(const EntryFacts& facts) {
    if (!facts.member.refusesZero || typedAmount(facts.input.money, Measure::money) != 0)
        return std::nullopt;
    return refusal(auxiliary_texts::moneyZero, entryMoneyField);
}

Found summaryEmpty(const EntryFacts& facts) {
    if (!isBlank(facts.input.summary)) return std::nullopt;
    return refusal(auxiliary_texts::summaryEmpty, entrySummaryField);
}

Found dimensionWrong(const EntryFacts& facts) {
    for (const DimensionWords& words : facts.member.dimensions) {
        const char* const field = entryField(words.dimension);
        if (!isBlank(nameOf(facts.input.names, words.dimension))) {
            if (!facts.isKnown(words.dimension)) return refusal(words.unknown, field);
        } else if (words.empty != nullptr) {
            return refusal(words.empty, field);
        }
    }
    return std::nullopt;
}

Found dimensionsApart(const EntryFacts& facts) {
    if (facts.member.mismatch == nullptr || facts.belongTogether()) return std::nullopt;
    return refusal(facts.member.mismatch, entryField(Dimension::person));
}

Found foreignInvalid(const EntryFacts& facts) {
    return amountRefusal(facts.input.foreign, entryForeignField, auxiliary_texts::foreignInvalid);
}

Found quantityInvalid(const EntryFacts& facts) {
    return amountRefusal(facts.input.quantity, entryQuantityField,
                         auxiliary_texts::quantityInvalid);
}

Found numberInvalid(const EntryFacts& facts) {
    const std::string_view number = withoutBlanksAround(facts.input.number);
    const bool fits = std::ranges::all_of(number, isDigit) &&
                      number.size() <= static_cast<std::size_t>(entryNumberWidth);
    if (fits) return std::nullopt;
    return refusal(auxiliary_texts::numberInvalid, entryNumberField);
}

constexpr std::array checks{
    Check<EntryFacts>{"the date is of the last month before the books begin", dateWrong},
    Check<EntryFacts>{"there is an amount", moneyEmpty},
    Check<EntryFacts>{"the amount is a number", moneyInvalid},
    Check<EntryFacts>{"the amount is not 0", moneyZero},
    Check<EntryFacts>{"there is a summary", summaryEmpty},
    Check<EntryFacts>{"the names are those of records", dimensionWrong},
    Check<EntryFacts>{"the person is of the department", dimensionsApart},
    Check<EntryFacts>{"the foreign amount is a number", foreignInvalid},
    Check<EntryFacts>{"the quantity is a number", quantityInvalid},
    Check<EntryFacts>{"the voucher number is a number", numberInvalid},
};

std::string amountText(double value) {
    return value == 0 ? std::string() : ftoa(value, writtenDecimals);
}

}  // namespace

const char* entryField(Dimension dimension) {
    switch (dimension) {
        case Dimension::department:
            return "lDeptId";
        case Dimension::person:
            return "lPersonId";
        case Dimension::unit:
            return "lEnterId";
        case Dimension::item:
            break;
    }
    return "lItemId";
}

EntryInput entryInput(const AuxiliaryEntry& entry) {
    const EntryContent& content = entry.content;
    EntryInput input;
    input.date = isoText(content.date);
    input.sign = content.sign;
    if (content.number != 0) input.number = std::to_string(content.number);
    input.summary = content.summary;
    input.names = entry.names;
    input.money = ftoa(content.money, writtenDecimals);
    input.foreign = amountText(content.foreign);
    input.quantity = amountText(content.quantity);
    input.isDebit = content.isDebit;
    return input;
}

Date openingEntryDay(const Date& start) {
    const bool isJanuary = start.month == 1;
    Date day = start;
    day.year = static_cast<std::int16_t>(start.year - (isJanuary ? 1 : 0));
    day.month = static_cast<std::uint8_t>(isJanuary ? 12 : start.month - 1);
    day.day = static_cast<std::uint8_t>(daysInMonth(day.year, day.month));
    return day;
}

std::span<const Check<EntryFacts>> entryChecks() { return checks; }

EntryContent contentOf(const EntryInput& input) {
    EntryContent content;
    content.date = parseDate(withoutBlanksAround(input.date)).value_or(Date());
    content.sign = input.sign;
    const std::string_view number = withoutBlanksAround(input.number);
    std::from_chars(number.data(), number.data() + number.size(), content.number);
    content.summary = std::string(withoutBlanksAround(input.summary));
    content.isDebit = input.isDebit;
    content.money = typedAmount(input.money, Measure::money);
    content.foreign = typedAmount(input.foreign, Measure::foreign);
    content.quantity = typedAmount(input.quantity, Measure::quantity);
    return content;
}

std::string rewrittenAmount(const std::string& text) {
    const auto amount = readAmount(text);
    return amount ? ftoa(*amount, writtenDecimals) : text;
}

}  // namespace chengheng
