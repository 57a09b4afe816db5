#include "data/sql/date_places.h"

#include <algorithm>
#include <optional>
#include <string>

#include "data/sql/characters.h"
#include "data/tables/schema.h"

namespace chengheng {
namespace {

std::string lowered(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), lowerOf);
    return lower;
}

bool isName(const Token& token) {
    return token.kind == TokenKind::word || token.kind == TokenKind::quotedName;
}

bool isValue(const Token& token) {
    return token.kind == TokenKind::mark || token.kind == TokenKind::text;
}

/// The name in lower case, without quotes.
std::string nameOf(const Token& token) {
    std::string name = lowered(token.text);
    if (token.kind == TokenKind::quotedName) name = name.substr(1, name.size() - 2);
    return name;
}

bool isDateColumn(const Token& token) {
    static const std::vector<std::string> names = [] {
        std::vector<std::string> found;
        for (const TableInfo& table : allTables())
            for (const ColumnInfo& column : table.columns)
                if (column.type == ColumnType::date) found.push_back(lowered(column.name));
        return found;
    }();
    return isName(token) && std::ranges::find(names, nameOf(token)) != names.end();
}

std::optional<TableInfo> knownTable(const std::string& name) {
    if (const TableInfo* table = findTable(name)) return *table;
    constexpr std::string_view itemTables = "projitems";
    if (!name.starts_with(itemTables)) return std::nullopt;
    TableInfo table = projectItemTable(name.substr(itemTables.size()));
    return table.name.empty() ? std::nullopt : std::optional(table);
}

/// Whether each column of an INSERT, in the order of its values, holds dates; nothing when
/// the columns are not known.
using ColumnDates = std::optional<std::vector<bool>>;

/// Walks over an INSERT's tokens.
class InsertReader {
  public:
    InsertReader(std::span<const Token> tokens, std::vector<std::size_t>& dates)
        : m_tokens(tokens), m_dates(dates) {}

    Status read() {
        const ColumnDates columns = readColumns();
        if (!columns || !is("values")) return Status::done();
        ++m_at;
        while (is("(")) {
            const std::size_t count = readRow(*columns);
            if (count != columns->size())
                return Status::of(Failure::unreadable, std::to_string(count) + " values for " +
                                                           std::to_string(columns->size()) +
                                                           " columns");
            if (is(",")) ++m_at;
        }
        return Status::done();
    }

  private:
    bool is(std::string_view text) const {
        return m_at < m_tokens.size() && m_tokens[m_at].is(text);
    }

    ColumnDates readColumns() {
        m_at = m_tokens.size() > 1 && m_tokens[1].is("into") ? 2 : 1;
        while (m_at + 1 < m_tokens.size() && m_tokens[m_at + 1].is(".")) m_at += 2;
        if (m_at >= m_tokens.size() || !isName(m_tokens[m_at])) return std::nullopt;
        const auto table = knownTable(nameOf(m_tokens[m_at++]));
        std::vector<bool> columns;
        if (is("(")) {
            for (++m_at; m_at < m_tokens.size() && !is(")"); ++m_at)
                if (isName(m_tokens[m_at])) columns.push_back(isDateColumn(m_tokens[m_at]));
            ++m_at;
            return columns;
        }
        if (!table) return std::nullopt;
        for (const ColumnInfo& column : table->columns)
            columns.push_back(column.type == ColumnType::date);
        return columns;
    }

    /// Reads from the opening parenthesis of a row to behind the closing one; gives the
    /// number of its values.
    std::size_t readRow(const std::vector<bool>& columns) {
        std::size_t column = 0;
        int depth = 0;
        for (; m_at < m_tokens.size(); ++m_at) {
            if (is("(")) ++depth;
            if (is(")") && --depth == 0) break;
            if (depth != 1) continue;
            if (is(",")) ++column;
            if (column < columns.size() && columns[column] && isValue(m_tokens[m_at]))
                m_dates.push_back(m_at);
        }
        const bool isEmpty = m_tokens[m_at - 1].is("(");
        ++m_at;
        return isEmpty ? 0 : column + 1;
    }

    std::span<const Token> m_tokens;
    std::vector<std::size_t>& m_dates;
    std::size_t m_at = 0;
};

bool isComparison(const Token& token) {
    static constexpr std::string_view signs[] = {"=", "<>", "!=", "<", ">", "<=", ">="};
    return token.kind == TokenKind::symbol &&
           std::ranges::find(signs, token.text) != std::end(signs);
}

/// Finds what a value is compared with by the tokens before it.
class ComparedColumn {
  public:
    ComparedColumn(std::span<const Token> tokens, std::size_t value)
        : m_tokens(tokens), m_value(value) {}

    bool isDate() const {
        if (isComparison(at(1))) return isDateColumn(at(2));
        if (at(1).is("between")) return isDateBefore(2);
        if (at(1).is("and") && at(3).is("between")) return isDateBefore(4);
        return isDateList();
    }

  private:
    /// The token so many before the value.
    Token at(std::size_t before) const {
        return before <= m_value ? m_tokens[m_value - before] : Token{TokenKind::symbol, ""};
    }
    bool isDateBefore(std::size_t before) const {
        return isDateColumn(at(at(before).is("not") ? before + 1 : before));
    }
    bool isDateList() const {
        std::size_t before = 1;
        while (at(before).is(",") || isValue(at(before)) || at(before).is("null")) ++before;
        return at(before).is("(") && at(before + 1).is("in") && isDateBefore(before + 2);
    }

    std::span<const Token> m_tokens;
    std::size_t m_value;
};

/// Whether a date column follows a value and what compares the two.
bool isBeforeDateColumn(std::span<const Token> tokens, std::size_t value) {
    std::size_t at = value + 1;
    if (at >= tokens.size()) return false;
    if (tokens[at].is("not")) ++at;
    if (at >= tokens.size() || !(isComparison(tokens[at]) || tokens[at].is("between")))
        return false;
    ++at;
    while (at + 2 < tokens.size() && tokens[at + 1].is(".")) at += 2;
    return at < tokens.size() && isDateColumn(tokens[at]);
}

}  // namespace

Status findInsertedDates(std::span<const Token> tokens, std::vector<std::size_t>& dates) {
    return InsertReader(tokens, dates).read();
}

Status findComparedDates(std::span<const Token> tokens, std::vector<std::size_t>& dates) {
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        if (!isValue(tokens[at])) continue;
        if (isBeforeDateColumn(tokens, at))
            return Status::of(Failure::unreadable, "a date before the column it belongs to");
        if (ComparedColumn(tokens, at).isDate()) dates.push_back(at);
    }
    return Status::done();
}

}  // namespace chengheng
