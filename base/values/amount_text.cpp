#include "base/values/amount_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>

#include "base/values/digit_groups.h"
#include "base/values/text.h"

namespace chengheng {
namespace {

constexpr int deepestBrackets = 50;

struct Rewriting {
    std::string_view from;
    char to;
};

/// What stands for a letter of a number or for a blank: the wide point and blank, minus, times,
/// divided by, two currency signs, and blanks that spreadsheets give.
constexpr std::array rewritings{
    Rewriting{"\u3002", '.'}, Rewriting{"\u3000", ' '}, Rewriting{"\u2212", '-'},
    Rewriting{"\u00D7", '*'}, Rewriting{"\u00F7", '/'}, Rewriting{"\uFFE5", ' '},
    Rewriting{"\u00A5", ' '}, Rewriting{"\u00A0", ' '}, Rewriting{"\t", ' '},
    Rewriting{"\n", ' '},     Rewriting{"\r", ' '},     Rewriting{"\u2028", ' '}};

/// The wide forms of the letters "!" to "~" are U+FF01 to U+FF5E.
std::optional<char> narrowForm(std::string_view text) {
    if (text.size() < 3 || text[0] != '\xEF') return std::nullopt;
    const auto middle = static_cast<unsigned char>(text[1]);
    const auto last = static_cast<unsigned char>(text[2]);
    if (middle < 0xBC || middle > 0xBD || last < 0x80 || last > 0xBF) return std::nullopt;
    const int letter = '!' + (middle - 0xBC) * 0x40 + last - 0x81;
    if (letter < '!' || letter > '~') return std::nullopt;
    return static_cast<char>(letter);
}

/// Reads numbers and sums from the front of a text. After a fault nothing more is right.
class AmountReader {
  public:
    explicit AmountReader(std::string_view text) : m_text(text) {}

    /// A number without a sign. One with a decimal comma is read over as any other.
    double number() {
        const std::string_view written = takeWritten();
        const bool isWithComma = hasDecimalComma(written);
        if (isWithComma) m_hasDecimalComma = true;
        std::string digits = isWithComma ? "0" : withoutDigitGroups(written).value_or("");
        takeExponent(digits);
        double value = 0;
        const char* const end = digits.data() + digits.size();
        const auto read = std::from_chars(digits.data(), end, value);
        if (digits.empty() || read.ec != std::errc{} || read.ptr != end) m_isFaulty = true;
        return value;
    }
    double sum(int depth = 0) {
        double value = product(depth);
        while (const char sign = takeAnyOf("+-")) {
            const double next = product(depth);
            value += sign == '+' ? next : -next;
        }
        return value;
    }
    bool take(char letter) {
        skipBlanks();
        if (m_isFaulty || m_text.empty() || m_text[0] != letter) return false;
        m_text.remove_prefix(1);
        return true;
    }
    bool isDone() {
        skipBlanks();
        return !m_isFaulty && m_text.empty();
    }
    bool hasMetDecimalComma() const { return m_hasDecimalComma; }

  private:
    double product(int depth) {
        double value = factor(depth);
        while (const char sign = takeAnyOf("*/")) {
            const double next = factor(depth);
            value = sign == '*' ? value * next : value / next;
        }
        return value;
    }
    double factor(int depth) {
        if (depth > deepestBrackets) m_isFaulty = true;
        if (take('-')) return -factor(depth + 1);
        if (take('+')) return factor(depth + 1);
        double value = 0;
        if (take('(')) {
            value = sum(depth + 1);
            if (!take(')')) m_isFaulty = true;
        } else {
            value = number();
        }
        while (take('%')) value /= 100;
        return value;
    }
    char takeAnyOf(std::string_view letters) {
        for (const char letter : letters)
            if (take(letter)) return letter;
        return '\0';
    }
    void skipBlanks() {
        while (!m_text.empty() && m_text[0] == ' ') m_text.remove_prefix(1);
    }
    /// Digits, points and separators.
    std::string_view takeWritten() {
        const std::size_t end = std::min(m_text.find_first_not_of("0123456789.,"), m_text.size());
        const std::string_view written = m_text.substr(0, end);
        m_text.remove_prefix(end);
        return written;
    }
    void takeExponent(std::string& digits) {
        if (digits.empty() || m_text.empty() || (m_text[0] != 'e' && m_text[0] != 'E')) return;
        digits += 'e';
        m_text.remove_prefix(1);
        if (!m_text.empty() && (m_text[0] == '+' || m_text[0] == '-')) {
            if (m_text[0] == '-') digits += '-';
            m_text.remove_prefix(1);
        }
        while (!m_text.empty() && isDigit(m_text[0])) {
            digits += m_text[0];
            m_text.remove_prefix(1);
        }
    }

    std::string_view m_text;
    bool m_isFaulty = false;
    bool m_hasDecimalComma = false;
};

/// A number with an optional sign, or in brackets when it is negative.
double signedNumber(AmountReader& reader, bool& isClosed) {
    isClosed = true;
    if (reader.take('(')) {
        const double value = -reader.number();
        isClosed = reader.take(')');
        return value;
    }
    if (reader.take('-')) return -reader.number();
    reader.take('+');
    return reader.number();
}

struct Reading {
    std::optional<double> value;
    bool hasDecimalComma = false;  ///< which is all that keeps it from being a number
};

Reading readingOf(std::string_view text) {
    const std::string plain = narrowLetters(text);
    const std::string_view amount = withoutBlanksAround(plain);
    if (amount == "-") return {.value = 0};
    AmountReader reader(amount);
    bool isClosed = true;
    const double value = reader.take('=') ? reader.sum() : signedNumber(reader, isClosed);
    if (!isClosed || !reader.isDone()) return {};
    if (reader.hasMetDecimalComma()) return {.value = std::nullopt, .hasDecimalComma = true};
    return {.value = std::isfinite(value) ? std::optional(value + 0.0) : std::nullopt};
}

}  // namespace

std::string narrowLetters(std::string_view text) {
    std::string made;
    while (!text.empty()) {
        const auto rewriting = std::ranges::find_if(
            rewritings, [text](const Rewriting& each) { return text.starts_with(each.from); });
        if (rewriting != rewritings.end()) {
            made += rewriting->to;
            text.remove_prefix(rewriting->from.size());
        } else if (const auto letter = narrowForm(text)) {
            made += *letter;
            text.remove_prefix(3);
        } else {
            made += text.front();
            text.remove_prefix(1);
        }
    }
    return made;
}

bool isSum(std::string_view text) {
    const std::string plain = narrowLetters(text);
    return withoutBlanksAround(plain).starts_with('=');
}

std::optional<double> readAmount(std::string_view text) { return readingOf(text).value; }

bool isNumberWithDecimalComma(std::string_view text) { return readingOf(text).hasDecimalComma; }

}  // namespace chengheng
