#include "shell/lock_wait_box.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QThread>
#include <QVBoxLayout>

#include "screen/screen_texts.h"
#include "session/lock_wait_text.h"
#include "shell/shell_texts.h"

namespace chengheng {

namespace {

/// Work beside the painting has none.
bool isThreadOfScreen() {
    return QThread::currentThread() == QCoreApplication::instance()->thread();
}

}  // namespace

class LockWaitBox::Box : public QDialog {
  public:
    explicit Box(QWidget* parent)
        : QDialog(parent),
          m_holder(new QLabel(this)),
          m_waited(new QLabel(this)),
          m_buttons(new QDialogButtonBox(this)) {
        setWindowTitle(shell_texts::lockWaitTitle);
        setWindowModality(Qt::ApplicationModal);
        m_holder->setTextFormat(Qt::PlainText);
        m_holder->setTextInteractionFlags(Qt::TextSelectableByMouse);
        m_waited->setTextFormat(Qt::PlainText);
        QPushButton* cancel = m_buttons->addButton(QDialogButtonBox::Cancel);
        cancel->setText(screen_texts::cancel);
        connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        connect(this, &QDialog::rejected, this, [this] { m_isCancelled = true; });
        auto* rows = new QVBoxLayout(this);
        rows->addWidget(m_holder);
        rows->addWidget(m_waited);
        rows->addWidget(m_buttons);
        cancel->setFocus();
    }

    void tell(const LockHolder& holder, std::chrono::milliseconds waited) {
        m_holder->setText(QString::fromStdString(lockWaitText(holder)));
        m_waited->setText(
            QString(shell_texts::lockWaited).arg(QString::fromStdString(waitedText(waited))));
    }
    bool isCancelled() const { return m_isCancelled; }

  private:
    QLabel* m_holder;
    QLabel* m_waited;
    QDialogButtonBox* m_buttons;
    bool m_isCancelled = false;
};

LockWaitBox::LockWaitBox() = default;
LockWaitBox::~LockWaitBox() = default;

bool LockWaitBox::keepWaiting(const LockHolder& holder, std::chrono::milliseconds waited) {
    constexpr std::chrono::seconds patience(5);
    if (!isThreadOfScreen()) return waited < patience;
    if (waited < quietTime) {
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        return true;
    }
    if (!m_box) {
        m_box = std::make_unique<Box>(QApplication::activeWindow());
        m_box->tell(holder, waited);
        m_box->show();
    }
    m_box->tell(holder, waited);
    QApplication::processEvents();
    return !m_box->isCancelled();
}

void LockWaitBox::waitEnded() {
    if (isThreadOfScreen()) m_box.reset();
}

Failure LockWaitBox::givenUpAs() const {
    return isThreadOfScreen() ? Failure::cancelled : Failure::busy;
}

}  // namespace chengheng
