#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include "base/values/status.h"
#include "data/access/record_operations.h"
#include "data/access/table_operations.h"
#include "data/access/unit_words.h"
#include "data/engine/lock_service.h"
#include "data/sql/sql_format.h"

namespace chengheng {
class Database;
struct LogAuthor;
class Engine;
}  // namespace chengheng

/// What DBOpen tells about the database it opened.
struct NbCwDBInfo {
    std::string location;  ///< path or address, without a password
    std::string name;      ///< the name for DBSelect and DBClose
    bool isServer = false;
    int layout = 0;  ///< the number of its layout; books of an older one are there to be read
};

/// The data-access object: record-wise operations per table, statements, table locks, over
/// any number of open databases of which one is selected.
///
/// Results: 0 means done or found for GetInfo, AddNew, Edit, Delete, QRYGetData, QRYEdit and
/// QRYDelete; non-zero means done for DBOpen, DBClose, DBSelect and QRYExecuteSQL. A list read
/// without rows, an Edit or Delete that met no row are not "found" and give non-zero. What
/// went wrong stands in lastStatus().
///
/// Ownership: rows live in the table's one buffer inside this object until that table's next
/// GetInfo or its ReleaseAllBuffer, whichever comes first.
class CNbCwDB final : public chengheng::RecordOperations {
  public:
    CNbCwDB();
    virtual ~CNbCwDB();
    CNbCwDB(const CNbCwDB&) = delete;
    CNbCwDB& operator=(const CNbCwDB&) = delete;

    /// Opens the set of books at a path or server address under a name. Flag 1 opens what is
    /// there; flag 0 first makes a new, empty set of books.
    int DBOpen(NbCwDBInfo& info, const char* location, const char* name, int flag);
    int DBClose(const char* name);
    /// Takes over a connection to a database that has its tables. Layout 0 is that of today.
    void adopt(std::unique_ptr<chengheng::Engine> engine, const char* location, const char* name,
               int layout = 0);
    /// Makes an open database the one all further operations work on, and sees to it that it
    /// answers: after a lost connection this is where it is made again.
    int DBSelect(const char* name);

    CHENGHENG_TABLE_READ(AccSum, _AccSumInfo)
    CHENGHENG_TABLE_WRITE(AccSum, _AccSumInfo)
    CHENGHENG_TABLE_LAST_ID(AccSum, _AccSumInfo)
    CHENGHENG_TABLE_READ(AssAcc, _AssAccInfo)
    CHENGHENG_TABLE_LAST_ID(AssAcc, _AssAccInfo)
    CHENGHENG_TABLE_READ(AutoMain, _AutoMainInfo)
    CHENGHENG_TABLE_READ(AutoSub, _AutoSubInfo)
    CHENGHENG_TABLE_READ(Code, _CodeInfo)
    CHENGHENG_TABLE_TEXT(Code, _CodeInfo)
    CHENGHENG_TABLE_WRITE(Code, _CodeInfo)
    CHENGHENG_TABLE_LAST_ID(Code, _CodeInfo)
    CHENGHENG_TABLE_READ(Cyrency, _CyrencyInfo)
    CHENGHENG_TABLE_WRITE(Cyrency, _CyrencyInfo)
    CHENGHENG_TABLE_LAST_ID(Cyrency, _CyrencyInfo)
    CHENGHENG_TABLE_READ(Dept, _DeptInfo)
    CHENGHENG_TABLE_TEXT(Dept, _DeptInfo)
    CHENGHENG_TABLE_READ(Enter, _EnterInfo)
    CHENGHENG_TABLE_READ(EnterClass, _EnterClassInfo)
    CHENGHENG_TABLE_TEXT(EnterClass, _EnterClassInfo)
    CHENGHENG_TABLE_READ(ExchgFix, _ExchgFixInfo)
    CHENGHENG_TABLE_WRITE(ExchgFix, _ExchgFixInfo)
    CHENGHENG_TABLE_LAST_ID(ExchgFix, _ExchgFixInfo)
    CHENGHENG_TABLE_READ(ExchgFlt, _ExchgFltInfo)
    CHENGHENG_TABLE_WRITE(ExchgFlt, _ExchgFltInfo)
    CHENGHENG_TABLE_LAST_ID(ExchgFlt, _ExchgFltInfo)
    CHENGHENG_TABLE_READ(FreqSub, _FreqSubInfo)
    CHENGHENG_TABLE_READ(Person, _PersonInfo)
    CHENGHENG_TABLE_TEXT(Person, _PersonInfo)
    CHENGHENG_TABLE_READ(ProjClass, _ProjClassInfo)
    CHENGHENG_TABLE_TEXT(ProjClass, _ProjClassInfo)
    CHENGHENG_TABLE_READ(ProjCodes, _ProjCodesInfo)
    CHENGHENG_TABLE_READ(RecpBank, _RecpBankInfo)
    CHENGHENG_TABLE_READ(RegMain, _RegMainInfo)
    CHENGHENG_TABLE_WRITE(RegMain, _RegMainInfo)
    CHENGHENG_TABLE_LAST_ID(RegMain, _RegMainInfo)
    CHENGHENG_TABLE_READ(RegSub, _RegSubInfo)
    CHENGHENG_TABLE_WRITE(RegSub, _RegSubInfo)
    CHENGHENG_TABLE_LAST_ID(RegSub, _RegSubInfo)
    CHENGHENG_TABLE_READ(Settle, _SettleInfo)
    CHENGHENG_TABLE_WRITE(Settle, _SettleInfo)
    CHENGHENG_TABLE_LAST_ID(Settle, _SettleInfo)
    CHENGHENG_TABLE_READ(Sign, _SignInfo)
    CHENGHENG_TABLE_WRITE(Sign, _SignInfo)
    CHENGHENG_TABLE_LAST_ID(Sign, _SignInfo)
    CHENGHENG_TABLE_READ(UnregMain, _UnregMainInfo)
    CHENGHENG_TABLE_LAST_ID(UnregMain, _UnregMainInfo)
    CHENGHENG_TABLE_READ(UnregSub, _UnregSubInfo)
    CHENGHENG_TABLE_LAST_ID(UnregSub, _UnregSubInfo)
    CHENGHENG_TABLE_READ(UserAuth, _UserAuthInfo)
    CHENGHENG_TABLE_LAST_ID(UserAuth, _UserAuthInfo)
    CHENGHENG_TABLE_READ(Users, _UsersInfo)
    CHENGHENG_TABLE_WRITE(Users, _UsersInfo)
    CHENGHENG_TABLE_LAST_ID(Users, _UsersInfo)
    CHENGHENG_TABLE_READ(ZWPrintMain, _ZWPrintMainInfo)
    CHENGHENG_TABLE_READ(_Digest, __DigestInfo)
    CHENGHENG_TABLE_READ(zAccountM, _zAccountMInfo)
    CHENGHENG_TABLE_READ(zAuth, _zAuthInfo)
    CHENGHENG_TABLE_TEXT(zAuth, _zAuthInfo)
    CHENGHENG_TABLE_READ(zCodeClass, _zCodeClassInfo)
    void ABIdTable_ReleaseAllBuffer() { release<_ABIdTableInfo>(); }

