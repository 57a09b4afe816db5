#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace chengheng {

/// What a byte may begin outside quoted text.
enum class Character : std::uint8_t {
    forbidden,
    blank,
    lineEnd,
    letter,
    digit,
    quote,
    nameQuote,
    symbol,
};

constexpr std::array<Character, 256> characterTable() {
    std::array<Character, 256> table{};
    const auto mark = [&table](const char* letters, Character character) {
        for (; *letters != '\0'; ++letters) table[static_cast<unsigned char>(*letters)] = character;
    };
    mark("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_", Character::letter);
    mark("0123456789", Character::digit);
    mark(" \t\f\v", Character::blank);
    mark("\r\n", Character::lineEnd);
    mark("'", Character::quote);
    mark("\"", Character::nameQuote);
    mark("(),.;=<>!+-*/%|", Character::symbol);
    return table;
}

constexpr std::array<char, 256> lowerTable() {
    std::array<char, 256> table{};
    for (std::size_t code = 0; code < table.size(); ++code)
        table[code] = static_cast<char>(code >= 'A' && code <= 'Z' ? code | 0x20U : code);
    return table;
}

inline constexpr auto characters = characterTable();
inline constexpr auto lowerLetters = lowerTable();

constexpr Character characterOf(char letter) {
    return characters[static_cast<unsigned char>(letter)];
}
constexpr char lowerOf(char letter) { return lowerLetters[static_cast<unsigned char>(letter)]; }
inline std::string_view textBetween(const char* start, const char* end) {
    return {start, static_cast<std::size_t>(end - start)};
}

constexpr bool isWordPart(char letter) {
    const Character character = characterOf(letter);
    return character == Character::letter || character == Character::digit;
}

}  // namespace chengheng
