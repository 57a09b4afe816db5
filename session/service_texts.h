#pragma once

#include <string>
#include <string_view>

/// What the host's own functions tell the operator.
namespace chengheng::service_texts {

std::string rightMissing(std::string_view functionName);
std::string rightUnknown(int function);
/// `reason` is why, empty when the operator simply has no rights recorded.
std::string rightsUnreadable(std::string_view functionName, std::string_view reason);
std::string nobodyLoggedOn(std::string_view functionName);
inline constexpr const char* currencyGone = "该外币已经被删除!";
std::string currencyUnreadable(std::string_view reason);

}  // namespace chengheng::service_texts
