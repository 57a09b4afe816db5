#include "session/rights_texts.h"

#include <fmt/format.h>

namespace chengheng::rights_texts {

std::string rightMissing(std::string_view functionName) {
    return fmt::format("你没有[{}]权限!", functionName);
}

std::string rightUnknown(int function) {
    return fmt::format("权限表中没有第{}号功能,不能使用!", function);
}

std::string rightsUnreadable(std::string_view functionName, std::string_view reason) {
    if (reason.empty()) reason = "帐套中没有你的权限记录,请主管在财务分工中重新设置。";
    return fmt::format("无法读取你的权限,不能使用[{}]!\n{}", functionName, reason);
}

std::string nobodyLoggedOn(std::string_view functionName) {
    return fmt::format("没有登录操作员,不能使用[{}]!", functionName);
}

}  // namespace chengheng::rights_texts
