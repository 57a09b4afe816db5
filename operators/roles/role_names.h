#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace chengheng {

/// Where books lie on a server. Roles belong to all of its databases.
struct BooksPlace {
    std::string database;
    std::string schema;
};

/// "books_2026.李明": the schema comes first, so that no name begins with pg_, which a server keeps
/// for itself. What is too long, or somebody else's, ends in a number in the place of its end.
std::string roleName(const BooksPlace& place, std::string_view operatorName, std::int32_t userId,
                     const std::function<bool(std::string_view)>& isTaken);

/// A name for the time in which names are exchanged.
std::string passingRoleName(const BooksPlace& place, std::int32_t userId);

/// What is noted beside a role: whose it is, and of which books. A role is known by it, not by its
/// name.
std::string roleMark(const BooksPlace& place, std::int32_t userId);

/// Whose role it is; nothing when it is none of these books.
std::optional<std::int32_t> ownerInMark(const BooksPlace& place, std::string_view mark);

}  // namespace chengheng
