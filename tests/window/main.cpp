#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>
#include <cstdio>

namespace {

/// Qt's own messages, without what the offscreen platform says about every window.
void report(QtMsgType, const QMessageLogContext&, const QString& text) {
    if (text.startsWith("This plugin does not support")) return;
    std::fputs(qPrintable(text + '\n'), stderr);
}

}  // namespace

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    qInstallMessageHandler(report);
    // Nothing of whoever runs the tests is read or written.
    const QTemporaryDir home;
    qputenv("CHENGHENG_HOME", home.path().toUtf8());
    QApplication application(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
