#include "tests/support/ordinary_user.h"

#include <sys/wait.h>
#include <unistd.h>

namespace chengheng {

int asOrdinaryUser(const std::function<int()>& act) {
    const pid_t child = fork();
    if (child == 0) {
        if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) _exit(255);
        _exit(act());
    }
    int result = 0;
    waitpid(child, &result, 0);
    return WIFEXITED(result) ? WEXITSTATUS(result) : -1;
}

}  // namespace chengheng
