#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

namespace chengheng {

/// A hash of a statement's shape for finding it again within this process; eight bytes a
/// step, since it is taken of every statement.
inline std::uint64_t shapeHash(std::string_view shape) {
    constexpr std::uint64_t factor = 0x9E3779B97F4A7C15U;
    std::uint64_t hash = shape.size() * factor;
    const auto mix = [&hash](std::uint64_t eight) {
        hash = (hash ^ eight) * factor;
        hash ^= hash >> 32;
    };
    std::uint64_t eight = 0;
    for (; shape.size() >= 8; shape.remove_prefix(8)) {
        std::memcpy(&eight, shape.data(), 8);
        mix(eight);
    }
    eight = 0;
    std::memcpy(&eight, shape.data(), shape.size());
    mix(eight);
    return hash;
}

}  // namespace chengheng
