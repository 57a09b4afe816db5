#pragma once

#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <functional>

namespace chengheng {

/// The operator's hands while a modal window holds the test: acts once on the next window that
/// becomes the active modal one. A test fails when none came by the time this goes, and when
/// the act left the window open, which is then closed so that the test ends.
class NextModal {
  public:
    explicit NextModal(std::function<void(QWidget& window)> act);
    ~NextModal();
    NextModal(const NextModal&) = delete;
    NextModal& operator=(const NextModal&) = delete;

    bool hasCome() const { return m_hasCome; }

  private:
    void look();

    std::function<void(QWidget&)> m_act;
    QPointer<QWidget> m_before;  ///< null once it is gone: the next one may get its place
    QTimer m_timer;
    bool m_hasCome = false;
};

}  // namespace chengheng
