#include "tests/support/other_workstation.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <sstream>
#include <stdexcept>

namespace chengheng {
namespace {

std::string modeText(LockMode mode) { return std::to_string(static_cast<int>(mode)); }

pid_t start(const char* program, int line) {
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_adddup2(&files, line, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&files, line, STDOUT_FILENO);
    std::string name = program;
    std::array<char*, 2> arguments{name.data(), nullptr};
    pid_t process = -1;
    const int error = posix_spawn(&process, program, &files, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&files);
    if (error != 0) throw std::runtime_error(name + " does not start");
    return process;
}

OtherWorkstation::Answer readAnswer(const std::string& line) {
    std::istringstream fields(line);
    OtherWorkstation::Answer answer;
    std::string failure;
    std::getline(fields, failure, '\t');
    answer.status.failure = static_cast<Failure>(std::stoi(failure));
    for (std::string* field :
         {&answer.status.detail, &answer.holder.lockName, &answer.holder.operatorName,
          &answer.holder.function, &answer.holder.station})
        std::getline(fields, *field, '\t');
    return answer;
}

}  // namespace

OtherWorkstation::OtherWorkstation(const std::string& location) {
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        throw std::runtime_error("no line to another process");
    m_line = ends[0];
    m_process = start(CHENGHENG_TEST_WORKSTATION, ends[1]);
    close(ends[1]);
    const Status opened = ask("open " + location);
    if (!opened) throw std::runtime_error("the other workstation: " + opened.detail);
}

OtherWorkstation::~OtherWorkstation() {
    if (m_line >= 0) close(m_line);
    if (m_process > 0) waitpid(m_process, nullptr, 0);
}

void OtherWorkstation::send(const std::string& command) {
    const std::string line = command + "\n";
    if (::send(m_line, line.data(), line.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(line.size()))
        throw std::runtime_error("the other workstation does not listen");
}

bool OtherWorkstation::hasAnswered(std::chrono::milliseconds within) {
    if (m_received.find('\n') != std::string::npos) return true;
    pollfd waiting{m_line, POLLIN, 0};
    if (poll(&waiting, 1, static_cast<int>(within.count())) <= 0) return false;
    std::array<char, 4096> bytes{};
    const ssize_t got = read(m_line, bytes.data(), bytes.size());
    if (got <= 0) throw std::runtime_error("the other workstation is gone");
    m_received.append(bytes.data(), static_cast<std::size_t>(got));
    return m_received.find('\n') != std::string::npos;
}

OtherWorkstation::Answer OtherWorkstation::answer() {
    using namespace std::chrono_literals;
    const auto end = std::chrono::steady_clock::now() + 60s;
    while (!hasAnswered(100ms))
        if (std::chrono::steady_clock::now() > end)
            throw std::runtime_error("the other workstation does not answer");
    const std::size_t size = m_received.find('\n');
    const std::string line = m_received.substr(0, size);
    m_received.erase(0, size + 1);
    return readAnswer(line);
}

Status OtherWorkstation::ask(const std::string& command) {
    send(command);
    return answer().status;
}

Status OtherWorkstation::lock(const std::string& names, LockMode mode) {
    return ask("lock " + modeText(mode) + " 0 " + names);
}

void OtherWorkstation::startLock(const std::string& names, LockMode mode,
                                 std::chrono::milliseconds patience) {
    static_cast<void>(ask("patience " + std::to_string(patience.count())));
    send("lock " + modeText(mode) + " 1 " + names);
}

void OtherWorkstation::unlock(const std::string& names, LockMode mode) {
    static_cast<void>(ask("unlock " + modeText(mode) + " " + names));
}

void OtherWorkstation::kill() {
    ::kill(m_process, SIGKILL);
    waitpid(m_process, nullptr, 0);
    m_process = -1;
}

}  // namespace chengheng
