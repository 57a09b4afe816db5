#pragma once

#include "screen/dialog_frame.h"

/// Base of the windows of functions, which work on the open set of books.
class CNxMiddleDialog : public chengheng::DialogFrame {
    Q_OBJECT

  protected:
    CNxMiddleDialog(int templateNumber, QWidget* parent) : DialogFrame(templateNumber, parent) {}
    explicit CNxMiddleDialog(QWidget* parent) : DialogFrame(parent) {}

    /// Makes the open set of books the one that g_pDB works on; false when it does not answer.
    bool SelectDatabase();
    /// Tells with a beep why the last operation of g_pDB failed.
    void TellFailure();
};
