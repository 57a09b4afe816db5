#pragma once

class QDialog;
class QWidget;

namespace chengheng {

/// To be called when a dialog is about to be shown for the first time. One that shows rows can be
/// enlarged and maximised, and comes back as large as the operator left it, and where; others
/// stay as they are, over their parent.
void prepareShape(QDialog& dialog);

/// Gives the window of a widget the size and the place that it has for a new operator.
void resetShape(QWidget& widget);

}  // namespace chengheng
