#include "sheets/sheet_failure.h"

#include <fmt/format.h>

#include <utility>

#include "sheets/sheet.h"
#include "sheets/sheet_limits.h"
#include "sheets/sheet_texts.h"

namespace chengheng {
namespace {

/// The words for what is told in the same way in reading and writing.
std::string reasonOf(const Status& status) {
    if (status.failure == Failure::readOnly) return sheet_texts::noRight;
    return fmt::format(sheet_texts::fileFailed, status.detail);
}

std::string placed(const SheetFailure& failure) {
    if (failure.row == 0) return failure.reason;
    if (failure.column == 0) return fmt::format(sheet_texts::rowPlace, failure.row, failure.reason);
    return fmt::format(sheet_texts::place, failure.row, columnLetters(failure.column),
                       failure.reason);
}

}  // namespace

std::string SheetFailure::text() const {
    return heading.empty() ? placed(*this) : heading + "\n" + placed(*this);
}

SheetFailure whileReading(SheetFailure failure, const std::string& file) {
    failure.heading = fmt::format(sheet_texts::notRead, file);
    return failure;
}

SheetFailure whileWriting(SheetFailure failure, const std::string& file) {
    failure.heading = fmt::format(sheet_texts::notWritten, file);
    return failure;
}

SheetFailure whileReading(const Status& status, const std::string& file) {
    std::string reason = reasonOf(status);
    if (status.failure == Failure::missing) reason = sheet_texts::fileMissing;
    if (status.failure == Failure::full)
        reason =
            fmt::format(sheet_texts::fileTooLong, sheet_limits::fileSize / sheet_limits::megabyte);
    return whileReading(SheetFailure{.reason = std::move(reason)}, file);
}

SheetFailure whileWriting(const Status& status, const std::string& file) {
    if (status.failure == Failure::unconfirmed)
        return {.reason = fmt::format(sheet_texts::unconfirmed, status.detail),
                .heading = fmt::format(sheet_texts::written, file)};
    std::string reason = reasonOf(status);
    if (status.failure == Failure::missing) reason = sheet_texts::folderMissing;
    if (status.failure == Failure::full) reason = sheet_texts::diskFull;
    if (status.failure == Failure::refused) reason = sheet_texts::fileThere;
    if (status.failure == Failure::foreign) reason = sheet_texts::booksThere;
    return whileWriting(SheetFailure{.reason = std::move(reason)}, file);
}

}  // namespace chengheng
