#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "base/values/status.h"

namespace chengheng {

/// Why a sheet was not read or not written.
struct SheetFailure {
    std::string reason;        ///< a sentence
    std::size_t row = 0;       ///< counted from 1; 0 when the file as a whole is meant
    std::size_t column = 0;    ///< the same
    std::string heading = {};  ///< the file that it is about, and what became of it

    /// The whole message: heading, place and reason.
    std::string text() const;
};

/// The failure as one of reading or writing that file.
SheetFailure whileReading(SheetFailure failure, const std::string& file);
SheetFailure whileWriting(SheetFailure failure, const std::string& file);
/// What the operating system refused.
SheetFailure whileReading(const Status& status, const std::string& file);
SheetFailure whileWriting(const Status& status, const std::string& file);

}  // namespace chengheng
