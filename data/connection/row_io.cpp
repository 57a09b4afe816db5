#include "data/connection/row_io.h"

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

void readField(const Cursor& row, int column, ColumnType type, void* field) {
    switch (type) {
        case ColumnType::integer:
            fieldAt<std::int32_t>(field) = static_cast<std::int32_t>(row.integer(column));
            return;
        case ColumnType::nullableInteger:
            if (row.kind(column) == ValueKind::null)
                fieldAt<std::optional<std::int32_t>>(field).reset();
            else
                fieldAt<std::optional<std::int32_t>>(field) =
                    static_cast<std::int32_t>(row.integer(column));
            return;
        case ColumnType::byte:
            fieldAt<std::uint8_t>(field) = static_cast<std::uint8_t>(row.integer(column));
            return;
        case ColumnType::flag:
            fieldAt<std::int16_t>(field) = static_cast<std::int16_t>(row.integer(column));
            return;
        case ColumnType::real:
            fieldAt<double>(field) = row.real(column);
            return;
        case ColumnType::single:
            fieldAt<float>(field) = static_cast<float>(row.real(column));
            return;
        case ColumnType::text:
            fieldAt<std::string>(field).assign(row.text(column));
            return;
        case ColumnType::date:
            fieldAt<Date>(field) = parseDate(row.text(column)).value_or(Date{});
            return;
    }
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

void readRecord(const Cursor& row, const RecordType& type, void* record) {
    auto* const first = static_cast<std::byte*>(record);
    for (std::size_t at = 0; at < type.offsets.size(); ++at)
        readField(row, static_cast<int>(at), type.table.columns[at].type, first + type.offsets[at]);
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
