#pragma once

#include <chrono>
#include <string>

namespace chengheng {

/// "2026-11-23T18:04:05.123+08:00": by the clock of this workstation, with its offset from UTC.
std::string logTime(std::chrono::system_clock::time_point moment);

}  // namespace chengheng
