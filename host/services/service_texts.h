#pragma once

#include <string>
#include <string_view>

/// What the host's own functions tell the operator.
namespace chengheng::service_texts {

std::string rightMissing(std::string_view functionName);
std::string rightUnknown(int function);
std::string rightsUnreadable(std::string_view functionName);
std::string nobodyLoggedOn(std::string_view functionName);
inline constexpr const char* currencyGone = "该外币已经被删除!";
inline constexpr const char* currencyUnreadable =
    "无法读取外币资料,操作没有进行。\n请检查数据库连接后再试。";

}  // namespace chengheng::service_texts
