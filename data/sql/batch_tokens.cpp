#include <cstring>

#include "base/values/utf8.h"
#include "data/sql/batch_reader.h"
#include "data/sql/characters.h"
#include "data/sql/number.h"

// The tokens other than words, and what becomes of values.

namespace chengheng {
namespace {

std::string withoutDoubledQuotes(std::string_view text) {
    std::string plain;
    plain.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        plain += text[at];
        if (text[at] == '\'') ++at;
    }
    return plain;
}

/// Length of the comparison that begins here; 0 when none does.
std::size_t comparisonLength(std::string_view text) {
    for (const std::string_view two : {"<>", "<=", ">=", "!="})
        if (text.starts_with(two)) return 2;
    return text[0] == '=' || text[0] == '<' || text[0] == '>' ? 1 : 0;
}

char markOf(const Value& value) {
    switch (value.kind) {
        case ValueKind::integer:
            return '#';
        case ValueKind::real:
            return '~';
        default:
            return '?';
    }
}

}  // namespace

void BatchReader::reserve(std::size_t length) {
    const std::size_t needed = m_length + length + 1;
    if (needed > m_room.size()) m_room.resize(2 * needed);
}

void BatchReader::put(std::string_view token, Glue first, Glue last) {
    reserve(token.size());
    if (first != Glue::none && first == m_glue) m_room[m_length++] = ' ';
    std::memcpy(m_room.data() + m_length, token.data(), token.size());
    m_length += token.size();
    m_glue = last;
}

bool BatchReader::isLifting(const Value& value) const {
    switch (level().clause) {
        case Clause::row:
            return m_last == Last::opened || m_last == Last::comma;
        case Clause::assigned:
            return m_last == Last::comparison;
        case Clause::condition:
            return m_last == Last::comparison && value.kind != ValueKind::real;
        default:
            return false;
    }
}

/// The value as written stands between `start` and the present place.
bool BatchReader::addLiteral(const char* start, const Value& value) {
    if (m_last == Last::literal || m_last == Last::lifted)
        return fail(start, "two values in a row");
    const std::string_view written = textBetween(start, m_at);
    if (isLifting(value)) {
        m_liftedText = written;
        m_lengthBeforeLifted = m_length;
        m_glueBeforeLifted = m_glue;
        const char mark = markOf(value);
        put({&mark, 1}, Glue::word, Glue::word);
        m_values.push_back(value);
        m_last = Last::lifted;
        return true;
    }
    if (level().clause != Clause::constant) m_isWorthKeeping = false;
    put(written, *start == '-' ? Glue::sign : Glue::word, Glue::word);
    m_last = Last::literal;
    return true;
}

/// Puts the value lifted last back in its place: it is only part of what is compared.
void BatchReader::unlift() {
    m_length = m_lengthBeforeLifted;
    m_glue = m_glueBeforeLifted;
    m_values.pop_back();
    m_isWorthKeeping = false;
    put(m_liftedText, m_liftedText[0] == '-' ? Glue::sign : Glue::word, Glue::word);
    m_last = Last::literal;
}

/// Reads a number whose digits begin here; `start` is its minus, if it has one.
bool BatchReader::readNumber(const char* start) {
    Value value;
    const char* const end = readUnsigned(m_at, m_end, start != m_at, value);
    if (end == nullptr) return fail(start, "a number that cannot be held");
    if (end < m_end && (isWordPart(*end) || *end == '.'))
        return fail(start, "a number that runs into a word");
    m_at = end;
    return addLiteral(start, value);
}

/// Goes behind the closing quote and gives its place; null when there is none.
const char* BatchReader::findClosingQuote(char quote, bool& hasDoubled) {
    hasDoubled = false;
    const char* at = m_at + 1;
    for (;;) {
        at = static_cast<const char*>(std::memchr(at, quote, static_cast<std::size_t>(m_end - at)));
        if (at == nullptr) return nullptr;
        m_at = at + 1;
        if (m_at == m_end || *m_at != quote) return at;
        hasDoubled = true;
        at += 2;
    }
}

bool BatchReader::readText() {
    const char* const start = m_at;
    if (m_last == Last::name && isWordPart(start[-1]))
        return fail(start, "a text that a word runs into");
    bool hasDoubled = false;
    const char* const end = findClosingQuote('\'', hasDoubled);
    if (end == nullptr) return fail(start, "a text is not closed");
    const std::string_view text = textBetween(start + 1, end);
    const char* const beyond = firstBeyondUtf8(text);
    if (beyond != end) return fail(beyond, "a byte that is no character");
    if (!hasDoubled) return addLiteral(start, Value::of(text));
    m_texts.push_front(withoutDoubledQuotes(text));
    return addLiteral(start, Value::of(std::string_view(m_texts.front())));
}

