#pragma once

#include "base/messages/messages.h"
#include "directories/directory.h"

class QWidget;

namespace chengheng {

// A directory from and to a file that the operator chooses. Dialogs come up over `window`.

/// Shows the plan of an import and carries it out; whether that was done.
bool importFromChosenFile(const Directory& directory, IMessages& messages, QWidget* window);
void exportToChosenFile(const Directory& directory, IMessages& messages, QWidget* window);

}  // namespace chengheng
