#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <utility>

namespace chengheng {

/// Slows down whoever guesses passwords: after each wrong try for an operator of a set of
/// books the next one is not even looked at for a while, twice as long each time. Kept in
/// the process; a right password wipes it out.
class WrongTries {
  public:
    using Time = std::chrono::steady_clock::time_point;
    using Clock = std::function<Time()>;

    static constexpr std::chrono::seconds firstDelay{1};
    static constexpr std::chrono::seconds longestDelay{60};

    explicit WrongTries(Clock clock = std::chrono::steady_clock::now) : m_clock(std::move(clock)) {}

    /// How long the next try must still wait; zero when it may go on.
    std::chrono::milliseconds waitLeft(const std::string& location,
                                       const std::string& operatorName) const;
    void noteWrong(const std::string& location, const std::string& operatorName);
    void noteRight(const std::string& location, const std::string& operatorName);

  private:
    struct Tries {
        std::chrono::seconds delay{0};
        Time freeAgain;
    };

    Clock m_clock;
    std::map<std::pair<std::string, std::string>, Tries> m_tries;
};

}  // namespace chengheng
