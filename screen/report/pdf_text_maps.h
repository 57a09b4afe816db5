#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace chengheng {

/// Makes a PDF file, as bytes, anew with each of its text maps as `change` returns it. What is
/// wrong with the file, or empty; then the bytes are as they were.
std::string changeTextMaps(std::string& pdf,
                           const std::function<std::string(std::string_view)>& change);

}  // namespace chengheng
