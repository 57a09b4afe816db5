#include "opening/editing/typed_amount.h"

#include <fmt/format.h>

#include "base/values/amount_text.h"
#include "base/values/numbers.h"
#include "opening/sheet/opening_texts.h"

namespace chengheng {

const char* whyNoAmount(std::string_view text) {
    return isNumberWithDecimalComma(text) ? opening_texts::decimalComma : opening_texts::noNumber;
}

double typedAmount(std::string_view text, Measure measure) {
    double value = readAmount(text).value_or(0);
    Round(value, decimalsOf(measure));
    return value;
}

std::string shownSum(std::string_view text, Measure measure) {
    if (!isSum(text)) return {};
    if (!readAmount(text)) return opening_texts::noSumYet;
    return fmt::format(opening_texts::sum,
                       ftoaWithSap(typedAmount(text, measure), decimalsOf(measure)));
}

}  // namespace chengheng
