#include "opening/editing/amount_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>

#include "base/values/numbers.h"
#include "base/values/text.h"

namespace chengheng {
namespace {

constexpr int deepestBrackets = 50;

struct Rewriting {
    std::string_view from;
    char to;
};

constexpr std::array rewritings{
    Rewriting{"。", '.'}, Rewriting{"　", ' '}, Rewriting{"−", '-'},  Rewriting{"×", '*'},
    Rewriting{"÷", '/'},  Rewriting{"￥", ' '}, Rewriting{"¥", ' '},  Rewriting{"\u00A0", ' '},
    Rewriting{"\t", ' '}, Rewriting{"\n", ' '}, Rewriting{"\r", ' '}, Rewriting{"\u2028", ' '}};

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

std::string narrow(std::string_view text) {
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

/// Reads numbers and sums from the front of a text. After a fault nothing more is right.
class AmountReader {
  public:
    explicit AmountReader(std::string_view text) : m_text(text) {}

    /// A number without a sign, its separators anywhere between the digits of its whole part.
    double number() {
        std::string digits;
        while (!m_text.empty()) {
            const bool isSeparator = m_text.size() > 1 && m_text[0] == ',' && !digits.empty() &&
                                     isDigit(digits.back()) && isDigit(m_text[1]) &&
                                     digits.find('.') == std::string::npos;
            if (!isSeparator && !isDigit(m_text[0]) && m_text[0] != '.') break;
            if (!isSeparator) digits += m_text[0];
            m_text.remove_prefix(1);
        }
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
        if (m_isFaulty) return 0;
        if (take('-')) return -factor(depth + 1);
        if (take('+')) return factor(depth + 1);
        if (take('(')) {
            const double value = sum(depth + 1);
            if (!take(')')) m_isFaulty = true;
            return value;
        }
        return number();
    }
    char takeAnyOf(std::string_view letters) {
        for (const char letter : letters)
            if (take(letter)) return letter;
        return '\0';
    }
    void skipBlanks() {
        while (!m_text.empty() && m_text[0] == ' ') m_text.remove_prefix(1);
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

}  // namespace

std::optional<double> readAmount(std::string_view text) {
    const std::string plain = narrow(text);
    const std::string_view amount = withoutBlanksAround(plain);
    if (amount == "-") return 0;
    AmountReader reader(amount);
    bool isClosed = true;
    const double value = reader.take('=') ? reader.sum() : signedNumber(reader, isClosed);
    if (!isClosed || !reader.isDone() || !std::isfinite(value)) return std::nullopt;
    return value + 0.0;
}

double typedAmount(std::string_view text, Measure measure) {
    double value = readAmount(text).value_or(0);
    Round(value, decimalsOf(measure));
    return value;
}

}  // namespace chengheng
