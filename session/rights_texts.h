#pragma once

#include <string>
#include <string_view>

/// What operators are told about rights and passwords.
namespace chengheng::rights_texts {

/// What should be known of a password.
inline constexpr const char* withoutPassword = "没有口令:任何人都能用这个姓名登录。";
inline constexpr const char* commonPassword = "这是最常见的口令之一,很容易被猜中。";
inline constexpr const char* passwordIsName = "口令与姓名相同,很容易被猜中。";

inline constexpr const char* supervisor = "主管";
inline constexpr const char* betweenRights = "、";
inline constexpr const char* supervisorMissing = "你没有[主管]权限!";

std::string rightMissing(std::string_view functionName);
std::string rightUnknown(int function);
/// `reason` is why, empty when the operator simply has no rights recorded.
std::string rightsUnreadable(std::string_view functionName, std::string_view reason);
std::string nobodyLoggedOn(std::string_view functionName);

}  // namespace chengheng::rights_texts