bool BatchReader::readQuotedName() {
    const char* const start = m_at;
    bool hasDoubled = false;
    const char* const end = findClosingQuote('"', hasDoubled);
    if (end == nullptr) return fail(start, "a quoted name is not closed");
    const char* const beyond = firstBeyondUtf8(textBetween(start + 1, end));
    if (beyond != end) return fail(beyond, "a byte that is no character");
    put(textBetween(start, m_at), Glue::word, Glue::word);
    m_last = Last::name;
    return true;
}

bool BatchReader::readSymbol() {
    switch (*m_at) {
        case '(':
            return readOpening();
        case ')':
            return readClosing();
        case ',':
            put(",", Glue::none, Glue::none);
            m_last = Last::comma;
            ++m_at;
            if (level().clause == Clause::row) readPlainNumbers();
            return true;
        case '.':
            if (m_last != Last::name) return readNumber(m_at);
            put(".", Glue::none, Glue::none);
            m_last = Last::dot;
            ++m_at;
            return true;
        case ';':
            return false;
        default:
            return readOperator();
    }
}

bool BatchReader::readOpening() {
    if (m_depth + 1 == mostLevels) return fail(m_at, "too many parentheses inside each other");
    Clause clause = level().clause;
    if (clause == Clause::rows && (m_last == Last::keyword || m_last == Last::comma))
        clause = Clause::row;
    else if (clause != Clause::constant && (clause >= Clause::rows || m_last == Last::name))
        clause = Clause::other;
    m_levels[++m_depth] = {clause, false, m_at};
    put("(", Glue::none, Glue::none);
    m_last = Last::opened;
    ++m_at;
    if (clause == Clause::row) beginRow();
    return true;
}

void BatchReader::beginRow() {
    if (m_values.empty() && m_depth == 1) {
        m_rowHead = textBetween(m_start, m_at);
        m_rowHeadShape.assign(m_room.data(), m_length);
    }
    readPlainNumbers();
}

/// Takes the numbers that follow in a row as far as commas and blanks alone stand between
/// them. The general way gives the same; this one is for the many rows that hold little else.
void BatchReader::readPlainNumbers() {
    const char* at = m_at;
    Value value;
    for (;;) {
        while (at < m_end && *at == ' ') ++at;
        const char* const start = at;
        const bool isNegative = at < m_end && *at == '-';
        if (isNegative) ++at;
        at = readUnsigned(at, m_end, isNegative, value);
        if (at == nullptr) return;
        const char* const end = at;
        while (at < m_end && *at == ' ') ++at;
        if (at == m_end || (*at != ',' && *at != ')')) return;
        reserve(2);
        m_liftedText = textBetween(start, end);
        m_values.push_back(value);
        m_room[m_length++] = markOf(value);
        if (*at == ')') break;
        m_room[m_length++] = ',';
        m_at = ++at;
    }
    m_at = at;
    m_last = Last::lifted;
}

bool BatchReader::readClosing() {
    if (m_depth == 0) return fail(m_at, "a parenthesis closes what was not opened");
    --m_depth;
    put(")", Glue::none, Glue::none);
    m_last = Last::closed;
    ++m_at;
    return true;
}

bool BatchReader::readOperator() {
    const std::string_view rest = textBetween(m_at, m_end);
    if (const std::size_t length = comparisonLength(rest))
        return putOperator(length, Last::comparison);
    if (rest.starts_with("||")) return putOperator(2, Last::sign);
    if (*m_at == '!' || *m_at == '|') return fail(m_at, "an operator that is not known");
    const bool isAfterOperand = m_last == Last::name || m_last == Last::closed ||
                                m_last == Last::literal || m_last == Last::lifted;
    if (*m_at == '*' && !isAfterOperand) return putOperator(1, Last::closed);
    const bool isNumber =
        rest.size() > 1 && (characterOf(rest[1]) == Character::digit || rest[1] == '.');
    if (*m_at == '-' && !isAfterOperand && isNumber) return readNumber(m_at++);
    return putOperator(1, Last::sign);
}

bool BatchReader::putOperator(std::size_t length, Last last) {
    if (m_last == Last::lifted) unlift();
    put({m_at, length}, Glue::sign, Glue::sign);
    m_last = last;
    m_at += length;
    return true;
}

}  // namespace chengheng
