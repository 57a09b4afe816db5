#include "screen/forms/limited_edit.h"

#include <fmt/format.h>

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QValidator>
#include <algorithm>

#include "base/values/text.h"
#include "forms/form_texts.h"
#include "forms/input_limit.h"
#include "screen/guarded.h"

namespace chengheng {
namespace {

int countOf(const QString& text) { return static_cast<int>(characterCount(text.toStdString())); }

}  // namespace

/// Sees every text before the field takes it.
class LimitedEdit::Limit final : public QValidator {
  public:
    explicit Limit(LimitedEdit& edit) : QValidator(&edit), m_edit(edit) {}

    State validate(QString& text, int& cursor) const override {
        if (!m_edit.m_isShowing) cut(text, cursor);
        m_edit.m_count = countOf(text);
        return Acceptable;
    }

  private:
    void cut(QString& text, int& cursor) const {
        FieldText field{withoutControlCharacters(text.left(cursor).toStdString()),
                        withoutControlCharacters(text.mid(cursor).toStdString())};
        const int allowed = std::max(m_edit.m_limit, m_edit.m_count);
        const std::size_t tooMany = cutToLimit(field, static_cast<std::size_t>(allowed));
        const QString before = QString::fromStdString(field.before);
        text = before + QString::fromStdString(field.after);
        cursor = static_cast<int>(before.size());
        if (tooMany > 0 && !m_edit.m_isTyping)
            QMetaObject::invokeMethod(&m_edit, &LimitedEdit::wasCut, Qt::QueuedConnection);
    }

    LimitedEdit& m_edit;
};

LimitedEdit::LimitedEdit(int limit, QWidget* parent) : QLineEdit(parent), m_limit(limit) {
    setValidator(new Limit(*this));
}

void LimitedEdit::showText(const QString& text) {
    if (text == this->text()) return;
    const QScopedValueRollback showing(m_isShowing, true);
    setText(text);
}

void LimitedEdit::keyPressEvent(QKeyEvent* event) {
    // Some desktops delete by Ctrl+D. It is the key of 删除, and comes here while that is off.
    if (event->key() == Qt::Key_D && event->modifiers() == Qt::ControlModifier) {
        event->accept();
        return;
    }
    const QScopedValueRollback typing(m_isTyping, !event->matches(QKeySequence::Paste));
    QLineEdit::keyPressEvent(event);
}

void LimitedEdit::inputMethodEvent(QInputMethodEvent* event) {
    const QScopedValueRollback typing(m_isTyping, countOf(event->commitString()) <= 1);
    QLineEdit::inputMethodEvent(event);
}

void tellCuts(LimitedEdit& edit, const char* label, IMessages& messages) {
    QObject::connect(&edit, &LimitedEdit::wasCut, &edit, [&edit, label, &messages] {
        runGuarded(messages, edit.window()->windowTitle(), [&] {
            messages.tell({.text = fmt::format(form_texts::cutToLimit, label, edit.limit()),
                           .focusField = edit.objectName().toStdString()});
        });
    });
}

}  // namespace chengheng
