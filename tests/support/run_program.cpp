#include "tests/support/run_program.h"

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <stdexcept>

namespace chengheng {
namespace {

constexpr int secondsPerProgram = 120;
constexpr int notStarted = 127;

[[noreturn]] void become(const std::vector<std::string>& command, const ProgramSettings& settings) {
    for (const auto& [name, value] : settings) setenv(name.c_str(), value.c_str(), 1);
    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    alarm(secondsPerProgram);
    execv(arguments.front(), arguments.data());
    _exit(notStarted);
}

int exitCodeOf(pid_t process) {
    int state = 0;
    while (waitpid(process, &state, 0) < 0 && errno == EINTR) continue;
    return WIFEXITED(state) ? WEXITSTATUS(state) : -1;
}

/// Reads what is there now; false at the end.
bool readMore(int file, std::string& text) {
    std::array<char, 4096> part;
    const ssize_t got = read(file, part.data(), part.size());
    if (got > 0) text.append(part.data(), static_cast<std::size_t>(got));
    return got > 0 || (got < 0 && errno == EINTR);
}

std::size_t countOf(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

}  // namespace

ProgramRun runProgram(const std::vector<std::string>& command, const ProgramSettings& settings) {
    std::array<int, 2> out{};
    std::array<int, 2> err{};
    if (pipe2(out.data(), O_CLOEXEC) != 0 || pipe2(err.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    const pid_t process = fork();
    if (process < 0) throw std::runtime_error("no process");
    if (process == 0) {
        setsid();  // no terminal to ask
        const int nothing = open("/dev/null", O_RDONLY);
        dup2(nothing, STDIN_FILENO);
        dup2(out[1], STDOUT_FILENO);
        dup2(err[1], STDERR_FILENO);
        become(command, settings);
    }
    close(out[1]);
    close(err[1]);
    ProgramRun run;
    std::array<pollfd, 2> waited{{{out[0], POLLIN, 0}, {err[0], POLLIN, 0}}};
    while (waited[0].fd >= 0 || waited[1].fd >= 0) {
        if (poll(waited.data(), waited.size(), -1) < 0) continue;
        if (waited[0].revents != 0 && !readMore(out[0], run.out)) waited[0].fd = -1;
        if (waited[1].revents != 0 && !readMore(err[0], run.err)) waited[1].fd = -1;
    }
    close(out[0]);
    close(err[0]);
    run.exitCode = exitCodeOf(process);
    if (run.exitCode == notStarted) throw std::runtime_error(command.front() + " does not start");
    return run;
}

ProgramRun runInTerminal(const std::vector<std::string>& command, const std::string& prompt,
                         const std::vector<std::string>& answers, const ProgramSettings& settings) {
    int terminal = -1;
    const pid_t process = forkpty(&terminal, nullptr, nullptr, nullptr);
    if (process < 0) throw std::runtime_error("no terminal");
    if (process == 0) become(command, settings);
    ProgramRun run;
    std::size_t answered = 0;
    while (readMore(terminal, run.out)) {
        if (answered == answers.size() || countOf(run.out, prompt) <= answered) continue;
        const std::string typed = answers[answered++] + "\n";
        if (write(terminal, typed.data(), typed.size()) < 0) break;
    }
    close(terminal);
    run.exitCode = exitCodeOf(process);
    return run;
}

}  // namespace chengheng
