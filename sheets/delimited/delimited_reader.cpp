#include "sheets/delimited/delimited_reader.h"

#include <algorithm>
#include <compare>
#include <map>
#include <optional>
#include <utility>

#include "sheets/sheet_texts.h"

namespace chengheng {
namespace {

constexpr char quote = '"';

bool isLineEnd(char letter) { return letter == '\r' || letter == '\n'; }

/// How well a separator fits a text; the greater fits better.
struct Fitness {
    bool isClean;        ///< no quote stands where none should
    std::size_t lines;   ///< lines that it cuts into the same number of cells
    std::size_t length;  ///< that number

    auto operator<=>(const Fitness&) const = default;
};

Fitness fitnessOf(char separator, std::string_view sample, bool isCut) {
    DelimitedReader reader(sample, separator, LoneQuotes::refuse);
    std::map<std::size_t, std::size_t> linesOfLength;
    std::string cell;
    while (reader.next(cell)) {
        // The last line of a text that was cut short may lack cells.
        const bool isWhole = !isCut || !reader.isAtEnd() || reader.row() == 1;
        if (reader.isLastOfRow() && reader.column() > 1 && isWhole)
            ++linesOfLength[reader.column()];
    }
    Fitness best{};
    for (const auto& [length, lines] : linesOfLength)
        best = std::max(best, Fitness{false, lines, length});
    const std::optional<SheetFailure>& failure = reader.failure();
    const bool isCutQuote = isCut && failure && failure->reason == sheet_texts::quoteNotClosed;
    best.isClean = !reader.hasBareQuote() && (!failure || isCutQuote);
    return best;
}

}  // namespace

DelimitedReader::DelimitedReader(std::string_view text, char separator, LoneQuotes loneQuotes)
    : m_text(text), m_separator(separator), m_loneQuotes(loneQuotes) {}

bool DelimitedReader::next(std::string& cell) {
    if (m_isLastOfRow) m_row += passRun('\n');
    if (m_failure || (m_isLastOfRow && isAtEnd())) return false;
    m_column = m_isLastOfRow ? 1 : m_column + 1;
    if (m_isLastOfRow) ++m_row;
    m_column += passRun(m_separator);
    if (!readCell(cell)) return false;
    m_isLastOfRow = isAtEnd() || m_text[m_at] != m_separator;
    skipCellEnd();
    return true;
}

/// Passes the same sign as often as it stands here: empty cells or rows, however many, in one
/// step. Gives their number.
std::size_t DelimitedReader::passRun(char sign) {
    const std::size_t begin = m_at;
    m_at = std::min(m_text.find_first_not_of(sign, begin), m_text.size());
    return m_at - begin;
}

/// Reads a cell up to the separator or line end after it.
bool DelimitedReader::readCell(std::string& cell) {
    const std::size_t begin = m_at;
    if (m_text.substr(begin).starts_with(quote) && readQuoted(cell)) return true;
    if (m_failure) return false;
    m_at = bareEnd(begin);
    cell = m_text.substr(begin, m_at - begin);
    m_hasBareQuote = m_hasBareQuote || cell.find(quote) != std::string::npos;
    return cell.find('\0') == std::string::npos || refuse(sheet_texts::notReadableText);
}

/// Reads a cell in quotes. False when its quotes do not pair.
bool DelimitedReader::readQuoted(std::string& cell) {
    std::size_t from = m_at + 1;
    std::size_t end = m_text.find(quote, from);
    cell.clear();
    while (end != std::string_view::npos && m_text.substr(end + 1).starts_with(quote)) {
        cell += m_text.substr(from, end + 1 - from);
        from = end + 2;
        end = m_text.find(quote, from);
    }
    const bool isRefused = m_loneQuotes == LoneQuotes::refuse;
    if (end == std::string_view::npos)
        return isRefused ? refuse(sheet_texts::quoteNotClosed) : false;
    if (!isCellEnd(end + 1)) return isRefused ? refuse(sheet_texts::textAfterQuote) : false;
    cell += m_text.substr(from, end - from);
    m_at = end + 1;
    return cell.find('\0') == std::string::npos || refuse(sheet_texts::notReadableText);
}

std::size_t DelimitedReader::bareEnd(std::size_t from) const {
    while (!isCellEnd(from)) ++from;
    return from;
}

bool DelimitedReader::isCellEnd(std::size_t at) const {
    return at >= m_text.size() || m_text[at] == m_separator || isLineEnd(m_text[at]);
}

bool DelimitedReader::refuse(const char* reason) {
    m_failure = SheetFailure{.reason = reason, .row = m_row, .column = m_column};
    return false;
}

/// Passes the separator or line end at which the reader stands, if there is one.
void DelimitedReader::skipCellEnd() {
    if (m_text.substr(m_at).starts_with("\r\n"))
        m_at += 2;
    else if (!isAtEnd())
        ++m_at;
}

char separatorOf(std::string_view text) {
    constexpr std::size_t sampleSize = 65536;
    constexpr std::string_view separators = ",\t;";
    const std::string_view sample = text.substr(0, sampleSize);
    char best = separators.front();
    std::optional<Fitness> bestFitness;
    for (const char separator : separators) {
        const Fitness fitness = fitnessOf(separator, sample, sample.size() < text.size());
        if (!bestFitness || fitness > *bestFitness) {
            best = separator;
            bestFitness = fitness;
        }
    }
    return best;
}

}  // namespace chengheng
