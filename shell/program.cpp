#include "shell/program.h"

#include <fmt/format.h>

#include <QApplication>
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "base/system/workstation.h"
#include "base/values/text.h"
#include "books/logon/books_session.h"
#include "books/logon/logon_texts.h"
#include "books/logon/password_file.h"
#include "books/making/making_texts.h"
#include "books/making/new_books.h"
#include "screen/application.h"
#include "screen/message_boxes.h"
#include "screen/report/screen_report_printer.h"
#include "screen/window_memory.h"
#include "session/failure_texts.h"
#include "session/host_messages.h"
#include "shell/connection_loss.h"
#include "shell/lock_wait_box.h"
#include "shell/logon_window.h"
#include "shell/secret_store.h"

namespace chengheng {
namespace {

int exitCode(ProgramExit exit) { return static_cast<int>(exit); }

void printError(const std::string& text) {
    std::fputs((printableText(text) + "\n").c_str(), stderr);
    std::fflush(stderr);
}

/// Qt's own messages. A fatal one means that no window can be shown; warnings, about the
/// folders and drivers of the machine, say nothing to an operator.
void reportQtMessage(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtFatalMsg) {
        printError(logon_texts::withoutScreen);
        std::_Exit(exitCode(ProgramExit::withoutScreen));
    }
    if (type == QtCriticalMsg) printError(text.toStdString());
}

bool hasScreen() {
    return std::ranges::any_of(std::array{"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"},
                               [](const char* name) {
                                   const char* value = std::getenv(name);
                                   return value != nullptr && value[0] != '\0';
                               });
}

/// What the program holds while it runs.
QString fileOfWindows(const BooksRegistry& registry) {
    const std::string folder = registry.folder();
    return folder.empty() ? QString() : QString::fromStdString(folder + "/windows.ini");
}

struct Program {
    Program() { database.setLockWaiter(&waitBox); }

    MessageBoxes boxes;
    ScreenReportPrinter printer;
    HostReportPrinter hostPrinter{printer};
    LockWaitBox waitBox;
    CNbCwDB database;
    WrongTries tries;
    BooksSession session{database, tries};
    ConnectionLoss loss{database, session, boxes};
    HostMessages hostMessages{loss};
    BooksRegistry registry{booksHome()};
    WindowMemory windows{fileOfWindows(registry)};
    DesktopKeyring keyring;
};

/// The exit code for a log-on refused without a window.
ProgramExit exitFor(const Refusal& refusal) {
    return refusal.notice.focusField == books_field::location ? ProgramExit::notOpened
                                                              : ProgramExit::logonRefused;
}

std::optional<ProgramExit> logOnSilently(Program& program, const LaunchOptions& options) {
    LogonRequest request{.location = options.books,
                         .operatorName = options.operatorName,
                         .password = {},
                         .date = options.date,
                         .launchArgument = options.launchArgument};
    const Status status = readPasswordFile(options.passwordFile, request.password);
    if (!status) {
        printError(failureText(status, options.passwordFile, FailureSubject::passwordFile));
        return ProgramExit::logonRefused;
    }
    auto refusal = program.session.logOn(request);
    if (refusal && refusal->kind == RefusalKind::newPassword) {
        if (!chooseNewPassword(request, *refusal, nullptr)) return ProgramExit::done;
        refusal = program.session.logOn(request);
        if (!refusal)
            printError(fmt::format(logon_texts::passwordFileOutdated, options.passwordFile));
    }
    if (refusal) {
        printError(refusal->notice.text);
        return exitFor(*refusal);
    }
    if (!program.session.warning().empty()) printError(program.session.warning());
    if (const auto warning = passwordFileWarning(options.passwordFile)) printError(*warning);
    return std::nullopt;
}

/// Whether an operator logged on; false when they gave up.
bool logOnInWindow(Program& program, const LaunchOptions& options) {
    if (program.registry.folder().empty()) printError(making_texts::homeMissing);
    LogonWindow window(program.session, program.registry, program.loss, program.keyring, options);
    return window.exec() == QDialog::Accepted;
}

}  // namespace

ProgramExit runShell(const LaunchOptions& options, const std::function<void()>& work) {
    Program program;
    if (options.isComplete()) {
        if (const auto refused = logOnSilently(program, options)) return *refused;
    } else if (!logOnInWindow(program, options)) {
        return ProgramExit::done;
    }
    work();
    return ProgramExit::done;
}

int startProgram(const std::vector<std::string>& arguments, const std::function<void()>& work) {
    const LaunchReading reading = readLaunchOptions(arguments);
    if (reading.exit) {
        std::fputs(reading.text.c_str(), *reading.exit == ProgramExit::done ? stdout : stderr);
        return exitCode(*reading.exit);
    }
    if (!hasScreen()) {
        printError(logon_texts::withoutScreen);
        return exitCode(ProgramExit::withoutScreen);
    }
    qInstallMessageHandler(reportQtMessage);
    std::string name = "chengheng";
    char* names[] = {name.data(), nullptr};
    int count = 1;
    QApplication application(count, names);
    prepareApplication(application);
    try {
        return exitCode(runShell(reading.options, work));
    } catch (const std::exception& error) {
        printError(std::string(logon_texts::unexpected) + "\n" + error.what());
        return exitCode(ProgramExit::failed);
    }
}

}  // namespace chengheng
