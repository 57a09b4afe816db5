#include "books/logon/wrong_tries.h"

#include <algorithm>

namespace chengheng {

std::chrono::milliseconds WrongTries::waitLeft(const std::string& location,
                                               const std::string& operatorName) const {
    const auto found = m_tries.find({location, operatorName});
    if (found == m_tries.end()) return std::chrono::milliseconds::zero();
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(found->second.freeAgain - m_clock());
    return std::max(left, std::chrono::milliseconds::zero());
}

void WrongTries::noteWrong(const std::string& location, const std::string& operatorName) {
    Tries& tries = m_tries[{location, operatorName}];
    tries.delay = std::clamp(tries.delay * 2, firstDelay, longestDelay);
    tries.freeAgain = m_clock() + tries.delay;
}

void WrongTries::noteRight(const std::string& location, const std::string& operatorName) {
    m_tries.erase({location, operatorName});
}

}  // namespace chengheng
