#pragma once

#include <set>
#include <string>

namespace chengheng {

/// Every file above the data that begins the writing of a change, by its path in the tree.
std::set<std::string> changingFiles();

}  // namespace chengheng
