#pragma once

#include <optional>
#include <string>

namespace chengheng {

/// Whether a file of books is there, under its own name or under the temporary one that books were
/// given while their balances were carried forward.
bool isThereByAnyName(const std::string& location);

/// Gives a file of books its name back where it has only the temporary one. What is to be told of
/// it; nothing where there was nothing to do. A file that has the name is never written over.
std::optional<std::string> giveNameBack(const std::string& location);

}  // namespace chengheng
