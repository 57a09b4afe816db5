#pragma once

#include <optional>
#include <vector>

#include "data/access/CNbCwDB.h"
#include "operators/operator_rules.h"

namespace chengheng {

/// Every operator of the selected database with his rights, as they stand at one moment; nothing
/// in `operators` where they are not one to one.
Status readOperators(CNbCwDB& database, std::optional<std::vector<OperatorRecord>>& operators);

}  // namespace chengheng
