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

// What is taken over are rows, those of the operation log with them. The log of the copy goes on
// with where it came from, that of the source with where it went.

/// What is to be told of books that were written.
struct TransferRemarks {
    std::vector<ForeignObject> leftOut = {};  ///< triggers and views that somebody put there
    std::string notLogged = {};  ///< why the log of the source does not tell of it; mostly empty
};

/// Writes a set of books into a file of its own, which is a set of books in turn.
std::optional<Refusal> backUpBooks(const std::string& source, const std::string& file,
                                   Overwrite overwrite, TransferRemarks* remarks = nullptr);

/// Makes a set of books, or replaces the whole content of one, from a backup.
std::optional<Refusal> restoreBooks(const std::string& file, const std::string& target,
                                    Overwrite overwrite, TransferRemarks* remarks = nullptr);

/// The same from another set of books, on whatever engines the two lie.
std::optional<Refusal> copyBooks(const std::string& source, const std::string& target,
                                 Overwrite overwrite, TransferRemarks* remarks = nullptr);

}  // namespace chengheng
