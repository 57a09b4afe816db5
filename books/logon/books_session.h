#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/messages/refusal.h"
#include "base/values/date.h"
#include "books/logon/wrong_tries.h"
#include "data/access/CNbCwDB.h"
#include "data/lookups/cached_records.h"
#include "session/host_globals.h"

namespace chengheng {

/// What an operator gives to log on.
struct LogonRequest {
    std::string location = {};  ///< path or server address of the books
    std::string operatorName = {};
    std::string password = {};
    /// Takes the place of the password, once it was right.
    std::optional<std::string> newPassword = {};
    /// The day to work on; none: today, or the day of the accounting year nearest to it.
    std::optional<Date> date = {};
    std::string launchArgument = {};
};

/// The days an operator may log on with.
struct DayRange {
    Date first;
    Date last;

    bool holds(const Date& day) const { return first <= day && day <= last; }
    const Date& nearest(const Date& day) const {
        return day < first ? first : day > last ? last : day;
    }
};

/// The days of an accounting year.
DayRange daysOfYear(int year);

/// Refuses a path or address nobody gave; a folder stands for the file of books in it.
std::string locationOfBooks(const std::string& given);

/// One operator at work on one set of books: opens the database, checks who comes, tells the
/// other workstations and publishes the host's globals. Ends with itself or with logOff().
class BooksSession {
  public:
    /// Both outlive the session.
    BooksSession(CNbCwDB& database, WrongTries& tries);
    ~BooksSession();
    BooksSession(const BooksSession&) = delete;
    BooksSession& operator=(const BooksSession&) = delete;

    /// After a refusal whatever books were open before stay open with their operator. One of the
    /// kind newPassword asks for the same again with a new password.
    std::optional<Refusal> logOn(const LogonRequest& request);
    /// Takes the operator off the list of those logged on and closes the books.
    void logOff();

    bool isLoggedOn() const { return m_session != nullptr; }
    /// Path or address of the open books as it may be shown.
    const std::string& shownLocation() const { return m_shownLocation; }
    /// What the operator has to know of the open books before working with them; mostly empty.
    const std::string& warning() const { return m_warning; }

  private:
    struct Candidate;

    std::optional<Refusal> openBooks(Candidate& candidate);
    std::optional<Refusal> admit(const LogonRequest& request, Candidate& candidate);
    void noteRefused(const LogonRequest& request, const Candidate& candidate,
                     const Refusal& refusal);
    std::optional<Refusal> checkOperator(const LogonRequest& request, Candidate& candidate);
    std::optional<Refusal> enterLogon(const LogonRequest& request, Candidate& candidate);
    std::optional<Refusal> writeNewPassword(Candidate& candidate);
    static Status lookAtLog(Database& books, Candidate& candidate);
    void begin(const LogonRequest& request, Candidate& candidate);
    void addWarning(const std::string& text);

    CNbCwDB& m_database;
    WrongTries& m_tries;
    std::unique_ptr<HostSession> m_session;
    std::unique_ptr<BookLookups> m_lookups;
    std::string m_shownLocation;
    std::string m_warning;
    std::string m_nameGivenBack;  ///< what is still to be told of it
    std::int32_t m_logonId = 0;
    int m_opened = 0;  ///< numbers the names of the databases opened
};

}  // namespace chengheng
