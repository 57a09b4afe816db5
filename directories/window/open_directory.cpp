#include "directories/window/open_directory.h"

#include "directories/directory_texts.h"
#include "directories/window/directory_window.h"
#include "screen/shown.h"
#include "session/rights/CCheckAuth.h"

namespace chengheng {

std::optional<ChosenRecord> openDirectory(DirectoryKind kind, QWidget& parent, IMessages& messages,
                                          DirectoryStart start) {
    const Directory& directory = directoryOf(kind);
    if (const auto refusal = rightRefusal(directory.right)) {
        messages.tell(refusal->notice);
        return std::nullopt;
    }
    DirectoryWindow window(directory, &parent);
    if (start == DirectoryStart::adding) window.startWithAddition();
    window.DoModal();
    return window.chosen();
}

void offerDirectory(PickerWindow& picker, DirectoryKind kind, IMessages& messages,
                    const PickerReading& readAnew) {
    const auto open = [&picker, &messages, kind, readAnew](DirectoryStart start) {
        return [=, &picker, &messages] {
            return readAnew(openDirectory(kind, picker, messages, start));
        };
    };
    picker.addCommand(shown(directory_texts::add), open(DirectoryStart::adding),
                      PickerWindow::Afterwards::takeTheChosen);
    picker.addCommand(shown(directory_texts::openDirectory), open(DirectoryStart::browsing),
                      PickerWindow::Afterwards::stay);
}

}  // namespace chengheng
