#include "tests/support/waiting_process.h"

#include <poll.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

namespace chengheng {
namespace {

constexpr char go = 'g';

int workWhenTold(int line, const std::function<bool()>& work) {
    char told = 0;
    if (read(line, &told, 1) != 1 || told != go) return 2;
    try {
        return work() ? 0 : 1;
    } catch (const std::exception&) {
        return 1;
    }
}

}  // namespace

WaitingProcess::WaitingProcess(const std::function<bool()>& work) {
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        throw std::runtime_error("no line to another process");
    m_process = fork();
    if (m_process < 0) throw std::runtime_error("no second process");
    if (m_process == 0) {
        close(ends[0]);
        _exit(workWhenTold(ends[1], work));
    }
    close(ends[1]);
    m_line = ends[0];
}

WaitingProcess::~WaitingProcess() {
    if (m_line >= 0) close(m_line);
    if (m_process > 0) waitpid(m_process, nullptr, 0);
}

void WaitingProcess::start(std::chrono::milliseconds moment) {
    if (send(m_line, &go, 1, MSG_NOSIGNAL) != 1)
        throw std::runtime_error("the other process does not listen");
    // The line breaks when the process ends.
    pollfd end{m_line, POLLIN, 0};
    poll(&end, 1, static_cast<int>(moment.count()));
}

bool WaitingProcess::hasSucceeded() {
    int result = 0;
    waitpid(m_process, &result, 0);
    m_process = -1;
    return WIFEXITED(result) && WEXITSTATUS(result) == 0;
}

}  // namespace chengheng
