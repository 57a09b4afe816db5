#include "tool/pdf_program.h"

#include <fmt/format.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <ostream>
#include <system_error>

#include "base/system/this_process.h"
#include "data/engines/open_engine.h"
#include "tool/tool_texts.h"

namespace chengheng {

ExitCode runPdfProgram(Tool& tool) {
    std::string program = programFolder() + "/chbooks-pdf";
    std::vector<char*> arguments{program.data()};
    std::string password;
    for (std::string& argument : tool.commandLine) {
        if (const std::string given = serverPasswordIn(argument); !given.empty()) password = given;
        argument = withoutServerPassword(argument);
        arguments.push_back(argument.data());
    }
    arguments.push_back(nullptr);
    // Command lines are for everybody on the machine to read, surroundings are not.
    if (!password.empty()) setenv("PGPASSWORD", password.c_str(), 1);
    pid_t process = 0;
    const int error =
        posix_spawn(&process, program.c_str(), nullptr, nullptr, arguments.data(), environ);
    if (error != 0) {
        tool.err << fmt::format(tool_texts::pdfProgramMissing, program,
                                std::generic_category().message(error))
                 << '\n';
        return ExitCode::failed;
    }
    int status = 0;
    pid_t ended = 0;
    do ended = waitpid(process, &status, 0);
    while (ended < 0 && errno == EINTR);
    if (ended == process && WIFEXITED(status)) return static_cast<ExitCode>(WEXITSTATUS(status));
    tool.err << fmt::format(tool_texts::pdfProgramBroken, program) << '\n';
    return ExitCode::failed;
}

}  // namespace chengheng
