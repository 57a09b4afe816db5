#include "data/log/log_time.h"

#include <fmt/format.h>

#include <cstdlib>
#include <ctime>

namespace chengheng {

std::string logTime(std::chrono::system_clock::time_point moment) {
    using std::chrono::floor;
    const auto whole = floor<std::chrono::seconds>(moment);
    const auto thousandths = floor<std::chrono::milliseconds>(moment - whole).count();
    const std::time_t seconds = std::chrono::system_clock::to_time_t(whole);
    std::tm local{};
    localtime_r(&seconds, &local);
    const long minutes = std::labs(local.tm_gmtoff) / 60;
    return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}.{:03}{}{:02}:{:02}",
                       local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                       local.tm_min, local.tm_sec, thousandths, local.tm_gmtoff < 0 ? '-' : '+',
                       minutes / 60, minutes % 60);
}

}  // namespace chengheng
