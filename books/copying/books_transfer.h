#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/messages/refusal.h"
#include "base/system/output_target.h"
#include "data/transfer/foreign_objects.h"

namespace chengheng {

// Each of these takes the source as it stands at one moment, whoever goes on working with
// it; compares source and result row by row through digests before the result counts; and
// leaves the target as it was when anything fails. A location is the path of a file or the
// address of a schema.

// A source of an older layout is read as it is. What comes of it has the layout of this version,
// but for a backup that the engine copies as it is.

// What is taken over are rows: triggers and views that somebody put into the source are left out
// and named in `leftOut`.

/// Writes a set of books into a file of its own, which is a set of books in turn.
std::optional<Refusal> backUpBooks(const std::string& source, const std::string& file,
                                   Overwrite overwrite,
                                   std::vector<ForeignObject>* leftOut = nullptr);

/// Makes a set of books, or replaces the whole content of one, from a backup.
std::optional<Refusal> restoreBooks(const std::string& file, const std::string& target,
                                    Overwrite overwrite,
                                    std::vector<ForeignObject>* leftOut = nullptr);

/// The same from another set of books, on whatever engines the two lie.
std::optional<Refusal> copyBooks(const std::string& source, const std::string& target,
                                 Overwrite overwrite,
                                 std::vector<ForeignObject>* leftOut = nullptr);

}  // namespace chengheng
