#pragma once

#include "session/record_change.h"

class QWidget;

namespace chengheng {

// The chart from and to a file that the operator chooses. Dialogs come up over `window`.

/// Shows the plan of an import and carries it out.
Outcome importFromChosenFile(IMessages& messages, QWidget* window);
void exportToChosenFile(IMessages& messages, QWidget* window);

}  // namespace chengheng
