#pragma once

#include <string>

#include "base/values/status.h"

namespace chengheng {

/// Takes away a database with everything in it: the file and its companions, or the schema an
/// address names. Meant for one whose making failed half-way; nobody may have it open.
Status removeDatabase(const std::string& location);

}  // namespace chengheng
