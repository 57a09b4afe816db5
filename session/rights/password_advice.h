#pragma once

#include <string_view>

namespace chengheng {

/// What should be known of a password before it is taken: that there is none, that it is one of
/// those that are tried first, or that it is the name. Empty where nothing is to be said. It never
/// keeps anybody from taking it.
const char* passwordAdvice(std::string_view password, std::string_view name);

}  // namespace chengheng
