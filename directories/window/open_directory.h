#pragma once

#include <functional>
#include <optional>
#include <string>

#include "base/messages/messages.h"
#include "directories/directory.h"
#include "screen/grid/picker_window.h"

class QWidget;

namespace chengheng {

/// A record of a directory, with the code of its group.
struct ChosenRecord {
    DirectoryRecord record;
    std::string groupCode;
};

/// How the window of a directory comes up: with a record being added, with the one selected that
/// is given, else with the first. Of an item one of class and class code is enough.
struct DirectoryStart {
    bool isAdding = false;
    std::optional<ChosenRecord> selected = {};
};

/// Opens the window of a directory, where the operator has the right to it, until it is closed;
/// the record that was selected there at last, nothing where none was or the right is missing,
/// which has been told.
std::optional<ChosenRecord> openDirectory(DirectoryKind kind, QWidget& parent, IMessages& messages,
                                          const DirectoryStart& start = {});

/// The records that a picker shows.
struct PickerRecords {
    /// Reads them anew and finds among them what was chosen; nothing when they cannot be read,
    /// which the operator has been told.
    std::function<std::optional<PickerChange>(const std::optional<ChosenRecord>& chosen)> readAnew;
    std::function<ChosenRecord(std::size_t position)> at;
};

/// Gives a picker the buttons 增加, whose new record is the choice, and 目录, which comes up with
/// the record that is selected in the picker.
void offerDirectory(PickerWindow& picker, DirectoryKind kind, IMessages& messages,
                    const PickerRecords& records);

}  // namespace chengheng
