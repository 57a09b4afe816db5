#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "base/values/date.h"
#include "data/engine/engine.h"
#include "data/tables/table.h"

namespace chengheng {

// A record's fields from and to the columns of its table, unrolled by the compiler from the
// table's declaration.

inline void readField(const Cursor& row, int column, std::int32_t& field) {
    field = static_cast<std::int32_t>(row.integer(column));
}
inline void readField(const Cursor& row, int column, std::uint8_t& field) {
    field = static_cast<std::uint8_t>(row.integer(column));
}
inline void readField(const Cursor& row, int column, std::int16_t& field) {
    field = static_cast<std::int16_t>(row.integer(column));
}
inline void readField(const Cursor& row, int column, double& field) { field = row.real(column); }
inline void readField(const Cursor& row, int column, float& field) {
    field = static_cast<float>(row.real(column));
}
inline void readField(const Cursor& row, int column, std::string& field) {
    field.assign(row.text(column));
}
inline void readField(const Cursor& row, int column, Date& field) {
    field = parseDate(row.text(column)).value_or(Date{});
}
inline void readField(const Cursor& row, int column, std::optional<std::int32_t>& field) {
    if (row.kind(column) == ValueKind::null)
        field.reset();
    else
        field = static_cast<std::int32_t>(row.integer(column));
}

template <class Record>
void readRecord(const Cursor& row, Record& record) {
    std::apply(
        [&](const auto&... columns) {
            int at = 0;
            (readField(row, at++, record.*columns.field), ...);
        },
        TableOf<Record>::columns);
}

/// The values of a record's fields in the order of the columns. Texts are borrowed from the
/// record or kept in `texts`.
template <class Record>
std::vector<Value> recordValues(const Record& record, std::deque<std::string>& texts) {
    std::vector<Value> values;
    const auto addField = [&](const auto& field) {
        using Field = std::remove_cvref_t<decltype(field)>;
        if constexpr (std::is_same_v<Field, std::string>)
            values.push_back(Value::of(std::string_view(field)));
        else if constexpr (std::is_same_v<Field, Date>)
            values.push_back(Value::of(std::string_view(texts.emplace_back(isoText(field)))));
        else if constexpr (std::is_same_v<Field, std::optional<std::int32_t>>)
            values.push_back(field ? Value::of(std::int64_t{*field}) : Value::ofNull());
        else if constexpr (std::is_floating_point_v<Field>)
            values.push_back(Value::of(double{field}));
        else
            values.push_back(Value::of(std::int64_t{field}));
    };
    std::apply([&](const auto&... columns) { (addField(record.*columns.field), ...); },
               TableOf<Record>::columns);
    return values;
}

/// "lId, sCode, ..." of a table.
template <class Record>
const std::string& columnList() {
    static const std::string list = std::apply(
        [](const auto&... columns) {
            std::string text;
            ((text += text.empty() ? "" : ", ", text += columns.name), ...);
            return text;
        },
        TableOf<Record>::columns);
    return list;
}

template <class Record>
constexpr int columnCount() {
    return static_cast<int>(std::tuple_size_v<decltype(TableOf<Record>::columns)>);
}

}  // namespace chengheng
