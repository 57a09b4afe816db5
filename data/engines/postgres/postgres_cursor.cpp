#include "data/engines/postgres/postgres_cursor.h"

#include <charconv>
#include <limits>

namespace chengheng {
namespace {

/// The column types our statements yield, by the numbers that every server gives them.
ValueKind kindOfType(Oid type) {
    switch (type) {
        case 16:  // boolean
        case 20:  // bigint
        case 21:  // smallint
        case 23:  // integer
            return ValueKind::integer;
        case 700:   // real
        case 701:   // double precision
        case 1700:  // numeric
            return ValueKind::real;
        default:
            return ValueKind::text;
    }
}

double realOf(std::string_view text) {
    double number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

/// Cut off behind the point, and to the range.
std::int64_t wholeOf(double number) {
    using Limits = std::numeric_limits<std::int64_t>;
    constexpr double beyond = 9223372036854775808.0;
    if (number >= beyond) return Limits::max();
    if (number < -beyond) return Limits::min();
    return number == number ? static_cast<std::int64_t>(number) : 0;
}

}  // namespace

PostgresCursor::PostgresCursor(PostgresResult result)
    : m_result(std::move(result)), m_rows(PQntuples(m_result.get())) {
    const int count = PQnfields(m_result.get());
    m_kinds.reserve(static_cast<std::size_t>(count));
    for (int column = 0; column < count; ++column)
        m_kinds.push_back(kindOfType(PQftype(m_result.get(), column)));
}

Cursor::Step PostgresCursor::next() {
    if (m_row + 1 >= m_rows) {
        m_row = m_rows;
        return Step::end;
    }
    ++m_row;
    return Step::row;
}

ValueKind PostgresCursor::kind(int column) const {
    return PQgetisnull(m_result.get(), m_row, column) != 0
               ? ValueKind::null
               : m_kinds[static_cast<std::size_t>(column)];
}

std::int64_t PostgresCursor::integer(int column) const {
    const std::string_view cell = text(column);
    if (m_kinds[static_cast<std::size_t>(column)] == ValueKind::integer) {
        if (cell == "t") return 1;
        std::int64_t number = 0;
        std::from_chars(cell.data(), cell.data() + cell.size(), number);
        return number;
    }
    return wholeOf(realOf(cell));
}

double PostgresCursor::real(int column) const { return realOf(text(column)); }

std::string_view PostgresCursor::text(int column) const {
    return {PQgetvalue(m_result.get(), m_row, column),
            static_cast<std::size_t>(PQgetlength(m_result.get(), m_row, column))};
}

}  // namespace chengheng
