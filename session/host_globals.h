#pragma once

#include <cstdint>
#include <string>

#include "base/values/date.h"
#include "data/access/host_database.h"

/// An operator as the host knows them. The order of the first four fields is fixed.
struct CDivideWInfo {
    std::int32_t lId = 0;
    std::int32_t lUserId = 0;
    std::int32_t lAuthId = 0;   ///< id of the operator's row in UserAuth
    std::int32_t lManager = 0;  ///< 1 = supervisor (主管)
    std::string sUserName = {};
};

/// A moment of the calendar and the clock.
struct SystemTime {
    chengheng::Date day;
    std::uint8_t hour = 0;
    std::uint8_t minute = 0;
    std::uint8_t second = 0;
};

// What the host tells its modules about the open set of books, beside g_pDB and
// g_lpszNbZwDBName. A HostSession publishes it; modules only read. Texts are never null: with no
// session they are empty.

extern const char* g_lpszNbZwSetName;          ///< name of the open set of books
extern std::int32_t g_lAccountId;              ///< id of the open set of books
extern const char* g_lpArgument;               ///< launch argument
extern const CDivideWInfo* g_lpLogonUserInfo;  ///< who logged on; null with no session
extern SystemTime g_tmLogonTime;               ///< when they did, as the operator stated it

namespace chengheng {

/// What the operator should know of the time before this log-on.
struct LogonHistory {
    std::string lastLogon;  ///< "2026-11-22 14:05"; empty: none is known
    int wrongTries = 0;     ///< wrong passwords since then
};

/// That of the session; an empty one with none.
const LogonHistory& logonHistory();

/// One operator at work on one set of books.
struct SessionFacts {
    CNbCwDB* database = nullptr;
    std::string databaseName = {};
    std::string setName = {};
    std::int32_t accountId = 0;
    std::string launchArgument = {};
    CDivideWInfo logonUser = {};
    SystemTime logonTime = {};
    LogonHistory history = {};
};

/// Owns what the globals point to and keeps them set while it lives. At most one lives at a
/// time; the database outlives it.
class HostSession {
  public:
    explicit HostSession(SessionFacts facts);
    ~HostSession();
    HostSession(const HostSession&) = delete;
    HostSession& operator=(const HostSession&) = delete;

    const SessionFacts& facts() const { return m_facts; }

    /// Publishes another name of the open books; nothing where no session lives.
    static void renameBooks(std::string name);
    /// The same of who is logged on.
    static void renameOperator(std::string name);
    /// Publishes whether who is logged on is a supervisor by now.
    static void setSupervisor(bool isSupervisor);

  private:
    SessionFacts m_facts;
};

}  // namespace chengheng
