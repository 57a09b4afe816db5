#include "screen/dialog_frame.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <algorithm>

#include "screen/fonts.h"
#include "screen/host_events.h"
#include "screen/screen_texts.h"
#include "screen/shown.h"
#include "screen/window_shape.h"
#include "session/host_messages.h"

namespace chengheng {
namespace {

constexpr QSize frameRoom(16, 48);  // for what the desktop puts around a window

bool hasDefaultButton(const QDialog& dialog) {
    const auto buttons = dialog.findChildren<QPushButton*>();
    return std::any_of(buttons.begin(), buttons.end(), [](const QPushButton* button) {
        return button->isDefault() && button->isVisible();
    });
}

/// A size that was asked for and is larger than the screen would put buttons out of reach.
void fitToScreen(QDialog& dialog) {
    if (!dialog.testAttribute(Qt::WA_Resized)) return;
    const QSize room = dialog.screen()->availableGeometry().size();
    const QSize fitting = dialog.size().boundedTo(room - frameRoom);
    if (fitting != dialog.size()) dialog.resize(fitting);
}

}  // namespace

DialogFrame::DialogFrame(int templateNumber, QWidget* parent)
    : QDialog(parent), m_messages(hostMessages()), m_templateNumber(templateNumber) {
    setFont(windowFont());
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

bool DialogFrame::initialise() {
    if (!m_isInitialised) {
        m_isInitialised = true;
        bool placesFocus = false;
        bool isCreated = false;
        const bool isWhole = runGuarded(m_messages, windowTitle(), [&] {
            isCreated = OnCreate();
            placesFocus = isCreated && OnInitDialog();
        });
        if (!isWhole || !isCreated) {
            EndDialog(Rejected);
        } else if (placesFocus && !focusWidget()) {
            focusNextChild();
        }
    }
    return !m_isEnded;
}

int DialogFrame::exec() {
    m_isModalLoopRunning = true;
    if (!initialise()) return result();
    return QDialog::exec();
}

void DialogFrame::setVisible(bool visible) {
    if (visible && !initialise()) return;
    if (visible && !isVisible()) {
        fitToScreen(*this);
        prepareShape(*this);
    }
    QDialog::setVisible(visible);
}

void DialogFrame::done(int result) {
    const bool hadEnded = std::exchange(m_isEnded, true);
    QDialog::done(result);
    if (!hadEnded) PostNcDestroy();
}

void DialogFrame::EndDialog(int result) {
    if (!m_isEnded) done(result);
}

QDialogButtonBox* DialogFrame::makeConfirmation() {
    auto* buttons = new QDialogButtonBox(this);
    auto* confirm = buttons->addButton(shown(screen_texts::confirm), QDialogButtonBox::AcceptRole);
    confirm->setDefault(true);
    buttons->addButton(shown(screen_texts::cancel), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, guarded([this] { OnOK(); }));
    connect(buttons, &QDialogButtonBox::rejected, this, [this] { EndDialog(Rejected); });
    return buttons;
}

void DialogFrame::PostCommand(int command) {
    if (m_isCommandWaiting) return;
    m_isCommandWaiting = true;
    QCoreApplication::postEvent(this, new CommandEvent(command));
}

bool DialogFrame::event(QEvent* event) {
    bool isDone = true;
    if (event->type() == CommandEvent::type()) m_isCommandWaiting = false;
    runGuarded(m_messages, windowTitle(),
               [&] { isDone = PreTranslateMessage(*event) || WindowProc(*event); });
    return isDone;
}

bool DialogFrame::WindowProc(QEvent& event) {
    if (event.type() == CommandEvent::type()) {
        return m_isEnded || OnCommand(static_cast<CommandEvent&>(event).command);
    }
    return QDialog::event(&event);
}

void DialogFrame::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (auto* button = qobject_cast<QPushButton*>(focusWidget())) {
                button->click();
            } else if (hasDefaultButton(*this)) {
                QDialog::keyPressEvent(event);
            } else {
                OnOK();
            }
            break;
        case Qt::Key_Escape:
            OnCancel();
            break;
        case Qt::Key_F1:
            if (!OnHelpInfo()) event->ignore();
            break;
        default:
            QDialog::keyPressEvent(event);
    }
}

void DialogFrame::mouseMoveEvent(QMouseEvent* event) {
    OnMouseMove(event->position().toPoint());
    QDialog::mouseMoveEvent(event);
}

void DialogFrame::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) OnLButtonDown(event->position().toPoint());
    if (event->button() == Qt::RightButton) OnRButtonDown(event->position().toPoint());
    QDialog::mousePressEvent(event);
}

void DialogFrame::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) OnLButtonUp(event->position().toPoint());
    QDialog::mouseReleaseEvent(event);
}

void DialogFrame::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), OnCtlColor(dialogBackground));
    OnEraseBkgnd(painter);
}

QBrush DialogFrame::OnCtlColor(int) { return palette().window(); }

bool DialogFrame::OnHelpInfo() { return false; }

}  // namespace chengheng
