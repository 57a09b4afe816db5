#pragma once

#include <QLineEdit>

#include "base/messages/messages.h"

namespace chengheng {

/// A field of one line for so many characters, each counted as it is seen, one of four bytes
/// too. A key typed into a full field does nothing; of a longer text put in, as by pasting,
/// there remains what fits. Ctrl+D never changes it.
class LimitedEdit : public QLineEdit {
    Q_OBJECT

  public:
    explicit LimitedEdit(int limit, QWidget* parent = nullptr);

    int limit() const { return m_limit; }
    /// Shows a stored text, which may be longer. It can be shortened then, not lengthened.
    void showText(const QString& text);

  signals:
    /// A text put in was cut, a moment ago.
    void wasCut();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

  private:
    class Limit;

    int m_limit;
    int m_count = 0;  ///< of the characters now in the field
    bool m_isShowing = false;
    bool m_isTyping = false;
};

/// Has the operator told, by the label of the field, when a text put into it was cut.
void tellCuts(LimitedEdit& edit, const char* label, IMessages& messages);

}  // namespace chengheng
