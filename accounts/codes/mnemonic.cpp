#include "accounts/codes/mnemonic.h"

#include <fmt/format.h>
#include <unicode/translit.h>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "base/values/text.h"

namespace chengheng {
namespace {

/// Words in which a character is read otherwise than on its own.
constexpr std::array<std::pair<std::string_view, std::string_view>, 24> words{{
    {"银行", "YH"}, {"央行", "YH"}, {"商行", "SH"}, {"工行", "GH"},    {"农行", "NH"},
    {"中行", "ZH"}, {"建行", "JH"}, {"交行", "JH"}, {"招行", "ZH"},    {"分行", "FH"},
    {"支行", "ZH"}, {"行业", "HY"}, {"会计", "KJ"}, {"调整", "TZ"},    {"调节", "TJ"},
    {"调剂", "TJ"}, {"重组", "CZ"}, {"重置", "CZ"}, {"重分类", "CFL"}, {"重庆", "CQ"},
    {"厦门", "XM"}, {"成都", "CD"}, {"给付", "JF"}, {"供给", "GJ"},
}};

/// 长 grows in these words and is long in all others.
constexpr std::array<std::string_view, 5> wordsOfGrowth{"长辈", "长者", "家长", "校长", "增长"};

bool isLetterOrDigit(char character) {
    return (character >= '0' && character <= '9') || (character >= 'A' && character <= 'Z');
}

char capital(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

/// The first letter of a character's reading; 0 when it has none.
char readInitial(std::string_view character) {
    static const std::unique_ptr<icu::Transliterator> reading = [] {
        UErrorCode outcome = U_ZERO_ERROR;
        std::unique_ptr<icu::Transliterator> made(
            icu::Transliterator::createInstance("Han-Latin; Latin-ASCII", UTRANS_FORWARD, outcome));
        return U_SUCCESS(outcome) ? std::move(made) : nullptr;
    }();
    char initial = capital(character.front());
    if (character.size() > 1) {
        if (reading == nullptr) return 0;
        auto text = icu::UnicodeString::fromUTF8(
            {character.data(), static_cast<std::int32_t>(character.size())});
        reading->transliterate(text);
        const char16_t first = text.isEmpty() ? u'\0' : text.charAt(0);
        initial = first < 0x80 ? capital(static_cast<char>(first)) : '\0';
    }
    return isLetterOrDigit(initial) ? initial : '\0';
}

/// The same; a character is read only once, as reading takes longer than all the rest of an
/// import.
char initialOf(std::string_view character) {
    thread_local std::unordered_map<std::string, char> known;
    const auto [entry, isNew] = known.try_emplace(std::string(character), '\0');
    if (isNew) entry->second = readInitial(character);
    return entry->second;
}

bool isLong(std::string_view name, std::size_t at) {
    return std::ranges::none_of(wordsOfGrowth, [&](std::string_view word) {
        const std::size_t place = word.find("长");
        return at >= place && name.substr(at - place).starts_with(word);
    });
}

/// Appends the initials of the word at a place and gives its length in bytes.
std::size_t appendInitials(std::string_view name, std::size_t at, std::string& initials) {
    const std::string_view rest = name.substr(at);
    for (const auto& [word, letters] : words) {
        if (!rest.starts_with(word)) continue;
        initials += letters;
        return word.size();
    }
    const std::string_view character = firstCharacters(rest, 1);
    const bool isLongHere = character == "长" && isLong(name, at);
    const char initial = isLongHere ? 'C' : initialOf(character);
    if (initial != 0) initials += initial;
    return character.size();
}

}  // namespace

std::string inPlainCapitals(std::string_view text) {
    std::string capitals(text);
    std::ranges::transform(capitals, capitals.begin(), capital);
    return capitals;
}

std::string initialsOf(std::string_view name) {
    std::string initials;
    for (std::size_t at = 0; at < name.size();) at += appendInitials(name, at, initials);
    return initials;
}

std::string proposedMnemonic(std::string_view name,
                             const std::function<bool(std::string_view)>& isTaken) {
    return MnemonicSeries().next(name, isTaken);
}

std::string MnemonicSeries::next(std::string_view name,
                                 const std::function<bool(std::string_view)>& isTaken) {
    const std::string initials = initialsOf(name);
    if (initials.empty()) return {};
    int& number = m_numbers[initials];
    std::string proposed;
    do {
        ++number;
        proposed = number == 1 ? initials : fmt::format("{}{}", initials, number);
    } while (isTaken(proposed));
    return proposed;
}

bool isMnemonicOf(std::string_view name, std::string_view mnemonic) {
    const std::string initials = initialsOf(name);
    if (initials.empty() || !mnemonic.starts_with(initials)) return false;
    return std::ranges::all_of(mnemonic.substr(initials.size()),
                               [](char digit) { return digit >= '0' && digit <= '9'; });
}

}  // namespace chengheng
