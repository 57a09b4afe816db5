#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/messages/refusal.h"
#include "books/upgrading/people_at_work.h"
#include "data/engine/engine.h"

namespace chengheng {

/// What an upgrade of books would do.
struct UpgradePlan {
    int from = 0;  ///< number of their layout; that of this version when there is nothing to do
    std::string setName;
    std::string location;  ///< as it may be shown
    std::string backup;    ///< likewise
    std::vector<PersonAtWork> atWork;

    bool isNeeded() const;
    /// What will happen, for the operator who has to decide.
    std::string text() const;
    /// The same, with the question.
    std::string question() const;
};

/// Whether those who are listed on a server as logged on are waited for. In a file nobody needs
/// the list: the engine knows who has it open.
enum class LoggedOn { waitFor, passOver };

/// Takes books of an older layout to that of this version. Between its steps other programs may
/// do the same: whoever is first does the work, and the others find it done.
class BooksUpgrade {
  public:
    using Opener = std::function<Status(std::unique_ptr<Engine>& engine)>;
    using Runner = std::function<void(const std::function<void()>& work)>;

    explicit BooksUpgrade(const std::string& location);
    /// With another way to open the books.
    BooksUpgrade(std::string location, Opener opener);
    ~BooksUpgrade();
    BooksUpgrade(const BooksUpgrade&) = delete;
    BooksUpgrade& operator=(const BooksUpgrade&) = delete;

    /// Reads what there is to do and leaves nothing open.
    std::optional<Refusal> plan(UpgradePlan& plan) const;

    /// Keeps everybody else out of the books. Waits, as long as the waiter does, for those who
    /// are at work; has the books open only while it looks, so that two who wait are not in each
    /// other's way. A look may take some seconds: `run` carries it out.
    std::optional<Refusal> keepOthersOut(LockWaiter& waiter, LoggedOn loggedOn,
                                         const Runner& run = runHere);

    /// Makes a backup beside the books and proves it, then takes every step in one transaction.
    /// After a refusal the books are as they were. Lets others in again.
    std::optional<Refusal> carryOut();

    /// Where the backup lies, as it may be shown; empty when another program did the work.
    const std::string& backup() const { return m_backup; }

  private:
    static void runHere(const std::function<void()>& work) { work(); }

    Status keepOthersOutNow(LoggedOn loggedOn, std::vector<PersonAtWork>& people);
    Status openHeld(std::vector<PersonAtWork>& people);
    std::optional<Refusal> takeSteps();
    std::optional<Refusal> failed(const Status& status) const;
    std::optional<Refusal> inUse(const std::vector<PersonAtWork>& people) const;
    void letGo();

    std::string m_location;
    Opener m_open;
    std::unique_ptr<Engine> m_books;  ///< null, too, when there is nothing to do any more
    int m_from = 0;
    std::string m_backup;
};

}  // namespace chengheng
