#pragma once

#include <optional>

#include "base/messages/messages.h"
#include "directories/directory.h"

class QWidget;

namespace chengheng {

enum class DirectoryStart { browsing, adding };

/// Opens the window of a directory, where the operator has the right to it, until it is closed;
/// the record that was selected there at last, nothing where none was or the right is missing,
/// which has been told.
std::optional<DirectoryRecord> openDirectory(DirectoryKind kind, QWidget& parent,
                                             IMessages& messages,
                                             DirectoryStart start = DirectoryStart::browsing);

}  // namespace chengheng
