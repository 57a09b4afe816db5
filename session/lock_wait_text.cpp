#include "session/lock_wait_text.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <ctime>

#include "base/values/text.h"

namespace chengheng {
namespace {

struct LockTitle {
    std::string_view name;
    const char* title;
};

/// What a lock keeps for its holder, in a bookkeeper's words. AssSum, RegSug and UnRegSug are
/// names that lock lists carry (sic).
constexpr std::array titles{
    LockTitle{"Code", "会计科目"},        LockTitle{"AccSum", "科目余额"},
    LockTitle{"AssAcc", "辅助核算余额"},  LockTitle{"Settle", "结算方式"},
    LockTitle{"Sign", "凭证类别"},        LockTitle{"Cyrency", "外币"},
    LockTitle{"ExchgFix", "固定汇率"},    LockTitle{"ExchgFlt", "浮动汇率"},
    LockTitle{"Users", "操作员"},         LockTitle{"UserAuth", "操作员权限"},
    LockTitle{"RegMain", "凭证"},         LockTitle{"RegSub", "凭证"},
    LockTitle{"UnRegMain", "未记帐凭证"}, LockTitle{"UnRegSub", "未记帐凭证"},
    LockTitle{"AssSum", "辅助核算余额"},  LockTitle{"RegSug", "凭证"},
    LockTitle{"UnRegSug", "未记帐凭证"},  LockTitle{"RecpBank", "银行对帐单"},
    LockTitle{"RecpEnter", "往来对帐单"},
};

constexpr const char* holderText =
    "“{}”正被其他人使用,请稍候。\n\n操作员:{}\n工作站:{}\n开始时间:{}";
constexpr const char* functionLine = "\n正在使用的功能:{}";
constexpr const char* unknown = "(未知)";

std::string titleOf(const std::string& lockName) {
    const auto found = std::ranges::find_if(
        titles, [&](const LockTitle& known) { return isSameInAnyCase(known.name, lockName); });
    return found == titles.end() ? lockName : found->title;
}

std::string clockText(std::chrono::system_clock::time_point moment) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(moment);
    std::tm local{};
    localtime_r(&seconds, &local);
    return fmt::format("{:%Y-%m-%d %H:%M:%S}", local);
}

}  // namespace

std::string lockWaitText(const LockHolder& holder) {
    const auto orUnknown = [](const std::string& text) { return text.empty() ? unknown : text; };
    std::string text =
        fmt::format(holderText, titleOf(holder.lockName), orUnknown(holder.operatorName),
                    orUnknown(holder.station), clockText(holder.since));
    if (!holder.function.empty()) text += fmt::format(functionLine, holder.function);
    return text;
}

std::string waitedText(std::chrono::milliseconds waited) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(waited).count();
    if (seconds < 60) return fmt::format("{} 秒", seconds);
    return fmt::format("{} 分 {:02} 秒", seconds / 60, seconds % 60);
}

}  // namespace chengheng
