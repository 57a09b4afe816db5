#include "opening/editing/typed_amount.h"

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

}  // namespace chengheng
