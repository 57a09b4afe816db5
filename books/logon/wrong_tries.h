#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "base/messages/refusal.h"
#include "data/access/CNbCwDB.h"
#include "session/host_globals.h"

namespace chengheng {

/// Whose password is tried.
struct TriedOperator {
    std::string location;  ///< of the books
    std::string name;
    std::int32_t id = 0;  ///< 0: the books know no such operator

    /// The row of LogonTries. Names that nobody has share a few, so that they wait like any other
    /// and nobody fills the books with them.
    std::int32_t row() const;
};

/// What is noted of an operator who logs on.
struct LogonNote {
    LogonHistory history = {};
    bool wantsNewPassword = false;  ///< before anything else
};

/// Slows down whoever guesses passwords: after each wrong try for an operator the next one is
/// not even looked at for a while, twice as long each time. The tries are counted in the selected
/// books, where every program meets them. Where these cannot be written, the process counts, and
/// refuses any more after a few.
class WrongTries {
  public:
    /// Seconds since 1970.
    using Clock = std::function<double()>;

    static constexpr double longestDelay = 60;
    static constexpr int mostUnwritten = 5;

    /// Without a clock the one of the books counts, which is the same for all workstations.
    explicit WrongTries(Clock clock = {}) : m_clock(std::move(clock)) {}

    /// Counts a try as wrong before it is looked at, so that nothing is won by ending the
    /// program in between, or by many at once. Refuses it while it comes too soon.
    std::optional<Refusal> begin(CNbCwDB& books, const TriedOperator& tried);
    /// The password was right after all: the try does not count.
    Status takeBack(CNbCwDB& books, const TriedOperator& tried);
    /// The operator is logged on: counting begins anew. Tells what there was since the last time.
    Status noteLogon(CNbCwDB& books, const TriedOperator& tried, LogonNote& note) const;

    /// How long the next try waits after so many wrong ones, in seconds.
    static double delayAfter(int wrong);

  private:
    struct Tries {
        int wrong = 0;
        double wrongAt = 0;
        double logonAt = 0;
        double now = 0;
        bool wantsNewPassword = false;

        double waitLeft() const;
    };

    Status read(CNbCwDB& books, const TriedOperator& tried, Tries& tries) const;
    Status count(CNbCwDB& books, const TriedOperator& tried, double& wait) const;
    std::optional<Refusal> beginUnwritten(const TriedOperator& tried);
    double processNow() const;

    Clock m_clock;
    std::map<std::pair<std::string, std::string>, Tries> m_unwritten;
};

}  // namespace chengheng
