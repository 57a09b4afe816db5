#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>

#include "base/values/date.h"

namespace chengheng {

/// How a column is stored; follows from the type of the record's field.
enum class ColumnType {
    integer,          ///< l: 32-bit signed
    nullableInteger,  ///< l that may be unknown (NULL)
    byte,             ///< by: 0 to 255
    flag,             ///< b: 16-bit, 0 = no
    real,             ///< m and d: double
    single,           ///< f: single-precision
    text,             ///< s
    date,             ///< dt
};

/// Joins a column's name to the record's field that holds it.
template <class Record, class Field>
struct Column {
    const char* name;
    Field Record::*field;
};

template <class Record, class Field>
constexpr Column<Record, Field> column(const char* name, Field Record::*field) {
    return {name, field};
}

/// The storage of a field of the given type.
template <class Field>
constexpr ColumnType columnTypeOf() {
    if constexpr (std::is_same_v<Field, std::int32_t>)
        return ColumnType::integer;
    else if constexpr (std::is_same_v<Field, std::optional<std::int32_t>>)
        return ColumnType::nullableInteger;
    else if constexpr (std::is_same_v<Field, std::uint8_t>)
        return ColumnType::byte;
    else if constexpr (std::is_same_v<Field, std::int16_t>)
        return ColumnType::flag;
    else if constexpr (std::is_same_v<Field, double>)
        return ColumnType::real;
    else if constexpr (std::is_same_v<Field, float>)
        return ColumnType::single;
    else if constexpr (std::is_same_v<Field, Date>)
        return ColumnType::date;
    else {
        static_assert(std::is_same_v<Field, std::string>, "a field type no column stores");
        return ColumnType::text;
    }
}

/// The declaration of the table that holds a record type. Each specialisation gives
/// `name`, `columns` (a tuple, in the table's order), `indexes` (column lists, each of all rows or
/// of those WHERE ...) and `idRow` (the name of its counter in ABIdTable, empty when it has none).
template <class Record>
struct TableOf;

}  // namespace chengheng
