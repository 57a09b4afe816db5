#pragma once

class QApplication;

namespace chengheng {

/// Gives a program the host's looks and language, whatever the locale variables say: font,
/// colours, icon, Chinese texts in the toolkit's own dialogs. Called once, before any window.
void prepareApplication(QApplication& application);

}  // namespace chengheng
