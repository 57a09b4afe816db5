#include "data/sql/translation.h"

#include <algorithm>
#include <initializer_list>

#include "base/values/date.h"
#include "data/sql/characters.h"
#include "data/sql/date_places.h"
#include "data/sql/shape_tokens.h"

namespace chengheng {
namespace {

constexpr std::string_view idUpdate = "update abidtable set llastid=# where stable=?";

bool isIdTable(const Token& token) {
    if (token.kind == TokenKind::word) return token.text == "abidtable";
    return token.kind == TokenKind::quotedName &&
           std::ranges::equal(token.text, std::string_view("\"abidtable\""), {}, lowerOf);
}

Status noDate(std::string_view text) {
    return Status::of(Failure::unreadable, "no date: " + std::string(text));
}

bool isOneOf(const Token& token, std::initializer_list<std::string_view> words) {
    return std::ranges::any_of(words, [&token](std::string_view word) { return token.is(word); });
}

/// Whether the table of a change is followed by what belongs there, and not by a second name
/// that an engine might take for one of its own.
bool isPlainChange(StatementKind kind, std::span<const Token> tokens) {
    if (kind == StatementKind::select || tokens.size() < 2) return true;
    std::size_t at = isOneOf(tokens[1], {"into", "from"}) ? 2 : 1;
    while (at + 1 < tokens.size() && tokens[at + 1].is(".")) at += 2;
    if (++at >= tokens.size()) return true;
    switch (kind) {
        case StatementKind::insert:
            return isOneOf(tokens[at], {"(", "values", "select"});
        case StatementKind::update:
            return tokens[at].is("set");
        case StatementKind::remove:
            return tokens[at].is("where");
        default:
            return true;
    }
}

/// Writes the tokens of a shape one after the other as plain SQL.
class Writer {
  public:
    Writer(std::string_view shape, const EngineDialect& dialect, TranslatedShape& translated)
        : m_dialect(dialect), m_translated(translated), m_tokens(shapeTokens(shape)) {}

    Status write(StatementKind kind) {
        if (!isPlainChange(kind, m_tokens))
            return Status::of(Failure::unreadable, "more than a table where the table stands");
        Status status =
            kind == StatementKind::insert ? findInsertedDates(m_tokens, m_dates) : Status::done();
        if (status) status = findComparedDates(m_tokens, m_dates);
        for (std::size_t at = 0; status && at < m_tokens.size(); ++at) {
            writeGap(at);
            status = writeToken(at);
            if (at == 0 && kind == StatementKind::insert) addUnlessThere("into");
            if (at == 0 && kind == StatementKind::remove) addUnlessThere("from");
            if (isIdTable(m_tokens[at])) m_translated.touchesIdTable = true;
        }
        return status;
    }

  private:
    bool isNext(std::size_t at, std::string_view text) const {
        return at + 1 < m_tokens.size() && m_tokens[at + 1].is(text);
    }

    /// The word that the module's dialect may leave out after the first one.
    void addUnlessThere(std::string_view word) {
        if (!isNext(0, word)) m_translated.sql.append(" ").append(word);
    }

    void writeGap(std::size_t at) {
        if (at == 0) return;
        const std::string_view before = m_tokens[at - 1].text;
        const char* const end = before.data() + before.size();
        m_translated.sql.append(end, m_tokens[at].text.data());
    }

    Status writeToken(std::size_t at) {
        const Token& token = m_tokens[at];
        const bool isDate = std::ranges::find(m_dates, at) != m_dates.end();
        const bool isPattern = at > 0 && m_tokens[at - 1].is("like");
        if (isPattern && !isLonePattern(at))
            return Status::of(Failure::unreadable, "LIKE without a text");
        if (token.kind == TokenKind::mark) {
            if (isDate) m_translated.dateParameters.push_back(m_translated.parameters);
            m_translated.sql += '$' + std::to_string(++m_translated.parameters);
        } else if (isDate) {
            const auto date = parseDate(token.text.substr(1, token.text.size() - 2));
            if (!date) return noDate(token.text);
            m_translated.sql += '\'' + isoText(*date) + '\'';
        } else {
            m_translated.sql += token.text;
        }
        if (isPattern && !isNext(at, "escape")) m_translated.sql += m_dialect.likeEscape;
        return Status::done();
    }

    bool isLonePattern(std::size_t at) const {
        const Token& token = m_tokens[at];
        if (token.kind != TokenKind::text && !token.is("?")) return false;
        return !isNext(at, "||");
    }

    const EngineDialect& m_dialect;
    TranslatedShape& m_translated;
    std::vector<Token> m_tokens;
    std::vector<std::size_t> m_dates;
};

}  // namespace

Status translate(StatementKind kind, std::string_view shape, const EngineDialect& dialect,
                 TranslatedShape& translated) {
    translated = {};
    Status status = Writer(shape, dialect, translated).write(kind);
    if (shape == idUpdate) {
        translated.isIdUpdate = true;
        translated.touchesIdTable = false;
    }
    return status;
}

Status normaliseDates(const TranslatedShape& translated, std::span<Value> values,
                      std::deque<std::string>& storage) {
    for (const int parameter : translated.dateParameters) {
        Value& value = values[static_cast<std::size_t>(parameter)];
        if (value.kind != ValueKind::text) return noDate("a number");
        const auto date = parseDate(value.text);
        if (!date) return noDate(value.text);
        value = Value::of(std::string_view(storage.emplace_back(isoText(*date))));
    }
    return Status::done();
}

}  // namespace chengheng
