#pragma once

#include <functional>
#include <string>

namespace bench {

/// Our work and the hand-written floor, run in turn so that a drift of the machine's speed
/// meets both.
struct Pair {
    std::function<void()> ours;
    std::function<void()> floor;
    /// Brings both back to the start; not timed.
    std::function<void()> reset = [] {};
};

/// Times the pair a few times and prints "name, ours, floor, ratio, target" with the least
/// times in milliseconds.
void reportTimes(const std::string& name, const Pair& pair, double target, int runs = 5);

/// Prints the line of times that were taken elsewhere, in milliseconds.
void reportTime(const std::string& name, double ours, double floor, double target);

/// The same for work whose floor is nothing: the least time against the longest it may take.
void reportLimit(const std::string& name, const std::function<void()>& work, double most,
                 int runs = 5);

/// Prints the same line for amounts in mebibytes.
void reportMemory(const std::string& name, double ours, double floor, double target);

/// Ends the program with a message when a step of a benchmark did not do its work: a number
/// measured on half a work would be a lie.
void require(bool isDone, const char* step);

}  // namespace bench
