#include "books/logon/server_fields.h"

#include <algorithm>

#include "base/values/percent_coding.h"
#include "data/engines/open_engine.h"

namespace chengheng {
namespace {

constexpr std::string_view serverScheme = "postgresql://";
constexpr std::string_view schemaParameter = "schema=";

/// What stands before a mark; the text goes on behind it. Everything where the mark is missing.
std::string_view takeUpTo(std::string_view& text, std::string_view mark) {
    const std::size_t at = text.find(mark);
    const std::string_view taken = text.substr(0, at);
    text = at == std::string_view::npos ? std::string_view() : text.substr(at + mark.size());
    return taken;
}

std::string decoded(std::string_view text) {
    return percentDecoded(text).value_or(std::string(text));
}

/// The brackets of a numeric host hold colons of its own.
void readHost(std::string_view text, ServerFields& fields) {
    const std::size_t behind = text.starts_with('[') ? text.find(']') : 0;
    const std::size_t colon = behind == std::string_view::npos ? behind : text.find(':', behind);
    fields.host = decoded(text.substr(0, colon));
    if (colon != std::string_view::npos) fields.port = text.substr(colon + 1);
}

std::string encodedHost(std::string_view host) {
    return host.starts_with('[') ? std::string(host) : percentEncoded(host);
}

}  // namespace

ServerFields serverFieldsOf(std::string_view address) {
    ServerFields fields;
    if (!isServerAddress(address)) return fields;
    const std::string shown = shownLocation(address);
    std::string_view rest = shown;
    takeUpTo(rest, "://");
    std::string_view authority = takeUpTo(rest, "?");
    std::string_view parameters = rest;
    rest = authority;
    authority = takeUpTo(rest, "/");
    fields.database = decoded(rest);
    if (const std::size_t at = authority.rfind('@'); at != std::string_view::npos) {
        fields.user = decoded(authority.substr(0, at));
        authority.remove_prefix(at + 1);
    }
    readHost(authority, fields);
    while (!parameters.empty()) {
        const std::string_view parameter = takeUpTo(parameters, "&");
        if (parameter.starts_with(schemaParameter))
            fields.schema = decoded(parameter.substr(schemaParameter.size()));
        else
            (fields.others += fields.others.empty() ? "" : "&") += parameter;
    }
    return fields;
}

std::string addressOf(const ServerFields& fields) {
    std::string address(serverScheme);
    if (!fields.user.empty()) address += percentEncoded(fields.user) + "@";
    address += encodedHost(fields.host);
    if (!fields.port.empty()) address += ":" + fields.port;
    address += "/" + percentEncoded(fields.database);
    char separator = '?';
    if (!fields.schema.empty()) {
        address += separator;
        address.append(schemaParameter).append(percentEncoded(fields.schema));
        separator = '&';
    }
    if (!fields.others.empty()) address += separator + fields.others;
    return address;
}

}  // namespace chengheng
