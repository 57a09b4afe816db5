#pragma once

#include <string>
#include <vector>

#include "data/engine/engine.h"
#include "data/engines/postgres/postgres_transaction.h"

namespace chengheng {

Status readPostgresFacts(PostgresTransaction& transaction, PostgresConnection& connection,
                         EngineFacts& facts);

/// Has the server read every value of every table of the schema and names what it cannot
/// read.
Status verifyPostgres(PostgresTransaction& transaction, PostgresConnection& connection,
                      std::vector<std::string>& faults);

}  // namespace chengheng
