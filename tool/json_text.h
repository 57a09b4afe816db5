#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace chengheng {

/// JSON as the tool prints it. The order of the members is the order of writing; bytes that
/// are no UTF-8 come out as the replacement character.
using Json = nlohmann::ordered_json;

inline std::string jsonText(const Json& json) {
    return json.dump(2, ' ', false, Json::error_handler_t::replace);
}

}  // namespace chengheng
