#pragma once

class QWidget;

namespace chengheng {
class IMessages;

// The chart from and to a file that the operator chooses. Dialogs come up over `window`.

/// Shows the plan of an import; true when it was carried out.
bool importFromChosenFile(IMessages& messages, QWidget* window);
void exportToChosenFile(IMessages& messages, QWidget* window);

}  // namespace chengheng
