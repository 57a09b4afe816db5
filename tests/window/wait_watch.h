#pragma once

#include <QApplication>
#include <QLabel>
#include <QTimer>
#include <string>

#include "screen/wait_window.h"

namespace chengheng {

/// Notes what a wait window says that is up while this lives.
class WaitWatch {
  public:
    WaitWatch() {
        QObject::connect(&m_looking, &QTimer::timeout, [this] { look(); });
        // A wait window turns the event loop longer than that, however slow the machine is.
        m_looking.start(10);
    }

    const std::string& text() const { return m_text; }

  private:
    void look() {
        for (QWidget* shown : QApplication::topLevelWidgets())
            if (dynamic_cast<WaitWindow*>(shown) && shown->isVisible())
                m_text = shown->findChild<QLabel*>()->text().toStdString();
    }

    QTimer m_looking;
    std::string m_text;
};

}  // namespace chengheng
