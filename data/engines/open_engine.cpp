#include "data/engines/open_engine.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/values/percent_coding.h"
#include "data/engines/postgres/postgres_engine.h"
#include "data/engines/sqlite/sqlite_engine.h"

namespace chengheng {
namespace {

constexpr std::array<std::string_view, 2> serverSchemes{"postgresql://", "postgres://"};

/// Parameters of an address that are secret; the first is the server's password.
constexpr std::array<std::string_view, 2> secretKeys{"password=", "sslpassword="};

std::size_t schemeLength(std::string_view location) {
    for (const std::string_view scheme : serverSchemes)
        if (location.starts_with(scheme)) return scheme.size();
    return 0;
}

/// A part of an address: where it begins in it, and how long it is.
struct AddressPart {
    std::size_t at = 0;
    std::size_t length = 0;
};

/// The passwords of an address: that of "user:secret@host", up to the last @, so that one which
/// holds an @, against the rules, is not shown in part; and those among the parameters.
std::vector<AddressPart> secretsOf(std::string_view location) {
    std::vector<AddressPart> secrets;
    const std::size_t scheme = schemeLength(location);
    if (scheme == 0) return secrets;
    const std::size_t question = std::min(location.find('?'), location.size());
    const std::string_view authority = location.substr(scheme, question - scheme);
    const std::size_t at = authority.rfind('@');
    const std::size_t colon = authority.substr(0, at).find(':');
    if (at != std::string_view::npos && colon < at)
        secrets.push_back({scheme + colon + 1, at - colon - 1});
    std::size_t begin = question + 1;
    while (begin < location.size()) {
        const std::size_t end = std::min(location.find('&', begin), location.size());
        const std::string_view parameter = location.substr(begin, end - begin);
        for (const std::string_view key : secretKeys)
            if (parameter.starts_with(key))
                secrets.push_back({begin + key.size(), end - begin - key.size()});
        begin = end + 1;
    }
    return secrets;
}

/// The server's own among them.
std::vector<AddressPart> passwordsOf(std::string_view location) {
    auto secrets = secretsOf(location);
    std::erase_if(secrets, [location](const AddressPart& secret) {
        return location.substr(0, secret.at).ends_with(secretKeys.back());
    });
    return secrets;
}

/// An address without some of its secrets, each with what names it.
std::string without(std::string_view location, const std::vector<AddressPart>& secrets) {
    std::string shown(location);
    for (auto secret = secrets.rbegin(); secret != secrets.rend(); ++secret) {
        std::size_t begin = secret->at - 1;  // with the colon before it
        std::size_t end = secret->at + secret->length;
        if (location[begin] == '=') {
            begin = location.find_last_of("?&", begin);
            const bool isLast = end == shown.size();
            if (!isLast) ++begin;  // the separator before it parts the next one
            if (!isLast) ++end;
        }
        shown.erase(begin, end - begin);
    }
    return shown;
}

}  // namespace

bool isServerAddress(std::string_view location) { return schemeLength(location) != 0; }

std::string shownLocation(std::string_view location) {
    return without(location, secretsOf(location));
}

std::string serverPasswordIn(std::string_view location) {
    // Of several the last counts, as it does for the library.
    const auto passwords = passwordsOf(location);
    if (passwords.empty()) return {};
    const AddressPart& last = passwords.back();
    return percentDecoded(location.substr(last.at, last.length)).value_or("");
}

std::string withoutServerPassword(std::string_view location) {
    return without(location, passwordsOf(location));
}

std::string withServerPassword(std::string_view location, std::string_view password) {
    std::string address = withoutServerPassword(location);
    address += address.find('?') == std::string::npos ? '?' : '&';
    return address.append(secretKeys.front()).append(percentEncoded(password));
}

void hideServerPassword(char* argument) {
    const std::string_view whole(argument);
    for (const std::string_view scheme : serverSchemes) {
        const std::size_t begin = whole.find(scheme);
        if (begin == std::string_view::npos) continue;
        for (const AddressPart& secret : secretsOf(whole.substr(begin)))
            std::fill_n(argument + begin + secret.at, secret.length, 'x');
    }
}

Status openEngine(std::string_view location, OpenMode mode, std::unique_ptr<Engine>& engine) {
    return isServerAddress(location) ? openPostgresEngine(location, mode, engine)
                                     : openSqliteEngine(location, mode, engine);
}

}  // namespace chengheng
