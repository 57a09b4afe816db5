#pragma once

#include <string>
#include <string_view>

namespace chengheng {

/// A text as it stands in an XLSX file: characters that XML cannot hold are written as
/// _x0001_, and so is what would be read as such a sign.
std::string escapedForXlsx(std::string_view text);

/// The text that was meant. What is no such sign stays as it is.
std::string unescapedFromXlsx(std::string_view text);

}  // namespace chengheng
