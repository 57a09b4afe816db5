#pragma once

#include <QLabel>

namespace chengheng {

/// A line of text that takes the room there is, and ends in dots where it is too long for it.
class ElidedLabel final : public QLabel {
    Q_OBJECT

  public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace chengheng
