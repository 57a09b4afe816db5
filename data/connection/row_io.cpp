#include "data/connection/row_io.h"

#include <fmt/format.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "base/values/date.h"

namespace chengheng {
namespace {

template <class Field>
Field& fieldAt(void* place) {
    return *static_cast<Field*>(place);
}

template <class Field>
const Field& fieldAt(const void* place) {
    return *static_cast<const Field*>(place);
}

/// False when the column holds no whole number of the field's range.
template <class Number>
bool readWhole(const Value& stored, Number& number) {
    number = static_cast<Number>(stored.integer);
    return number == stored.integer &&
           (stored.kind == ValueKind::integer || stored.kind == ValueKind::null);
}

/// False when the column holds no finite number.
bool readReal(const Value& stored, double& number) {
    const bool isWhole = stored.kind == ValueKind::integer;
    number = isWhole ? static_cast<double>(stored.integer) : stored.real;
    return stored.kind != ValueKind::text && std::isfinite(number);
}

bool readNullable(const Value& stored, std::optional<std::int32_t>& number) {
    number.reset();
    return stored.kind == ValueKind::null || readWhole(stored, number.emplace());
}

/// False when the column holds what the field cannot.
bool readField(const Cursor& row, int column, ColumnType type, void* field) {
    switch (type) {
        case ColumnType::integer:
            return readWhole(row.value(column), fieldAt<std::int32_t>(field));
        case ColumnType::nullableInteger:
            return readNullable(row.value(column), fieldAt<std::optional<std::int32_t>>(field));
        case ColumnType::byte:
            return readWhole(row.value(column), fieldAt<std::uint8_t>(field));
        case ColumnType::flag:
            return readWhole(row.value(column), fieldAt<std::int16_t>(field));
        case ColumnType::real:
            return readReal(row.value(column), fieldAt<double>(field));
        case ColumnType::single: {
            double number = 0;
            const bool isRead = readReal(row.value(column), number);
            fieldAt<float>(field) = static_cast<float>(number);
            return isRead && std::isfinite(fieldAt<float>(field));
        }
        case ColumnType::text:
            fieldAt<std::string>(field).assign(row.text(column));
            return true;
        case ColumnType::date:
            fieldAt<Date>(field) = parseDate(row.text(column)).value_or(Date{});
            return true;
    }
    return true;
}

Status wrongValue(const Cursor& row, int column, const TableInfo& table) {
    return Status::of(
        Failure::wrongValue,
        fmt::format("{} lId={} {}: {}", table.name, row.text(0),
                    table.columns[static_cast<std::size_t>(column)].name, row.text(column)));
}

Value fieldValue(ColumnType type, const void* field, std::deque<std::string>& texts) {
    switch (type) {
        case ColumnType::integer:
            return Value::of(std::int64_t{fieldAt<std::int32_t>(field)});
        case ColumnType::nullableInteger: {
            const auto& number = fieldAt<std::optional<std::int32_t>>(field);
            return number ? Value::of(std::int64_t{*number}) : Value::ofNull();
        }
        case ColumnType::byte:
            return Value::of(std::int64_t{fieldAt<std::uint8_t>(field)});
        case ColumnType::flag:
            return Value::of(std::int64_t{fieldAt<std::int16_t>(field)});
        case ColumnType::real:
            return Value::of(fieldAt<double>(field));
        case ColumnType::single:
            return Value::of(double{fieldAt<float>(field)});
        case ColumnType::text:
            return Value::of(std::string_view(fieldAt<std::string>(field)));
        case ColumnType::date:
            return Value::of(std::string_view(texts.emplace_back(isoText(fieldAt<Date>(field)))));
    }
    return Value::ofNull();
}

}  // namespace

Status readRecord(const Cursor& row, const RecordType& type, void* record) {
    auto* const first = static_cast<std::byte*>(record);
    for (std::size_t at = 0; at < type.offsets.size(); ++at) {
        const int column = static_cast<int>(at);
        if (!readField(row, column, type.table.columns[at].type, first + type.offsets[at]))
            return wrongValue(row, column, type.table);
    }
    return Status::done();
}

std::vector<Value> recordValues(const RecordType& type, const void* record,
                                std::deque<std::string>& texts) {
    const auto* const first = static_cast<const std::byte*>(record);
    std::vector<Value> values;
    values.reserve(type.offsets.size());
    for (std::size_t at = 0; at < type.offsets.size(); ++at)
        values.push_back(fieldValue(type.table.columns[at].type, first + type.offsets[at], texts));
    return values;
}

}  // namespace chengheng
