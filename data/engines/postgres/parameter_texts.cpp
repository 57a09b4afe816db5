#include "data/engines/postgres/parameter_texts.h"

#include <charconv>
#include <cmath>
#include <cstring>

namespace chengheng {
namespace {

/// Room for any number's shortest text and its end.
constexpr std::size_t numberRoom = 32;
constexpr double longestWholeNumber = 1e15;

/// Whole numbers stand without an exponent, so that integer columns take them, too.
char* writeReal(char* first, double number) {
    if (std::trunc(number) == number && std::abs(number) < longestWholeNumber)
        return std::to_chars(first, first + numberRoom, static_cast<std::int64_t>(number)).ptr;
    return std::to_chars(first, first + numberRoom, number).ptr;
}

}  // namespace

void ParameterTexts::fill(std::span<const Value> values) {
    std::size_t needed = 0;
    for (const Value& value : values)
        needed += value.kind == ValueKind::text ? value.text.size() + 1 : numberRoom;
    if (m_room.size() < needed) m_room.resize(needed);
    m_texts.clear();
    char* free = m_room.data();
    for (const Value& value : values) {
        if (value.kind == ValueKind::null) {
            m_texts.push_back(nullptr);
            continue;
        }
        m_texts.push_back(free);
        if (value.kind == ValueKind::integer) {
            free = std::to_chars(free, free + numberRoom, value.integer).ptr;
        } else if (value.kind == ValueKind::real) {
            free = writeReal(free, value.real);
        } else if (!value.text.empty()) {
            std::memcpy(free, value.text.data(), value.text.size());
            free += value.text.size();
        }
        *free++ = '\0';
    }
    m_bytes = static_cast<std::size_t>(free - m_room.data());
}

Status checkValues(std::span<const Value> values) {
    for (const Value& value : values) {
        if (value.kind == ValueKind::text && value.text.find('\0') != std::string_view::npos)
            return Status::of(Failure::refused, "text with a zero byte");
    }
    return Status::done();
}

}  // namespace chengheng
