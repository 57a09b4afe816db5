#pragma once

#include <cstdint>
#include <string_view>

namespace chengheng {

/// What a cell or a parameter holds.
enum class ValueKind : std::uint8_t { null, integer, real, text };

/// A parameter of a prepared statement. Text is borrowed: it must outlive the call it is
/// passed to.
struct Value {
    ValueKind kind = ValueKind::null;
    std::int64_t integer = 0;
    double real = 0;
    std::string_view text;

    static Value ofNull() { return {}; }
    static Value of(std::int64_t number) { return {ValueKind::integer, number, 0, {}}; }
    static Value of(double number) { return {ValueKind::real, 0, number, {}}; }
    static Value of(std::string_view text) { return {ValueKind::text, 0, 0, text}; }
};

}  // namespace chengheng
