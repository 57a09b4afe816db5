#pragma once

#include <string>

#include "base/values/status.h"

namespace chengheng {

/// What may become of a file that stands already where something is to be written.
enum class Overwrite {
    refuse,
    replace,       ///< but never books
    replaceBooks,  ///< books, too: what copies books replaces them on demand
};

/// The place that is meant by "-".
bool isStandardOutput(const std::string& target);

/// Where a writer's finished work goes. Decides for every writer of files what its target is.
struct OutputTarget {
    /// With links followed: what they lead to is written, they stay.
    std::string path;
    /// A pipe, a terminal or a device, which is written through and never replaced.
    bool isStream = false;
};

/// Looks what stands at a place. Failures: refused where a file is that is not to be replaced,
/// foreign where books are and this is no copy of books, or where an engine keeps the log of
/// books, and what kept it from looking.
Status findTarget(const std::string& target, Overwrite overwrite, OutputTarget& found);

/// Writes the whole of a file into a stream.
Status writeThrough(const std::string& file, const OutputTarget& target);

}  // namespace chengheng
