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

double median(std::vector<double> samples) {
    std::ranges::sort(samples);
    return samples[samples.size() / 2];
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
    std::printf("%s, %.1f ms, %.1f ms, %.2f, %.2f\n", name.c_str(), median(ours), median(floor),
                median(ours) / median(floor), target);
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
