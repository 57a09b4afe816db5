#pragma once

#include <functional>
#include <optional>
#include <string>

#include "base/messages/messages.h"
#include "directories/directory.h"
#include "screen/grid/picker_window.h"

class QWidget;

namespace chengheng {

enum class DirectoryStart { browsing, adding };

/// A record that was selected in the window of a directory, with the code of its group.
struct ChosenRecord {
    DirectoryRecord record;
    std::string groupCode;
};

/// Opens the window of a directory, where the operator has the right to it, until it is closed;
/// the record that was selected there at last, nothing where none was or the right is missing,
/// which has been told.
std::optional<ChosenRecord> openDirectory(DirectoryKind kind, QWidget& parent, IMessages& messages,
                                          DirectoryStart start = DirectoryStart::browsing);

/// Reads the rows of a picker anew and finds in them what was chosen; nothing when they cannot be
/// read, which the operator has been told.
using PickerReading =
    std::function<std::optional<PickerChange>(const std::optional<ChosenRecord>& chosen)>;

/// Gives a picker the buttons 增加, whose new record is the choice, and 目录.
void offerDirectory(PickerWindow& picker, DirectoryKind kind, IMessages& messages,
                    const PickerReading& readAnew);

}  // namespace chengheng
