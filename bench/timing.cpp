#include "bench/timing.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace bench {
namespace {

double milliseconds(const std::function<void()>& work) {
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    work();
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

}  // namespace

void reportTimes(const std::string& name, const Pair& pair, double target, int runs) {
    std::vector<double> ours;
    std::vector<double> floor;
    for (int run = 0; run <= runs; ++run) {
        pair.reset();
        const double floorTime = milliseconds(pair.floor);
        pair.reset();
        const double oursTime = milliseconds(pair.ours);
        // The first turn only warms the caches.
        if (run == 0) continue;
        floor.push_back(floorTime);
        ours.push_back(oursTime);
    }
    // What else the machine does only adds to a time.
    const double leastOurs = std::ranges::min(ours);
    const double leastFloor = std::ranges::min(floor);
    reportTime(name, leastOurs, leastFloor, target);
}

void reportTime(const std::string& name, double ours, double floor, double target) {
    std::printf("%s, %.1f ms, %.1f ms, %.2f, %.2f\n", name.c_str(), ours, floor, ours / floor,
                target);
    std::fflush(stdout);
}

void reportLimit(const std::string& name, const std::function<void()>& work, double most,
                 int runs) {
    double least = milliseconds(work);
    for (int run = 0; run < runs; ++run) least = std::min(least, milliseconds(work));
    std::printf("%s, %.2f ms, at most %.1f ms, %.2f, %.2f\n", name.c_str(), least, most,
                least / most, 1.0);
    std::fflush(stdout);
}

void reportMemory(const std::string& name, double ours, double floor, double target) {
    std::printf("%s, %.1f MiB, %.1f MiB, %.2f, %.2f\n", name.c_str(), ours, floor, ours / floor,
                target);
    std::fflush(stdout);
}

void require(bool isDone, const char* step) {
    if (isDone) return;
    std::fprintf(stderr, "bench: %s failed\n", step);
    std::exit(1);
}

}  // namespace bench
