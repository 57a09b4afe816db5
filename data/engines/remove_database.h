#pragma once

#include <string>

#include "base/values/status.h"
#include "data/engine/engine.h"

namespace chengheng {

/// Takes away a database with everything in it: the file and its companions, or the schema an
/// address names. Meant for one whose making failed half-way; nobody may have it open.
Status removeDatabase(const std::string& location);

/// The same of the schema that a connection to a server works in, whatever locks keep others out.
Status removeSchemaOf(Engine& engine);

}  // namespace chengheng
