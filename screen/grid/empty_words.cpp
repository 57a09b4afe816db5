#include "screen/grid/empty_words.h"

#include <QAbstractItemView>
#include <QEvent>

namespace chengheng {
namespace {

constexpr int aroundWords = 12;

}  // namespace

EmptyWords::EmptyWords(QAbstractItemView& view, const QString& words)
    : QLabel(words, view.viewport()), m_view(view) {
    setObjectName(QStringLiteral("emptyWords"));
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    setMargin(aroundWords);
    setForegroundRole(QPalette::Text);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    view.viewport()->installEventFilter(this);
    const QAbstractItemModel& model = *view.model();
    connect(&model, &QAbstractItemModel::modelReset, this, &EmptyWords::follow);
    connect(&model, &QAbstractItemModel::rowsInserted, this, &EmptyWords::follow);
    connect(&model, &QAbstractItemModel::rowsRemoved, this, &EmptyWords::follow);
    follow();
}

void EmptyWords::setWords(const QString& words) {
    setText(words);
    follow();
}

void EmptyWords::follow() {
    setGeometry(m_view.viewport()->rect());
    const QAbstractItemModel* const model = m_view.model();
    setVisible(!text().isEmpty() && model != nullptr && model->rowCount() == 0);
}

bool EmptyWords::eventFilter(QObject* watched, QEvent* event) {
    // The headers of a view that is shown first take their room without a word of it.
    if (event->type() == QEvent::Resize || geometry() != m_view.viewport()->rect()) follow();
    return QLabel::eventFilter(watched, event);
}

}  // namespace chengheng
