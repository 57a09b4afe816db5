#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "data/sql/sql_writing.h"

namespace chengheng {

/// What stands in a format's place: decided when the program is compiled.
enum class Conversion : std::uint8_t {
    integer,   ///< %d, %ld, %u
    real,      ///< %lf
    text,      ///< %s inside quotes
    pattern,   ///< %s inside quotes that follow LIKE
    fragment,  ///< %s outside quotes
};

namespace format_detail {

constexpr bool isBlank(char letter) {
    return letter == ' ' || letter == '\t' || letter == '\r' || letter == '\n';
}

/// Whether the text ends in the word LIKE, blanks left aside.
constexpr bool endsInLike(std::string_view text) {
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    if (text.size() < 5 || !isBlank(text[text.size() - 5])) return false;
    text.remove_prefix(text.size() - 4);
    constexpr std::string_view word = "like";
    for (std::size_t at = 0; at < word.size(); ++at)
        if (static_cast<char>(text[at] | 0x20) != word[at]) return false;
    return true;
}

struct FoundConversion {
    Conversion conversion;
    std::size_t length;  ///< 0: none that is known
};

constexpr FoundConversion conversionAt(std::string_view text, bool isQuoted, bool isPattern) {
    if (text.starts_with("%d") || text.starts_with("%u")) return {Conversion::integer, 2};
    if (text.starts_with("%ld")) return {Conversion::integer, 3};
    if (text.starts_with("%lf")) return {Conversion::real, 3};
    if (!text.starts_with("%s")) return {Conversion::fragment, 0};
    if (!isQuoted) return {Conversion::fragment, 2};
    return {isPattern ? Conversion::pattern : Conversion::text, 2};
}

template <class Argument>
constexpr bool takes(Conversion conversion) {
    switch (conversion) {
        case Conversion::integer:
            return SqlInteger<Argument>;
        case Conversion::real:
            return std::is_floating_point_v<Argument>;
        case Conversion::text:
        case Conversion::pattern:
            return SqlText<Argument>;
        case Conversion::fragment:
            return std::is_same_v<Argument, SqlFragment>;
    }
    return false;
}

}  // namespace format_detail

/// A format and where its values go, checked against the kinds of the arguments when the
/// program is compiled.
///
///   formatSql("lCodeId = %d AND sCode LIKE '%s%%'", id, code)
///
/// "%d", "%ld" and "%u" take integers (an empty optional is NULL); "%lf" a double, written
/// with six decimals and always a point; "'%s'" a text, its quotes doubled, and in a LIKE
/// pattern its %, _ and \ escaped by a backslash; "%s" outside quotes an SqlFragment; "%%" is
/// a percent sign. A double that is no number is written so that no statement with it can be
/// read.
template <class... Arguments>
class SqlFormat {
  public:
    template <class Text>
    requires std::is_convertible_v<const Text&, std::string_view>
    consteval SqlFormat(const Text& text) {  // NOLINT: a literal is a format
        if (const char* fault = read(text)) throw fault;
    }

    /// What keeps a text from being a format for these arguments; null when nothing does.
    static constexpr const char* faultOf(std::string_view text) { return SqlFormat().read(text); }

    /// The longest text that the arguments can give.
    std::size_t bound(const Arguments&... arguments) const {
        return m_text.size() + (std::size_t{0} + ... + boundOf(arguments));
    }
    /// Writes to a place of at least `bound` characters; gives the end.
    char* write(char* at, const Arguments&... arguments) const {
        return writeAll(at, std::index_sequence_for<Arguments...>{}, arguments...);
    }

  private:
    struct Piece {
        std::uint32_t start = 0;
        std::uint32_t length = 0;
        bool hasPercent = false;
    };

    constexpr SqlFormat() = default;

    constexpr const char* read(std::string_view text) {
        m_text = text;
        std::size_t count = 0;
        std::size_t start = 0;
        bool isQuoted = false;
        bool isPattern = false;
        for (std::size_t at = 0; at < text.size(); ++at) {
            if (text[at] == '\'') {
                isPattern = !isQuoted && format_detail::endsInLike(text.substr(0, at));
                isQuoted = !isQuoted;
            }
            if (text[at] != '%') continue;
            if (text.substr(at, 2) == "%%") {
                m_pieces[count].hasPercent = true;
                ++at;
                continue;
            }
            const auto found = format_detail::conversionAt(text.substr(at), isQuoted, isPattern);
            if (found.length == 0) return "a conversion other than %d, %ld, %u, %lf, %s, %%";
            if (count == sizeof...(Arguments)) return "more conversions than arguments";
            if (!isQuoted && at > start && text[at - 1] == '-') return "a minus before a value";
            setPiece(count, start, at);
            m_conversions[count++] = found.conversion;
            start = at + found.length;
            at = start - 1;
        }
        if (isQuoted) return "a quote is left open";
        if (count != sizeof...(Arguments)) return "more arguments than conversions";
        setPiece(count, start, text.size());
        const bool fits = isFitting(std::index_sequence_for<Arguments...>{});
        return fits ? nullptr : "an argument does not fit its conversion";
    }

    constexpr void setPiece(std::size_t index, std::size_t start, std::size_t end) {
        m_pieces[index].start = static_cast<std::uint32_t>(start);
        m_pieces[index].length = static_cast<std::uint32_t>(end - start);
    }

    template <std::size_t... index>
    constexpr bool isFitting(std::index_sequence<index...>) const {
        return (true && ... && format_detail::takes<Arguments>(m_conversions[index]));
    }

    char* writePiece(char* at, const Piece& piece) const {
        const std::string_view text = m_text.substr(piece.start, piece.length);
        return piece.hasPercent ? writeFoldingPercent(at, text) : writePlain(at, text);
    }

    template <std::size_t... index>
    char* writeAll(char* at, std::index_sequence<index...>, const Arguments&... arguments) const {
        ((at = writePiece(at, m_pieces[index]),
          at = writeValue(at, arguments, m_conversions[index] == Conversion::pattern)),
         ...);
        return writePiece(at, m_pieces[sizeof...(Arguments)]);
    }

    std::string_view m_text;
    std::array<Piece, sizeof...(Arguments) + 1> m_pieces{};
    std::array<Conversion, sizeof...(Arguments)> m_conversions{};
};

/// Appends a formatted text; for batches of many statements.
template <class... Arguments>
void appendSql(std::string& out, const SqlFormat<std::type_identity_t<Arguments>...>& format,
               const Arguments&... arguments) {
    constexpr std::size_t roomOnStack = 1024;
    const std::size_t bound = format.bound(arguments...);
    if (bound <= roomOnStack) {
        char room[roomOnStack];
        out.append(room, format.write(room, arguments...));
        return;
    }
    const std::size_t before = out.size();
    out.resize(before + bound);
    const char* end = format.write(out.data() + before, arguments...);
    out.resize(static_cast<std::size_t>(end - out.data()));
}

/// The formatted text. The only way to a statement with values.
template <class... Arguments>
std::string formatSql(const SqlFormat<std::type_identity_t<Arguments>...>& format,
                      const Arguments&... arguments) {
    std::string text;
    appendSql(text, format, arguments...);
    return text;
}

}  // namespace chengheng
