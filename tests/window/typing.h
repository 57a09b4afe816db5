#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QInputMethodEvent>
#include <QTest>
#include <QWidget>

namespace chengheng {

/// Types into a widget as a Chinese input method does: the whole text at once.
inline void typeText(QWidget* widget, const QString& text) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(widget, &event);
}

/// Shows a window and waits until it has the keyboard.
inline void showActive(QWidget& window) {
    window.show();
    window.activateWindow();
    static_cast<void>(QTest::qWaitForWindowActive(&window));
}

inline void clickOn(QWidget& window, const QString& caption) {
    for (QAbstractButton* button : window.findChildren<QAbstractButton*>())
        if (button->text() == caption) return QTest::mouseClick(button, Qt::LeftButton);
    ADD_FAILURE() << "no button " << caption.toStdString();
}

}  // namespace chengheng
