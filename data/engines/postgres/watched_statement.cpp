#include "data/engines/postgres/watched_statement.h"

#include <algorithm>
#include <cctype>

namespace chengheng {
namespace {

bool isBlank(char sign) { return std::isspace(static_cast<unsigned char>(sign)) != 0; }

char small(char sign) { return static_cast<char>(std::tolower(static_cast<unsigned char>(sign))); }

bool isOfWord(char sign) {
    return std::isalnum(static_cast<unsigned char>(sign)) != 0 || sign == '_' || sign == '$';
}

bool isWord(std::string_view word, std::string_view keyword) {
    return std::ranges::equal(word, keyword, {}, small, small);
}

/// Walks over the words of a statement that stand in no brackets and no quotes.
class Words {
  public:
    explicit Words(std::string_view sql) : m_sql(sql) {}

    /// The next word; empty at the end.
    std::string_view next() {
        while (m_at < m_sql.size()) {
            const char sign = m_sql[m_at];
            if (sign == '\'' || sign == '"') {
                skipQuoted(sign);
                continue;
            }
            if (sign == '(') ++m_depth;
            if (sign == ')') --m_depth;
            if (!isOfWord(sign)) {
                ++m_at;
                continue;
            }
            const std::size_t begin = m_at;
            while (m_at < m_sql.size() && isOfWord(m_sql[m_at])) ++m_at;
            m_begin = begin;
            if (m_depth == 0) return m_sql.substr(begin, m_at - begin);
        }
        return {};
    }
    /// Where the next word of these letters begins; the end when there is none.
    std::size_t find(std::string_view keyword) {
        for (std::string_view word = next(); !word.empty(); word = next())
            if (isWord(word, keyword)) return m_begin;
        return m_sql.size();
    }

  private:
    void skipQuoted(char quote) {
        const std::size_t closing = m_sql.find(quote, m_at + 1);
        m_at = closing == std::string_view::npos ? m_sql.size() : closing + 1;
    }

    std::string_view m_sql;
    std::size_t m_at = 0;
    std::size_t m_begin = 0;
    int m_depth = 0;
};

std::string_view withoutEnd(std::string_view sql) {
    while (!sql.empty() && (isBlank(sql.back()) || sql.back() == ';')) sql.remove_suffix(1);
    return sql;
}

/// "UPDATE t SET a = 1 WHERE c" becomes "WITH was AS (SELECT lId AS idBefore, t AS rowBefore FROM
/// t WHERE c FOR UPDATE) UPDATE t SET a = 1 FROM was WHERE lId = idBefore RETURNING (rowBefore).*,
/// t.*".
std::string watchedUpdate(std::string_view sql, const std::string& table) {
    Words words(sql);
    const std::size_t setAt = words.find("set");
    const std::size_t whereAt = words.find("where");
    return "WITH was AS (SELECT lId AS idBefore, " + table + " AS rowBefore FROM " + table + " " +
           std::string(sql.substr(whereAt)) + " FOR UPDATE) UPDATE " + table + " " +
           std::string(sql.substr(setAt, whereAt - setAt)) + " FROM was WHERE lId = idBefore " +
           "RETURNING (rowBefore).*, " + table + ".*";
}

}  // namespace

std::string changedTable(std::string_view sql) {
    Words words(sql);
    const std::string_view verb = words.next();
    const bool isUpdate = isWord(verb, "update");
    const bool hasPreposition = isWord(verb, "insert") || isWord(verb, "delete");
    if (hasPreposition) words.next();
    return isUpdate || hasPreposition ? std::string(words.next()) : std::string();
}

WatchedStatement watchedStatement(std::string_view sql) {
    WatchedStatement watched{.sql = {}, .table = changedTable(sql), .isUpdate = false};
    const std::string_view text = withoutEnd(sql);
    watched.isUpdate = isWord(Words(text).next(), "update");
    if (watched.table.empty())
        watched.sql = sql;
    else if (watched.isUpdate)
        watched.sql = watchedUpdate(text, watched.table);
    else
        watched.sql = std::string(text) + " RETURNING *";
    return watched;
}

}  // namespace chengheng
