#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// A fuzz target by the name of its file, fuzz/NAME_fuzz.cpp.
struct FuzzTarget {
    std::string name;
    int (*run)(const std::uint8_t* data, std::size_t size);
};

/// All of them; the build writes the list.
std::vector<FuzzTarget> fuzzTargets();
