#pragma once

#include <QWidget>

class QLineEdit;

namespace chengheng {
class ElidedLabel;

/// A search beside a grid: a field, and what it has found. It says what is typed and when the
/// operator goes on to the next or back to the previous match; looking is the window's business.
class SearchBar final : public QWidget {
    Q_OBJECT

  public:
    SearchBar(const QString& label, const QString& hint, QWidget* parent = nullptr);

    QString text() const;
    void clear();
    /// The stop of the Tab key. A proxy for it would be a second one.
    QWidget& field() const;
    /// Takes the keyboard.
    void takeKeyboard();
    void setResult(const QString& result);
    /// Takes the keyboard and goes on with a text that was typed elsewhere.
    void takeOver(const QString& typed);

  signals:
    void textChanged(const QString& text);
    /// Enter or Down; but not the first Enter after typing, which keeps the match that is shown.
    void nextWanted();
    /// Shift+Enter or Up.
    void previousWanted();
    /// Escape: the field is empty by then.
    void left();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool handleKey(int key, Qt::KeyboardModifiers modifiers);

    QLineEdit* m_field;
    ElidedLabel* m_result;
    bool m_isTyped = false;  ///< what is shown is the match of the text as it was just typed
};

}  // namespace chengheng
