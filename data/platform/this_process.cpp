#include "data/platform/this_process.h"

#include <unistd.h>

#include <array>

namespace chengheng {

std::string stationName() {
    std::array<char, 256> name{};
    // The last byte stays 0: a name that is cut need not end with one.
    if (gethostname(name.data(), name.size() - 1) != 0) return {};
    return name.data();
}

std::int64_t processNumber() { return getpid(); }

}  // namespace chengheng
