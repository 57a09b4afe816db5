#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/system/this_process.h"
#include "base/values/date.h"
#include "base/values/status.h"

namespace chengheng {

// This workstation, its user and its processes.

/// The folder of the registry and of the sets of books made without a place of their own:
/// CHENGHENG_HOME, else "chengheng" in the user's data directory. Empty when there is none.
std::string booksHome();

/// The name by which the user is known to the operating system.
std::string systemUserName();

std::int32_t ownProcess();

/// Whether a process of this workstation lives and runs the same program as this one.
bool isOwnProgramAlive(std::int32_t process);

/// Whether it lives and runs a program of ours that people log on to books with.
bool isBooksProgramAlive(std::int32_t process);

/// Whether a program that somebody logged on to books with is known to have ended. Of those of
/// other workstations nothing is known.
bool hasBooksProgramEnded(std::string_view station, std::int32_t process);

/// The day by the local calendar.
Date today();

/// The hour, minute and second by the local clock.
struct ClockTime {
    int hour = 0;
    int minute = 0;
    int second = 0;
};
ClockTime timeOfDay();

/// "2026-11-22 14:05" for a moment in seconds since 1970, by the local calendar and clock; empty
/// for 0 and for what is no moment of our calendar.
std::string minuteText(double moment);

}  // namespace chengheng
