#include "screen/cancellable_work.h"

#include <QApplication>
#include <QEventLoop>
#include <QProgressDialog>
#include <QTimer>
#include <atomic>
#include <exception>
#include <thread>

#include "screen/screen_texts.h"

namespace chengheng {
namespace {

// Milliseconds.
constexpr int moment = 400;
constexpr int paintingInterval = 60;
constexpr int barLength = 1000;

struct State {
    std::atomic<std::size_t> done = 0;
    std::atomic<std::size_t> total = 0;
    std::atomic<bool> isCancelled = false;
    std::atomic<bool> hasEnded = false;
};

/// A bar that moves without end until it is known how long the work is.
void showState(QProgressDialog& box, const State& state) {
    const std::size_t total = state.total;
    if (total == 0 || box.wasCanceled()) return;
    box.setMaximum(barLength);
    box.setValue(static_cast<int>(state.done * barLength / total));
}

void waitWithBox(QEventLoop& loop, const QString& text, QWidget* parent, State& state) {
    QProgressDialog box(text, QString::fromUtf8(screen_texts::cancel), 0, 0, parent);
    box.setWindowTitle(QString::fromUtf8(screen_texts::productName));
    box.setWindowModality(Qt::ApplicationModal);
    box.setAutoReset(false);
    box.setAutoClose(false);
    QObject::connect(&box, &QProgressDialog::canceled, &loop, [&] {
        state.isCancelled = true;
        loop.quit();
    });
    QTimer painting;
    QObject::connect(&painting, &QTimer::timeout, &box, [&] { showState(box, state); });
    painting.start(paintingInterval);
    box.show();
    if (!state.hasEnded) loop.exec();
}

}  // namespace

void runCancellable(const QString& text, QWidget* parent,
                    const std::function<void(const WorkTold&)>& work) {
    State state;
    const WorkTold told = [&state](std::size_t done, std::size_t total) {
        state.done = done;
        state.total = total;
        return !state.isCancelled;
    };
    QEventLoop loop;
    std::exception_ptr thrown;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    std::thread worker([&] {
        try {
            work(told);
        } catch (...) {
            thrown = std::current_exception();
        }
        state.hasEnded = true;
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    QTimer::singleShot(moment, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    QApplication::restoreOverrideCursor();
    if (!state.hasEnded) waitWithBox(loop, text, parent, state);
    // Given up, it undoes what it has done.
    while (!state.hasEnded) loop.exec(QEventLoop::ExcludeUserInputEvents);
    worker.join();
    if (thrown) std::rethrow_exception(thrown);
}

}  // namespace chengheng
