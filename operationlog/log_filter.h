#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace chengheng {

/// Which entries of the operation log are wanted; what is left empty keeps none out.
struct LogFilter {
    std::string operatorName = {};
    std::string from = {};                      ///< as logMoment gives it
    std::string to = {};                        ///< likewise; whatever begins with it belongs to it
    std::optional<std::int32_t> function = {};  ///< of the rights list; 0: of none
    std::string text = {};                      ///< stands in the words, letters in any case
    std::string account = {};                   ///< a code

    bool operator==(const LogFilter&) const = default;
};

/// A day, "2026-11-23" or "2026/11/23", alone or with a time of it down to minutes or seconds, as
/// the log writes it: "2026-11-23T18:04". Nothing for anything else.
std::optional<std::string> logMoment(std::string_view text);

/// "2026-11-23 18:04:05" of an entry's time.
std::string shownLogTime(std::string_view time);

}  // namespace chengheng
