#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <type_traits>
#include <vector>

#include "base/values/date.h"
#include "data/tables/records.h"
#include "data/tables/schema.h"

namespace chengheng {

/// A record type as data: its table, and where a record holds each column. What reads and writes
/// records goes by this, so that it is compiled once and not for every type.
struct RecordType {
    TableInfo table;
    std::vector<std::size_t> offsets;       ///< of the fields, in the order of the columns
    std::size_t size = 0;                   ///< of a record
    void* (*make)(std::size_t count) = {};  ///< an array of records with their default values
    void (*drop)(void* records) = {};       ///< frees it
};

/// Every record type, in the order in which the tables are created.
std::span<const RecordType* const> allRecordTypes();

/// A column and its field in the record.
struct RecordColumn {
    const char* name;
    ColumnType type;
    std::size_t offset;
};

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

template <class Record, class Field>
RecordColumn column(const char* name, Field Record::*field) {
    static const Record sample{};
    const auto* const first = reinterpret_cast<const std::byte*>(&sample);
    const auto* const at = reinterpret_cast<const std::byte*>(&(sample.*field));
    return {name, columnTypeOf<Field>(), static_cast<std::size_t>(at - first)};
}

/// The declaration of a table: its name, the name of its counter in ABIdTable (empty when it has
/// none), its indexes (lists of columns, each of all rows or of those WHERE ...) and its columns
/// in their order.
template <class Record>
RecordType recordType(const char* name, const char* idRow,
                      std::initializer_list<const char*> indexes,
                      std::span<const RecordColumn> columns) {
    RecordType type{.table = {name, idRow, {}, {indexes.begin(), indexes.end()}},
                    .offsets = {},
                    .size = sizeof(Record),
                    .make = [](std::size_t count) -> void* { return new Record[count]; },
                    .drop = [](void* records) { delete[] static_cast<Record*>(records); }};
    for (const RecordColumn& column : columns) {
        type.table.columns.push_back({column.name, column.type});
        type.offsets.push_back(column.offset);
    }
    return type;
}

}  // namespace chengheng
