#include "screen/background_work.h"

#include <QApplication>
#include <QEventLoop>
#include <exception>
#include <thread>

namespace chengheng {

void runBesidePainting(const std::function<void()>& work) {
    QEventLoop loop;
    std::exception_ptr thrown;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    std::thread worker([&] {
        try {
            work();
        } catch (...) {
            thrown = std::current_exception();
        }
        QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    });
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    worker.join();
    QApplication::restoreOverrideCursor();
    if (thrown) std::rethrow_exception(thrown);
}

}  // namespace chengheng
