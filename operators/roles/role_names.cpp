#include "operators/roles/role_names.h"

#include <fmt/format.h>

#include <charconv>

#include "data/engines/postgres/postgres_address.h"
#include "data/locks/held_locks.h"

namespace chengheng {
namespace {

constexpr std::size_t longestName = 63;
constexpr std::string_view markStart = "chengheng operator ";

std::string placeInMark(const BooksPlace& place) {
    return fmt::format(" of schema {} in database {}", quotedIdentifier(place.schema),
                       quotedIdentifier(place.database));
}

std::string numberedName(const BooksPlace& place, std::string_view name, std::int32_t userId) {
    const auto number = static_cast<std::uint32_t>(lockNumber(roleMark(place, userId)));
    return schemaBeside(name, fmt::format("~{:08x}", number));
}

}  // namespace

std::string roleName(const BooksPlace& place, std::string_view operatorName, std::int32_t userId,
                     const std::function<bool(std::string_view)>& isTaken) {
    const std::string name = fmt::format("{}.{}", place.schema, operatorName);
    const bool isFree = name.size() <= longestName && !isTaken(name);
    return isFree ? name : numberedName(place, name, userId);
}

std::string passingRoleName(const BooksPlace& place, std::int32_t userId) {
    return numberedName(place, place.schema + ".chengheng renames", userId);
}

std::string roleMark(const BooksPlace& place, std::int32_t userId) {
    return fmt::format("{}{}{}", markStart, userId, placeInMark(place));
}

std::optional<std::int32_t> ownerInMark(const BooksPlace& place, std::string_view mark) {
    if (!mark.starts_with(markStart)) return std::nullopt;
    mark.remove_prefix(markStart.size());
    std::int32_t userId = 0;
    const auto [end, error] = std::from_chars(mark.data(), mark.data() + mark.size(), userId);
    const bool isRead = error == std::errc() &&
                        std::string_view(end, mark.data() + mark.size()) == placeInMark(place);
    return isRead ? std::optional(userId) : std::nullopt;
}

}  // namespace chengheng
