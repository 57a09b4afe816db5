#include "screen/window_shape.h"

#include <QAbstractItemView>
#include <QDialog>
#include <QEvent>
#include <algorithm>

#include "screen/window_memory.h"

namespace chengheng {
namespace {

/// Rows of its own, not those of a box that drops down.
bool showsRows(const QDialog& dialog) {
    const auto views = dialog.findChildren<QAbstractItemView*>();
    return std::ranges::any_of(
        views, [&](const QAbstractItemView* view) { return view->window() == &dialog; });
}

/// Keeps the shape of a window whenever it leaves the screen.
class KeptShape final : public QObject {
  public:
    static constexpr const char* name = "keptShape";

    explicit KeptShape(QDialog& dialog)
        : QObject(&dialog),
          m_dialog(dialog),
          m_usual(dialog.testAttribute(Qt::WA_Resized) ? dialog.size() : dialog.sizeHint()) {
        setObjectName(QString::fromLatin1(name));
        m_dialog.setWindowFlag(Qt::WindowMaximizeButtonHint);
        m_dialog.setSizeGripEnabled(true);
        const QByteArray left = rememberedOfWindows(key()).toByteArray();
        if (!left.isEmpty()) m_dialog.restoreGeometry(left);
        m_dialog.installEventFilter(this);
    }

    void reset() {
        forgetOfWindows(key());
        m_dialog.showNormal();
        m_dialog.resize(m_usual);
        const QWidget* const parent = m_dialog.parentWidget();
        if (parent == nullptr) return;
        QRect place = m_dialog.frameGeometry();
        place.moveCenter(parent->window()->frameGeometry().center());
        m_dialog.move(place.topLeft());
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Hide && !event->spontaneous())
            rememberOfWindows(key(), m_dialog.saveGeometry());
        return QObject::eventFilter(watched, event);
    }

  private:
    QString key() const { return keyOfWindow(m_dialog) + QStringLiteral("/shape"); }

    QDialog& m_dialog;
    QSize m_usual;
};

KeptShape* shapeOf(const QWidget& window) {
    return static_cast<KeptShape*>(
        window.findChild<QObject*>(QLatin1String(KeptShape::name), Qt::FindDirectChildrenOnly));
}

}  // namespace

void prepareShape(QDialog& dialog) {
    if (shapeOf(dialog) == nullptr && showsRows(dialog)) new KeptShape(dialog);
}

void resetShape(QWidget& widget) {
    if (KeptShape* shape = shapeOf(*widget.window())) shape->reset();
}

}  // namespace chengheng
