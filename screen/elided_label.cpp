#include "screen/elided_label.h"

#include <QPainter>

namespace chengheng {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void ElidedLabel::setCharacters(int characters) {
    m_characters = characters;
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

QSize ElidedLabel::sizeHint() const {
    const QSize hint = QLabel::sizeHint();
    if (m_characters == 0) return hint;
    return {m_characters * fontMetrics().horizontalAdvance(QLatin1Char('0')), hint.height()};
}

QSize ElidedLabel::minimumSizeHint() const { return {0, QLabel::minimumSizeHint().height()}; }

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect room = contentsRect();
    painter.drawText(room, static_cast<int>(alignment()) | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
}

}  // namespace chengheng
