#pragma once

#include "base/messages/messages.h"

class QWidget;

namespace chengheng {

// Voucher types from and to a file that the operator chooses. Dialogs come up over `window`.

/// Shows the plan of an import and carries it out; whether that was done.
bool importVoucherTypes(IMessages& messages, QWidget* window);
void exportVoucherTypes(IMessages& messages, QWidget* window);

}  // namespace chengheng
