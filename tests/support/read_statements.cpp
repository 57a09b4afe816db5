#include "tests/support/read_statements.h"

#include <array>
#include <charconv>

namespace chengheng {
namespace {

std::string valueText(const Value& value) {
    switch (value.kind) {
        case ValueKind::null:
            return "NULL";
        case ValueKind::integer:
            return std::to_string(value.integer);
        case ValueKind::text:
            return "'" + std::string(value.text) + "'";
        case ValueKind::real:
            break;
    }
    std::array<char, 400> room;
    const auto end = std::to_chars(room.data(), room.data() + room.size(), value.real).ptr;
    std::string text(room.data(), end);
    return text.find_first_of(".e") == std::string::npos ? text + ".0" : text;
}

}  // namespace

std::string valuesText(std::span<const Value> values) {
    std::string text;
    for (const Value& value : values) {
        if (!text.empty()) text += ", ";
        text += valueText(value);
    }
    return text;
}

BatchCopy readStatements(std::string_view batch) {
    BatchCopy copy;
    BatchReader reader(batch);
    ReadStatement statement;
    while (reader.next(statement))
        copy.statements.push_back({statement.kind, std::string(statement.shape),
                                   valuesText(statement.values), statement.isWorthKeeping});
    copy.status = reader.status();
    return copy;
}

}  // namespace chengheng
