#pragma once

#include <string>

#include "data/engine/engine.h"

namespace chengheng {

/// Fills an empty database with a small set of books in which everything is right: accounts
/// on three levels of the pattern 4222, a row of most tables, auxiliary sums that agree with
/// the account sums. Throws when a statement fails.
void fillSmallBooks(Engine& engine);

/// Every rate of 2026 of the currency 1.
void addRates(Engine& engine);

/// Runs statements separated by semicolons; throws when one fails.
void runScript(Engine& engine, const std::string& sql);

/// The same for rows that no column takes, as they lie in books of an older layout or were put
/// there by somebody: takes the checks of all columns away first.
void plant(Engine& engine, const std::string& sql);

}  // namespace chengheng
