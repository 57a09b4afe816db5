#pragma once

#include <string>

#include "base/values/status.h"

namespace chengheng {

/// A place for other books beside some, by a suffix of letters, digits and signs: Nbzw-1.db in the
/// folder where the file itself lies, whatever link leads to it; the schema books-1 on the server.
std::string placeBeside(const std::string& location, const std::string& suffix);

/// The place of the same books of another year: the folder 2027 beside the folder 2026 in which the
/// file lies, the schema zw001_2027 beside zw001_2026. A schema that does not end in the year gets
/// it; a file whose folder is not named by the year has no such place, and the text is empty.
std::string placeOfYear(const std::string& location, int year, int other);

/// Whether books can be made at a place that is nobody's yet: no file of that name, no schema.
Status readIsPlaceFree(const std::string& location, bool& isFree);

}  // namespace chengheng
