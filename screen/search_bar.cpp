#include "screen/search_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <utility>

#include "screen/elided_label.h"

namespace chengheng {
namespace {

constexpr int fieldCharacters = 15;
constexpr int resultCharacters = 14;

}  // namespace

SearchBar::SearchBar(const QString& label, const QString& hint, QWidget* parent)
    : QWidget(parent), m_field(new QLineEdit(this)), m_result(new ElidedLabel(this)) {
    const int character = fontMetrics().horizontalAdvance(QLatin1Char('0'));
    auto* caption = new QLabel(label, this);
    caption->setBuddy(m_field);
    m_field->setObjectName(QStringLiteral("search"));
    m_field->setPlaceholderText(hint);
    m_field->setClearButtonEnabled(true);
    m_field->setMinimumWidth(fieldCharacters * character);
    m_field->installEventFilter(this);
    m_result->setObjectName(QStringLiteral("searchResult"));
    m_result->setCharacters(resultCharacters);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(caption);
    row->addWidget(m_field);
    row->addWidget(m_result);
    connect(m_field, &QLineEdit::textChanged, this, [this](const QString& typed) {
        m_isTyped = true;
        emit textChanged(typed);
    });
}

QString SearchBar::text() const { return m_field->text(); }

void SearchBar::clear() { m_field->clear(); }

void SearchBar::setResult(const QString& result) { m_result->setText(result); }

QWidget& SearchBar::field() const { return *m_field; }

void SearchBar::takeKeyboard() { m_field->setFocus(Qt::OtherFocusReason); }

void SearchBar::takeOver(const QString& typed) {
    takeKeyboard();
    m_field->setText(typed);
}

bool SearchBar::handleKey(int key, Qt::KeyboardModifiers modifiers) {
    switch (key) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (modifiers & Qt::ShiftModifier) {
                emit previousWanted();
            } else if (!std::exchange(m_isTyped, false)) {
                emit nextWanted();
            }
            return true;
        case Qt::Key_Down:
            m_isTyped = false;
            emit nextWanted();
            return true;
        case Qt::Key_Up:
            m_isTyped = false;
            emit previousWanted();
            return true;
        case Qt::Key_Escape:
            clear();
            emit left();
            return true;
        default:
            return false;
    }
}

bool SearchBar::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_field || event->type() != QEvent::KeyPress) return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    return handleKey(key->key(), key->modifiers());
}

}  // namespace chengheng
