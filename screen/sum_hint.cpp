#include "screen/sum_hint.h"

#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QStyle>
#include <QToolTip>
#include <algorithm>
#include <utility>

namespace chengheng {
namespace {

class SumHint final : public QObject {
  public:
    SumHint(QLineEdit& field, SumOf sumOf)
        : QObject(&field), m_field(field), m_sumOf(std::move(sumOf)) {
        connect(&field, &QLineEdit::textChanged, this, &SumHint::tell);
        field.installEventFilter(this);
    }
    ~SumHint() override { delete m_label; }
    SumHint(const SumHint&) = delete;
    SumHint& operator=(const SumHint&) = delete;

    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
            case QEvent::Move:
            case QEvent::Resize:
            case QEvent::FocusIn:
                tell();
                break;
            case QEvent::FocusOut:
            case QEvent::Hide:
                hide();
                break;
            default:
                break;
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    void tell() {
        const QString sum = m_sumOf(m_field.text());
        m_field.setAccessibleDescription(sum);
        if (sum.isEmpty() || m_field.window()->focusWidget() != &m_field) return hide();
        if (m_label == nullptr) makeLabel();
        m_label->setText(sum);
        m_label->adjustSize();
        place();
        m_label->show();
        m_label->raise();
    }
    void hide() const {
        if (m_label != nullptr) m_label->hide();
    }
    void makeLabel() {
        m_label = new QLabel(m_field.parentWidget());
        m_label->setObjectName(QStringLiteral("sumHint"));
        m_label->setTextFormat(Qt::PlainText);
        m_label->setAttribute(Qt::WA_TransparentForMouseEvents);
        m_label->setPalette(QToolTip::palette());
        m_label->setBackgroundRole(QPalette::ToolTipBase);
        m_label->setForegroundRole(QPalette::ToolTipText);
        m_label->setAutoFillBackground(true);
        m_label->setFrameStyle(QFrame::Box | QFrame::Plain);
        m_label->setMargin(m_field.style()->pixelMetric(QStyle::PM_ToolTipLabelFrameWidth) + 2);
    }
    void place() const {
        const QRect field = m_field.geometry();
        const int below = field.bottom() + 1;
        const bool fits = below + m_label->height() <= m_field.parentWidget()->height();
        const int left = field.right() + 1 - m_label->width();
        m_label->move(std::max(left, 0), fits ? below : field.top() - m_label->height());
    }

    QLineEdit& m_field;
    SumOf m_sumOf;
    QPointer<QLabel> m_label;
};

}  // namespace

void showSums(QLineEdit& field, SumOf sumOf) { new SumHint(field, std::move(sumOf)); }

}  // namespace chengheng
