#pragma once

#include <optional>
#include <vector>

#include "data/access/CNbCwDB.h"
#include "operators/operator_rules.h"

namespace chengheng {

/// Every operator of the selected database with his rights, as they stand at one moment; nothing
/// in `operators` where they are not one to one.
Status readOperators(CNbCwDB& database, std::optional<std::vector<OperatorRecord>>& operators);

/// The same in a unit of work, whose locks keep others from changing them.
Status readLockedOperators(CNbCwDB& database,
                           std::optional<std::vector<OperatorRecord>>& operators);

}  // namespace chengheng
