#pragma once

#include <QLabel>

namespace chengheng {

/// A line of text that takes the room there is, and ends in dots where it is too long for it.
class ElidedLabel final : public QLabel {
    Q_OBJECT

  public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    /// So wide where there is room, whatever it says.
    void setCharacters(int characters);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    int m_characters = 0;  ///< 0: as wide as its text
};

}  // namespace chengheng
