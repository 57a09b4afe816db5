#pragma once

#include <string>

#include "data/engine/engine.h"

namespace chengheng {

// Small books of every layout that ever was lie in tests/older_books as statements, which no
// later change of the program changes: the tables for each engine, and the rows.

/// The file with the tables of the layout of a number.
std::string olderTablesFile(const Engine& engine, int number);

/// Makes such books in an empty database; throws when a statement fails.
void fillOlderBooks(Engine& engine, int number);

/// The number of the layout of books at a place.
int layoutAt(const std::string& location);

}  // namespace chengheng
