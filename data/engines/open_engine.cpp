#include "data/engines/open_engine.h"

#include <array>

#include "data/engines/postgres/postgres_engine.h"
#include "data/engines/sqlite/sqlite_engine.h"

namespace chengheng {
namespace {

constexpr std::array<std::string_view, 2> serverSchemes{"postgresql://", "postgres://"};

std::size_t schemeLength(std::string_view location) {
    for (const std::string_view scheme : serverSchemes)
        if (location.starts_with(scheme)) return scheme.size();
    return 0;
}

/// "user:secret@host..." without ":secret". Up to the last @, so that a password that holds
/// one, against the rules, is not shown in part.
std::string withoutUserPassword(std::string_view authority) {
    const std::size_t at = authority.rfind('@');
    if (at == std::string_view::npos) return std::string(authority);
    const std::string_view user = authority.substr(0, authority.substr(0, at).find(':'));
    return std::string(user.substr(0, at)).append(authority.substr(at));
}

bool isSecret(std::string_view parameter) {
    return parameter.starts_with("password=") || parameter.starts_with("sslpassword=");
}

std::string withoutSecrets(std::string_view parameters) {
    std::string shown;
    while (!parameters.empty()) {
        const std::size_t end = parameters.find('&');
        const std::string_view parameter = parameters.substr(0, end);
        if (!isSecret(parameter)) (shown += shown.empty() ? '?' : '&') += parameter;
        parameters = end == std::string_view::npos ? "" : parameters.substr(end + 1);
    }
    return shown;
}

}  // namespace

bool isServerAddress(std::string_view location) { return schemeLength(location) != 0; }

std::string shownLocation(std::string_view location) {
    const std::size_t scheme = schemeLength(location);
    if (scheme == 0) return std::string(location);
    const std::string_view address = location.substr(scheme);
    const std::size_t question = address.find('?');
    const std::string_view parameters =
        question == std::string_view::npos ? "" : address.substr(question + 1);
    return std::string(location.substr(0, scheme)) +
           withoutUserPassword(address.substr(0, question)) + withoutSecrets(parameters);
}

Status openEngine(std::string_view location, OpenMode mode, std::unique_ptr<Engine>& engine) {
    return isServerAddress(location) ? openPostgresEngine(location, mode, engine)
                                     : openSqliteEngine(location, mode, engine);
}

}  // namespace chengheng
