#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace chengheng {

/// A number without a sign and without the separators of its groups: "1,234,567.5" becomes
/// "1234567.5". Nothing unless each group before the point but the first has three digits and
/// the first has one to three and does not begin with 0: "1,5", "12,34" and "0,125" are meant
/// as something else. What else stands there is not looked at.
std::optional<std::string> withoutDigitGroups(std::string_view number);

/// Whether a comma stands where the point should: "1,5", "0,01", "1.234,56".
bool hasDecimalComma(std::string_view number);

}  // namespace chengheng
