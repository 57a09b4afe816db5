#include "tests/support/killed_process.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

#include "accounts/codes/mnemonic.h"
#include "tests/support/engine_cases.h"

namespace chengheng {
namespace {

constexpr int workWentWrong = 3;

int workToItsEnd(const std::function<void()>& work) {
    try {
        work();
        return 0;
    } catch (const std::exception&) {
        return workWentWrong;
    }
}

}  // namespace

bool isKilledAtWork(const std::string& location,
                    const std::function<void(std::unique_ptr<FaultyEngine>)>& work) {
    return isKilledAtWork(
        [&] { work(std::make_unique<FaultyEngine>(openForTest(location, OpenMode::existing))); });
}

bool isKilledAtWork(const std::function<void()>& work) {
    // Learning to read Chinese takes longer than most work that is killed; a child inherits it.
    static const std::string initials = initialsOf("库");
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("no second process");
    if (child == 0) _exit(workToItsEnd(work));
    int result = 0;
    waitpid(child, &result, 0);
    if (WIFSIGNALED(result) && WTERMSIG(result) == SIGKILL) return true;
    if (!WIFEXITED(result) || WEXITSTATUS(result) != 0)
        throw std::runtime_error("the work to be killed went wrong");
    return false;
}

std::int32_t endedProcess() {
    const pid_t process = fork();
    if (process == 0) _exit(0);
    waitpid(process, nullptr, 0);
    return process;
}

}  // namespace chengheng
