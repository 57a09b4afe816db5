#include "screen/enter_moves_on.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace chengheng {

EnterMovesOn::EnterMovesOn(QWidget* parent, QList<QWidget*> fields)
    : QObject(parent), m_fields(std::move(fields)) {
    for (QWidget* field : m_fields) field->installEventFilter(this);
}

bool EnterMovesOn::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    const auto position = m_fields.indexOf(qobject_cast<QWidget*>(watched));
    if (position < 0 || position + 1 >= m_fields.size()) return false;
    QWidget* next = m_fields[position + 1];
    next->setFocus(Qt::TabFocusReason);
    return true;
}

}  // namespace chengheng