    /// Runs a batch of statements in the module's dialect, all or nothing.
    int QRYExecuteSQL(std::string_view statements);
    /// Runs one select. Cells are row-major text, NULL as null, owned by this object until
    /// QRYReleaseBuffer.
    int QRYGetData(std::string_view select, char**& cells, int& columnCount, int& rowCount);
    void QRYReleaseBuffer(char** cells, int columnCount, int rowCount);
    /// "UPDATE table SET assignment WHERE condition", the assignment formatted with values.
    template <class... Arguments>
    int QRYEdit(const char* table, const char* condition,
                const chengheng::SqlFormat<std::type_identity_t<Arguments>...>& assignment,
                const Arguments&... values) {
        return editRows(table, condition, chengheng::formatSql(assignment, values...));
    }
    int QRYDelete(const char* table, const char* condition);

    /// Advisory locks of a space-separated list of tables; mode 1 shared, 2 exclusive; `wait`
    /// 1 waits for other holders. Non-zero when granted.
    int SQLLock(const char* tables, int mode, int wait);
    void SQLUnLock(const char* tables, int mode);

    /// Why the last operation did not give what was asked.
    const chengheng::Status& lastStatus() const;
    /// Name of the selected database; empty when none is.
    const std::string& selectedName() const;
    /// Runs work of the program's own on the selected database; lastStatus() is what came of it.
    chengheng::Status onSelected(
        const std::function<chengheng::Status(chengheng::Database&)>& work);

    /// Nested units are savepoints; see UnitOfWork. A unit begins on the selected database and
    /// ends on the one named, whichever is selected by then. Of units within each other the log
    /// has the words of the outermost that gives some.
    chengheng::Status beginUnit();
    chengheng::Status commitUnit(const std::string& name, const chengheng::UnitWords& words = {});
    void rollbackUnit(const std::string& name);

    /// Lock service of the selected database, or of an open one; null when there is none.
    chengheng::LockService* lockService();
    chengheng::LockService* lockService(const std::string& name);
    /// Who is asked while locks are waited for, in this and every other open database; not
    /// owned. Null restores the default.
    void setLockWaiter(chengheng::LockWaiter* waiter);
    /// Told, in the midst of an operation, that it failed because the connection is lost or
    /// cannot be made again; must call nothing here. An empty one ends it.
    void setLossObserver(std::function<void(const chengheng::Status&)> observer);
    /// What other workstations are told about this one's locks.
    void setLockIdentity(const chengheng::LockIdentity& identity);
    /// In whose name all open databases, and those opened later, keep their operation log.
    void keepLog(const chengheng::LogAuthor& author);
    /// The selected database itself, for the host's tools; null when none is selected.
    chengheng::Database* selectedDatabase();

    /// The last id handed out for a row of ABIdTable, counters held back by an open unit of
    /// work included; 0 when it has none.
    int lastId(std::string_view idRow);

  private:
    int readRecords(const chengheng::RecordType& type, void*& pointers, int& count,
                    const char* condition) override;
    int readTexts(const chengheng::RecordType& type, TextRow*& rows, int& count,
                  const char* condition) override;
    void releaseRecords(const chengheng::RecordType& type) override;
    int addRecords(const chengheng::RecordType& type, std::span<const void* const> records,
                   int& firstId) override;
    int editRecord(const chengheng::RecordType& type, const void* record) override;
    int removeRecord(const chengheng::RecordType& type, int id) override;
    int readLastId(const chengheng::RecordType& type) override;
    chengheng::Status readIdBefore(const chengheng::RecordType& type, int count,
                                   int& last) override;

    int editRows(const char* table, const char* condition, const std::string& assignment);
    int changeRows(std::string statement, const char* condition);

    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

#undef CHENGHENG_TABLE_READ
#undef CHENGHENG_TABLE_TEXT
#undef CHENGHENG_TABLE_WRITE
#undef CHENGHENG_TABLE_LAST_ID
