#include "data/engines/postgres/postgres_address.h"

#include <algorithm>
#include <optional>

#include "base/values/percent_coding.h"

namespace chengheng {
namespace {

constexpr std::string_view schemaKey = "schema=";
/// The server cuts longer identifiers short, and two sets of books would share one schema.
constexpr std::size_t longestIdentifier = 63;

std::string quoted(std::string_view text, char quote) {
    std::string result(1, quote);
    for (const char letter : text) {
        if (letter == quote) result += quote;
        result += letter;
    }
    result += quote;
    return result;
}

}  // namespace

Status readPostgresAddress(std::string_view text, PostgresAddress& address) {
    address = {};
    const std::size_t question = text.find('?');
    address.serverAddress = text.substr(0, question);
    if (question == std::string_view::npos) return Status::done();
    std::string_view rest = text.substr(question + 1);
    char separator = '?';
    while (!rest.empty()) {
        const std::size_t end = rest.find('&');
        const std::string_view parameter = rest.substr(0, end);
        rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
        if (!parameter.starts_with(schemaKey)) {
            address.serverAddress += separator;
            address.serverAddress += parameter;
            separator = '&';
            continue;
        }
        const auto schema = percentDecoded(parameter.substr(schemaKey.size()));
        if (!schema || schema->empty() || schema->size() > longestIdentifier)
            return Status::of(Failure::missing, "the address names no valid schema");
        address.schema = *schema;
    }
    return Status::done();
}

std::string addressText(const PostgresAddress& address) {
    const bool hasParameters = address.serverAddress.find('?') != std::string::npos;
    return address.serverAddress + (hasParameters ? '&' : '?') + std::string(schemaKey) +
           percentEncoded(address.schema);
}

std::string schemaBeside(std::string_view schema, std::string_view suffix) {
    const auto isInsideCharacter = [](char letter) { return (letter & 0xC0) == 0x80; };
    std::size_t kept = std::min(schema.size(), longestIdentifier - suffix.size());
    while (kept > 0 && kept < schema.size() && isInsideCharacter(schema[kept])) --kept;
    return std::string(schema.substr(0, kept)).append(suffix);
}

std::string quotedIdentifier(std::string_view name) { return quoted(name, '"'); }

std::string quotedLiteral(std::string_view text) { return quoted(text, '\''); }

}  // namespace chengheng
