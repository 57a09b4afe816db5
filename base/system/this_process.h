#pragma once

#include <cstdint>
#include <string>

namespace chengheng {

/// The name of this machine, as other workstations are shown it.
std::string stationName();

std::int64_t processNumber();

/// The file name of the program that runs, "chengheng"; empty when it cannot be told.
std::string programName();

/// The folder of the program that runs; "." when it cannot be told.
std::string programFolder();

}  // namespace chengheng
