#include "directories/window/open_directory.h"

#include "directories/window/directory_window.h"
#include "session/rights/CCheckAuth.h"

namespace chengheng {

std::optional<DirectoryRecord> openDirectory(DirectoryKind kind, QWidget& parent,
                                             IMessages& messages, DirectoryStart start) {
    const Directory& directory = directoryOf(kind);
    if (const auto refusal = rightRefusal(directory.right)) {
        messages.tell(refusal->notice);
        return std::nullopt;
    }
    DirectoryWindow window(directory, &parent);
    if (start == DirectoryStart::adding) window.startWithAddition();
    window.DoModal();
    return window.chosen() == nullptr ? std::nullopt : std::optional(*window.chosen());
}

}  // namespace chengheng
