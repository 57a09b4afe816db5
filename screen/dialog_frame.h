#pragma once

#include <QBrush>
#include <QDialog>

#include "screen/guarded.h"

class QDialogButtonBox;

namespace chengheng {

/// What OnCtlColor is asked to colour.
inline constexpr int dialogBackground = 4;

/// Root of all dialogs of the host and its modules. It turns the toolkit's events into the
/// handlers that a dialog overrides, in this order: every event goes to PreTranslateMessage,
/// then to WindowProc, whose default hands keys, buttons and commands to the On... handlers.
/// No exception leaves a handler.
///
/// A dialog lives once: it opens, ends with EndDialog and is destroyed.
class DialogFrame : public QDialog {
    Q_OBJECT

  public:
    /// Opens the dialog modally and gives the result it ended with. A dialog that ends itself
    /// in OnInitDialog is never shown.
    int DoModal() { return exec(); }
    int exec() override;
    void setVisible(bool visible) override;
    void done(int result) override;

    int templateNumber() const { return m_templateNumber; }
    /// Whether DoModal runs it; false for a dialog shown beside others.
    bool isModalLoopRunning() const { return m_isModalLoopRunning; }
    bool isEnded() const { return m_isEnded; }

    /// Sends a command to OnCommand once the event loop turns. A second one before the first
    /// has begun is left out, or two windows would open in a row.
    void PostCommand(int command);

    /// Opens help about this dialog; true when it did.
    virtual bool OnHelpInfo();

  protected:
    DialogFrame(int templateNumber, QWidget* parent);
    /// For dialogs that no host knows by a number.
    explicit DialogFrame(QWidget* parent) : DialogFrame(0, parent) {}

    /// Runs once, before OnInitDialog. False: the dialog does not come into being.
    virtual bool OnCreate() { return true; }
    /// Runs once, before the dialog appears. False: the dialog has placed the focus itself.
    virtual bool OnInitDialog() { return true; }
    /// Enter where no field or button takes it.
    virtual void OnOK() { EndDialog(Accepted); }
    /// Escape where no field or button takes it.
    virtual void OnCancel() { EndDialog(Rejected); }
    /// The dialog has ended and left the screen.
    virtual void PostNcDestroy() {}
    /// True: the event needs no more.
    virtual bool PreTranslateMessage(QEvent&) { return false; }
    /// True: the event was dealt with.
    virtual bool WindowProc(QEvent& event);
    /// True: the command is this dialog's.
    virtual bool OnCommand(int) { return false; }

    // Points are in client pixels.

    virtual void OnMouseMove(QPoint) {}
    virtual void OnLButtonDown(QPoint) {}
    virtual void OnLButtonUp(QPoint) {}
    virtual void OnRButtonDown(QPoint) {}

    virtual QBrush OnCtlColor(int kind);
    /// Draws over the whole background where there is something to draw; true: it is done.
    virtual bool OnEraseBkgnd(QPainter&) { return true; }

    /// Moves values from the controls into the dialog's data (saving) or back.
    virtual void DoDataExchange(bool) {}
    void UpdateData(bool isSaving = true) { DoDataExchange(isSaving); }

    void EndDialog(int result);
    /// The buttons of most dialogs: 确定, which is the default one and OnOK, and 取消, which ends
    /// it.
    QDialogButtonBox* makeConfirmation();

    IMessages& messages() const { return m_messages; }
    /// Wraps a slot: `connect(button, &QPushButton::clicked, this, guarded([this] {...}))`.
    template <class Slot>
    auto guarded(Slot slot) {
        return [this, slot = std::move(slot)](auto&&...) mutable {
            runGuarded(m_messages, windowTitle(), slot);
        };
    }

    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    /// False when the dialog has ended, which it may do while it opens.
    bool initialise();

    IMessages& m_messages;
    int m_templateNumber;
    bool m_isInitialised = false;
    bool m_isEnded = false;
    bool m_isModalLoopRunning = false;
    bool m_isCommandWaiting = false;
};

}  // namespace chengheng
