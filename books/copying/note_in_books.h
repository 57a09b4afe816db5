#pragma once

#include <string>

#include "base/values/status.h"

namespace chengheng {

/// Enters something that changes nothing in the operation log of books that are not open here.
/// Books of an older layout and those that take no writes from whoever runs this keep none.
Status noteInBooks(const std::string& location, const std::string& words);

}  // namespace chengheng
