#include "session/lock_wait_text.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <algorithm>
#include <ctime>

#include "base/values/text.h"
#include "session/session_texts.h"

namespace chengheng {
namespace {

namespace texts = session_texts;

std::string clockText(std::chrono::system_clock::time_point moment) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(moment);
    std::tm local{};
    localtime_r(&seconds, &local);
    return fmt::format("{:%Y-%m-%d %H:%M:%S}", local);
}

}  // namespace

std::string tableTitle(std::string_view table) {
    const auto found = std::ranges::find_if(texts::lockTitles, [&](const texts::LockTitle& known) {
        return isSameInAnyCase(known.name, table);
    });
    if (found != texts::lockTitles.end()) return found->title;
    constexpr std::string_view itemTables = "ProjItems";
    const bool isOfItems = isSameInAnyCase(table.substr(0, itemTables.size()), itemTables);
    return isOfItems ? tableTitle(itemTables) : std::string(table);
}

std::string lockWaitText(const LockHolder& holder) {
    const auto orUnknown = [](const std::string& text) {
        return text.empty() ? texts::unknown : text;
    };
    if (holder.lockName.empty()) return texts::fileHeldBySomebody;
    if (holder.operatorName.empty() && holder.station.empty())
        return fmt::format(texts::lockHeldBySomebody, tableTitle(holder.lockName));
    std::string text = fmt::format(
        texts::lockHolder, tableTitle(holder.lockName), orUnknown(holder.operatorName),
        orUnknown(holder.station),
        holder.since.time_since_epoch().count() == 0 ? texts::unknown : clockText(holder.since));
    if (!holder.function.empty()) text += fmt::format(texts::holdersFunction, holder.function);
    return text;
}

std::string waitedText(std::chrono::milliseconds waited) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(waited).count();
    if (seconds < 60) return fmt::format(texts::secondsWaited, seconds);
    return fmt::format(texts::minutesWaited, seconds / 60, seconds % 60);
}

}  // namespace chengheng
