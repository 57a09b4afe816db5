#include "tests/window/next_modal.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPointer>
#include <utility>

#include "screen/wait_window.h"

namespace chengheng {

NextModal::NextModal(std::function<void(QWidget&)> act)
    : m_act(std::move(act)), m_before(QApplication::activeModalWidget()) {
    QObject::connect(&m_timer, &QTimer::timeout, [this] { look(); });
    m_timer.start(2);
}

NextModal::~NextModal() { EXPECT_TRUE(m_hasCome) << "no modal window came up"; }

void NextModal::look() {
    QPointer<QWidget> window = QApplication::activeModalWidget();
    if (!window || window == m_before || !window->isVisible()) return;
    const bool hasNothingToDo = dynamic_cast<WaitWindow*>(window.data()) != nullptr;
    if (hasNothingToDo) return;
    m_timer.stop();
    m_hasCome = true;
    m_act(*window);
    QTimer::singleShot(3000, qApp, [window] {
        if (!window || !window->isVisible()) return;
        ADD_FAILURE() << "left open: " << window->windowTitle().toStdString();
        window->close();
    });
}

}  // namespace chengheng
