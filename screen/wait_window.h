#pragma once

#include <QDialog>
#include <QElapsedTimer>

namespace chengheng {

/// A small window with a moving picture and a text, up while a short work runs. It stays long
/// enough to be read, and keys and clicks wait until it is gone.
class WaitWindow final : public QDialog {
  public:
    static constexpr int shortestTime = 300;  ///< milliseconds

    WaitWindow(const QString& text, QWidget* parent);
    ~WaitWindow() override;

  private:
    void paintFor(int milliseconds);

    QElapsedTimer m_shown;
};

}  // namespace chengheng
