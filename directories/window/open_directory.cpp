#include "directories/window/open_directory.h"

#include <fmt/format.h>

#include "directories/directory_texts.h"
#include "directories/window/directory_window.h"
#include "screen/shown.h"
#include "session/CCheckAuth.h"

namespace chengheng {

std::optional<ChosenRecord> openDirectory(DirectoryKind kind, QWidget& parent, IMessages& messages,
                                          const DirectoryStart& start) {
    const Directory& directory = directoryOf(kind);
    if (const auto refusal = rightRefusal(directory.right)) {
        messages.tell(refusal->notice);
        return std::nullopt;
    }
    DirectoryWindow window(directory, &parent);
    if (start.isAdding) window.startWithAddition();
    if (start.selected) window.startAt(*start.selected);
    window.DoModal();
    return window.chosen();
}

void offerDirectory(PickerWindow& picker, DirectoryKind kind, IMessages& messages,
                    const PickerRecords& records) {
    const auto add = [&picker, &messages, kind, readAnew = records.readAnew] {
        return readAnew(openDirectory(kind, picker, messages, {.isAdding = true}));
    };
    const auto browse = [&picker, &messages, kind, records] {
        DirectoryStart start;
        if (const int position = picker.selected(); position >= 0)
            start.selected = records.at(static_cast<std::size_t>(position));
        return records.readAnew(openDirectory(kind, picker, messages, start));
    };
    picker.addCommand(shown(directory_texts::add), add, PickerWindow::Afterwards::takeTheChosen);
    picker.addCommand(shown(directory_texts::openDirectory), browse,
                      PickerWindow::Afterwards::stay);
    picker.setWordsWhenEmpty(
        shown(fmt::format(directory_texts::emptyDirectory, directoryOf(kind).title)));
}

}  // namespace chengheng
