#pragma once

#include <string>

#include "data/access/CNbCwDB.h"
#include "data/engine/engine.h"

namespace chengheng {

/// Makes the layout of an empty database for the running test; throws when that fails. On a
/// server, where it takes a tenth of a second, the tables of an earlier test are emptied and
/// taken over, unless that test left more than rows in them.
void makeLayout(Engine& engine);

/// Opens such a database in a place where none is yet and selects it.
void openNewBooks(CNbCwDB& database, const std::string& location, const char* name = "books");

}  // namespace chengheng
