#pragma once

#include <span>
#include <string>
#include <vector>

#include "data/engine/engine.h"

namespace chengheng {

/// Something in a set of books that cannot be right.
struct IntegrityFault {
    std::string check;  ///< name of the check that found it
    std::string text;   ///< what and where, for a person

    bool operator==(const IntegrityFault&) const = default;
};

class CheckedBooks;
class FaultList;

/// One thing that must hold in every set of books.
struct IntegrityCheck {
    const char* name;
    const char* title;  ///< for a person
    /// Adds every fault it finds. Not done only when the books could not be read.
    Status (*run)(CheckedBooks& books, FaultList& faults);
};

/// The checks in the order in which they run.
std::span<const IntegrityCheck> integrityChecks();

/// Those that find what may be right and is worth a look.
std::span<const IntegrityCheck> integrityNotes();

/// Runs all checks on one state of the books, which are only read. Not done when the books
/// could not be read to the end; the faults found up to there stand in the list. Notes are
/// looked for only where they are wanted.
Status checkIntegrity(Engine& engine, std::vector<IntegrityFault>& faults,
                      std::vector<IntegrityFault>* notes = nullptr);

}  // namespace chengheng
