#include <QApplication>
#include <QLoggingCategory>
#include <csignal>
#include <cstdlib>
#include <iostream>

#include "screen/application.h"
#include "screen/report/pdf_writing.h"
#include "sheets/sheet_failure.h"
#include "tool/tool.h"

namespace {

chengheng::ExitCode writeFile(chengheng::Tool& tool, CReport& report, const std::string& path,
                              chengheng::Overwrite overwrite) {
    chengheng::ReportDocument document(report);
    const auto everyPageGoesOn = [](std::size_t, std::size_t) { return true; };
    const chengheng::Status status =
        chengheng::writePdf(document, path, overwrite, everyPageGoesOn);
    if (status) return chengheng::ExitCode::done;
    tool.err << chengheng::whileWriting(status, path).text() << '\n';
    return chengheng::ExitCode::failed;
}

}  // namespace

int main(int count, char** arguments) {
    // Whoever reads from a pipe may leave early; that is a failure to tell, not a death.
    std::signal(SIGPIPE, SIG_IGN);
    // Pages are painted without a screen, wherever the program was started.
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    // What the toolkit misses on a server, such as a folder for sockets, is no matter of pages;
    // whether they were written is told by the tool.
    QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
    std::string name = "chbooks-pdf";
    char* names[] = {name.data(), nullptr};
    int nameCount = 1;
    QApplication application(nameCount, names);
    chengheng::prepareApplication(application);
    return chengheng::runTool(count, arguments, std::cout, std::cerr, writeFile);
}
