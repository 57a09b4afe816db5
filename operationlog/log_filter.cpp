#include "operationlog/log_filter.h"

#include <array>

#include "base/values/date.h"
#include "base/values/text.h"

namespace chengheng {
namespace {

constexpr std::size_t dayLength = 10;
constexpr std::size_t timeLength = 8;

/// "18:04" or "18:04:05", each of two digits.
bool isTimeOfDay(std::string_view text) {
    constexpr std::array highest{23, 59, 59};
    if (text.size() != 5 && text.size() != timeLength) return false;
    for (std::size_t at = 0; at < text.size(); at += 3) {
        if (!isDigit(text[at]) || !isDigit(text[at + 1])) return false;
        if (at > 0 && text[at - 1] != ':') return false;
        const int number = (text[at] - '0') * 10 + (text[at + 1] - '0');
        if (number > highest[at / 3]) return false;
    }
    return true;
}

}  // namespace

std::optional<std::string> logMoment(std::string_view text) {
    const std::string_view moment = withoutBlanksAround(text);
    const std::size_t dayEnd = std::min(moment.find_first_of(" T"), moment.size());
    const auto day = parseDate(moment.substr(0, dayEnd));
    if (!day) return std::nullopt;
    std::string written = isoText(*day);
    if (dayEnd == moment.size()) return written;
    const std::string_view time = withoutLeadingBlanks(moment.substr(dayEnd + 1));
    if (!isTimeOfDay(time)) return std::nullopt;
    return written.append("T").append(time);
}

std::string shownLogTime(std::string_view time) {
    std::string shown(time.substr(0, dayLength + 1 + timeLength));
    if (shown.size() > dayLength) shown[dayLength] = ' ';
    return shown;
}

}  // namespace chengheng
