#include "data/sql/batch_reader.h"

#include <algorithm>
#include <optional>

#include "data/sql/characters.h"

namespace chengheng {
namespace {

constexpr std::optional<StatementKind> kindOf(Word word) {
    switch (word) {
        case Word::beginWord:
            return StatementKind::begin;
        case Word::commitWord:
            return StatementKind::commit;
        case Word::deleteWord:
            return StatementKind::remove;
        case Word::insertWord:
            return StatementKind::insert;
        case Word::selectWord:
            return StatementKind::select;
        case Word::updateWord:
            return StatementKind::update;
        default:
            return std::nullopt;
    }
}

constexpr std::string_view notOurs = "no statement of this dialect begins like this";

/// "line 2, column 14: reason", both counted from 1 in characters.
std::string placeText(std::string_view before, std::string_view reason) {
    const auto line = 1 + std::ranges::count(before, '\n');
    const std::size_t lineStart = before.rfind('\n') + 1;
    const auto column = 1 + std::ranges::count_if(before.substr(lineStart), [](char letter) {
                            return (static_cast<unsigned char>(letter) & 0xC0U) != 0x80U;
                        });
    return "line " + std::to_string(line) + ", column " + std::to_string(column) + ": " +
           std::string(reason);
}

}  // namespace

BatchReader::BatchReader(std::string_view batch)
    : m_begin(batch.data()), m_end(m_begin + batch.size()), m_at(m_begin) {
    m_room.resize(256);
    m_values.reserve(24);
    const std::size_t nothing = batch.find('\0');
    if (nothing != std::string_view::npos) fail(m_begin + nothing, "a NUL byte");
}

bool BatchReader::next(ReadStatement& statement) {
    skipBlanks();
    while (m_at < m_end && *m_at == ';') {
        ++m_at;
        skipBlanks();
    }
    if (m_at == m_end || !m_status) return false;
    m_length = 0;
    m_values.clear();
    m_levels[0] = {};
    m_glue = Glue::none;
    m_isWorthKeeping = true;
    m_start = m_at;
    if (!readAsBefore() && !readFirstWord()) return false;
    if (m_kind == StatementKind::begin || m_kind == StatementKind::commit)
        readMark();
    else
        while (readToken()) {
        }
    return finish(statement);
}

bool BatchReader::fail(const char* place, std::string_view reason) {
    if (m_status)
        m_status = Status::of(Failure::unreadable, placeText(textBetween(m_begin, place), reason));
    return false;
}

void BatchReader::skipBlanks() {
    m_isLineStart = m_at == m_begin;
    for (; m_at < m_end; ++m_at) {
        const Character character = characterOf(*m_at);
        if (character == Character::blank) continue;
        if (character == Character::lineEnd)
            m_isLineStart = true;
        else if ((*m_at != '-' && *m_at != '/') || !skipComment())
            return;
    }
}

/// Goes to the last character of the comment that begins here; false when none does.
bool BatchReader::skipComment() {
    const std::string_view rest = textBetween(m_at, m_end);
    if (rest.starts_with("--")) {
        const std::size_t lineEnd = std::min(rest.find_first_of("\r\n"), rest.size());
        m_at += lineEnd - 1;
        return true;
    }
    if (!rest.starts_with("/*")) return false;
    const std::size_t end = rest.find("*/", 2);
    if (end == std::string_view::npos) return fail(m_at, "a comment is not closed");
    m_at += end + 1;
    return true;
}

/// The word that begins here, in lower case; empty when none does.
std::string BatchReader::takeWord() {
    const char* const start = m_at;
    while (m_at < m_end && isWordPart(*m_at)) ++m_at;
    std::string lower(start, m_at);
    std::ranges::transform(lower, lower.begin(), lowerOf);
    return lower;
}

bool BatchReader::readFirstWord() {
    const char* const start = m_at;
    const std::string lower = takeWord();
    const auto kind = kindOf(wordOf(wordKey(lower), lower));
    if (!kind) return fail(start, notOurs);
    m_kind = *kind;
    put(lower, Glue::word, Glue::word);
    m_last = Last::keyword;
    m_isComplete = m_kind != StatementKind::insert && m_kind != StatementKind::update;
    if (m_kind == StatementKind::select) level().clause = Clause::constant;
    return true;
}

/// Goes to the first value of an INSERT that begins as one before it did, letter for letter; false
/// when it does not.
bool BatchReader::readAsBefore() {
    if (m_rowHead.empty() || !textBetween(m_at, m_end).starts_with(m_rowHead)) return false;
    m_kind = StatementKind::insert;
    m_isComplete = true;
    put(m_rowHeadShape, Glue::none, Glue::none);
    m_at += m_rowHead.size();
    m_levels[0].clause = Clause::rows;
    m_levels[++m_depth] = {Clause::row, false, m_at - 1};
    m_last = Last::opened;
    readPlainNumbers();
    return true;
}

/// Reads "TRANSACTION name" after BEGIN or COMMIT; the name means nothing.
bool BatchReader::readMark() {
    m_last = Last::name;
    for (int words = 0;; ++words) {
        skipBlanks();
        if (m_at == m_end || *m_at == ';') return false;
        const char* const start = m_at;
        const std::string lower = takeWord();
        const Word word = wordOf(wordKey(lower), lower);
        if (kindOf(word)) return useStarter(word, start);
        const bool isExpected = words == 0 ? lower == "transaction" : words == 1 && !lower.empty();
        if (!isExpected) return fail(start, "more than BEGIN or COMMIT, TRANSACTION and a name");
    }
}

bool BatchReader::readToken() {
    skipBlanks();
    if (m_at == m_end || !m_status) return false;
    switch (characterOf(*m_at)) {
        case Character::letter:
            return readWord();
        case Character::digit:
            return readNumber(m_at);
        case Character::quote:
            return readText();
        case Character::nameQuote:
            return readQuotedName();
        case Character::symbol:
            return readSymbol();
        default:
            return fail(m_at, "a character that may stand in quoted text only");
    }
}

bool BatchReader::readWord() {
    const char* const start = m_at;
    while (m_at < m_end && isWordPart(*m_at)) ++m_at;
    const auto size = static_cast<std::size_t>(m_at - start);
    reserve(size);
    const std::size_t before = m_length;
    if (m_glue == Glue::word) m_room[m_length++] = ' ';
    char* const lower = m_room.data() + m_length;
    std::uint64_t key = 0;
    for (std::size_t index = 0; index < size; ++index) {
        lower[index] = lowerOf(start[index]);
        key = key << 8 | static_cast<unsigned char>(lower[index]);
    }
    const Word word = m_last == Last::dot ? Word::name : wordOf(key, {lower, size});
    if (kindOf(word) && (m_depth == 0 || word == Word::selectWord) && !useStarter(word, start)) {
        m_length = before;
        return false;
    }
    if (word == Word::otherFirst && m_depth == 0 && m_isLineStart) return fail(start, notOurs);
    m_length += size;
    m_glue = Glue::word;
    useKeyword(word);
    return true;
}

/// A statement's first word inside a statement: true when it continues it.
bool BatchReader::useStarter(Word word, const char* start) {
    if (m_depth > 0) return true;
    const bool isSelect = word == Word::selectWord;
    if (isSelect && m_last == Last::keyword) return true;
    if (isSelect && m_kind == StatementKind::insert && !m_isComplete && !isOpenEnded()) return true;
    if (isOpenEnded() || !m_isComplete)
        return fail(start, "the statement before this word is unfinished");
    if (!m_isLineStart) return fail(start, "a statement begins in the middle of a line");
    m_at = start;
    return false;
}

void BatchReader::useKeyword(Word word) {
    m_last = Last::keyword;
    switch (word) {
        case Word::selectWord:
            level().clause = Clause::constant;
            if (m_depth == 0) m_isComplete = true;
            break;
        case Word::from:
        case Word::having:
        case Word::setUnion:
            level().clause = Clause::other;
            break;
        case Word::where:
            level().clause = Clause::condition;
            break;
        case Word::tail:
            level().clause = Clause::constant;
            break;
        case Word::set:
            level().clause = Clause::assigned;
            if (m_depth == 0) m_isComplete = true;
            break;
        case Word::values:
            if (m_depth == 0 && m_kind == StatementKind::insert && !m_isComplete) {
                level().clause = Clause::rows;
                m_isComplete = true;
            }
            break;
        case Word::conjunction:
            if (level().isBetween) m_last = Last::comparison;
            level().isBetween = false;
            break;
        case Word::between:
            level().isBetween = true;
            [[fallthrough]];
        case Word::comparison:
            m_last = Last::comparison;
            break;
        case Word::unfinished:
            break;
        default:
            m_last = Last::name;
    }
}

/// Whether the token read last needs another one.
bool BatchReader::isOpenEnded() const {
    return m_last == Last::keyword || m_last == Last::comparison || m_last == Last::sign ||
           m_last == Last::comma || m_last == Last::dot;
}

bool BatchReader::finish(ReadStatement& statement) {
    if (!m_status) return false;
    if (m_depth > 0) return fail(level().opened, "a parenthesis is not closed");
    if (isOpenEnded() || !m_isComplete) return fail(m_start, "a statement is unfinished");
    statement.kind = m_kind;
    statement.shape = {m_room.data(), m_length};
    statement.values = m_values;
    statement.isWorthKeeping = m_isWorthKeeping;
    return true;
}

}  // namespace chengheng
