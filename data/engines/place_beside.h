#pragma once

#include <string>

#include "base/values/status.h"

namespace chengheng {

/// A place for other books beside some, by a suffix of letters, digits and signs: Nbzw-1.db in the
/// folder where the file itself lies, whatever link leads to it; the schema books-1 on the server.
std::string placeBeside(const std::string& location, const std::string& suffix);

/// Whether books can be made at a place that is nobody's yet: no file of that name, no schema.
Status readIsPlaceFree(const std::string& location, bool& isFree);

}  // namespace chengheng
