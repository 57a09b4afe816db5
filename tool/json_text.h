#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace chengheng {

/// JSON as the tool prints it. The order of the members is the order of writing; bytes that
/// are no UTF-8 come out as the replacement character, control characters escaped.
using Json = nlohmann::ordered_json;

std::string jsonText(const Json& json);

}  // namespace chengheng
