#pragma once

#include <string>
#include <string_view>

/// What an operator without a right is told.
namespace chengheng::rights_texts {

std::string rightMissing(std::string_view functionName);
std::string rightUnknown(int function);
/// `reason` is why, empty when the operator simply has no rights recorded.
std::string rightsUnreadable(std::string_view functionName, std::string_view reason);
std::string nobodyLoggedOn(std::string_view functionName);

}  // namespace chengheng::rights_texts
