#include "data/engines/sqlite/plain_insert.h"

#include <cmath>
#include <string>

#include "base/values/text.h"

namespace chengheng {
namespace {

/// Takes a text apart from its front.
class Words {
  public:
    explicit Words(std::string_view text) : m_left(text) {}

    /// The next word of letters, digits and "_"; empty where none begins.
    std::string_view word() {
        skipBlanks();
        std::size_t length = 0;
        while (length < m_left.size() && isOfWord(m_left[length])) ++length;
        const std::string_view found = m_left.substr(0, length);
        m_left.remove_prefix(length);
        return found;
    }
    bool take(std::string_view sign) {
        skipBlanks();
        if (!m_left.starts_with(sign)) return false;
        m_left.remove_prefix(sign.size());
        return true;
    }
    bool isAtEnd() {
        skipBlanks();
        return m_left.empty();
    }

  private:
    static bool isOfWord(char letter) {
        const char lower = lowerAscii(letter);
        return (lower >= 'a' && lower <= 'z') || (letter >= '0' && letter <= '9') || letter == '_';
    }
    void skipBlanks() {
        const std::size_t begin = m_left.find_first_not_of(" \t\r\n");
        m_left.remove_prefix(begin == std::string_view::npos ? m_left.size() : begin);
    }

    std::string_view m_left;
};

bool isStoredAsGiven(ColumnType type, const Value& value) {
    switch (type) {
        case ColumnType::real:
        case ColumnType::single:
            // What is no number becomes NULL.
            return value.kind == ValueKind::integer ||
                   (value.kind == ValueKind::real && !std::isnan(value.real));
        case ColumnType::text:
        case ColumnType::date:
            return value.kind == ValueKind::text;
        default:
            return value.kind == ValueKind::integer;
    }
}

}  // namespace

const TableInfo* plainInsertTable(std::string_view sql) {
    Words words(sql);
    if (!isSameInAnyCase(words.word(), "INSERT") || !isSameInAnyCase(words.word(), "INTO"))
        return nullptr;
    const TableInfo* const table = findTable(words.word());
    if (table == nullptr || !isSameInAnyCase(words.word(), "VALUES") || !words.take("("))
        return nullptr;
    for (std::size_t number = 1; number <= table->columns.size(); ++number) {
        if (number > 1 && !words.take(",")) return nullptr;
        if (!words.take("$") || words.word() != std::to_string(number)) return nullptr;
    }
    return words.take(")") && words.isAtEnd() ? table : nullptr;
}

bool areStoredAsGiven(const TableInfo& table, std::span<const Value> values) {
    if (values.size() != table.columns.size()) return false;
    for (std::size_t at = 0; at < values.size(); ++at)
        if (!isStoredAsGiven(table.columns[at].type, values[at])) return false;
    return true;
}

}  // namespace chengheng
