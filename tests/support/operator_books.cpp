#include "tests/support/operator_books.h"

#include <stdexcept>

#include "data/access/row_lease.h"
#include "data/sql/sql_format.h"
#include "data/tables/operators.h"
#include "session/rights/passwords.h"
#include "session/rights_list.h"
#include "tests/support/made_layout.h"

namespace chengheng {
namespace {

void mustHave(CNbCwDB& database, bool isDone) {
    if (!isDone) throw std::runtime_error(database.lastStatus().detail);
}

const std::string& emptyPassword() {
    static const std::string hash = hashPassword("", PasswordCost::least);
    return hash;
}

}  // namespace

OperatorBooks::OperatorBooks(const std::string& location, bool isNew) {
    if (isNew) {
        openNewBooks(database, location);
        insert("张三", {}, true);
        return;
    }
    NbCwDBInfo info;
    mustHave(database, database.DBOpen(info, location.c_str(), "books", 1) != 0);
    mustHave(database, database.DBSelect("books") != 0);
}

OperatorBooks::OperatorBooks(std::unique_ptr<Engine> engine) {
    database.adopt(std::move(engine), "books", "books");
    mustHave(database, database.DBSelect("books") != 0);
    if (readRows<_UsersInfo>(database, nullptr).empty()) insert("张三", {}, true);
}

void OperatorBooks::run(const std::string& batch) {
    mustHave(database, database.QRYExecuteSQL(batch) != 0);
}

void OperatorBooks::insert(const std::string& name, std::initializer_list<int> functions,
                           bool isSupervisor) {
    const int id = database.Users_GetLastId() + 1;
    run(formatSql(
        "INSERT Users VALUES( %d, %d, '%s', %d, '%s' )\r\n"
        "INSERT UserAuth VALUES( %d, %d, '%s' )\r\n"
        "UPDATE ABIdTable SET lLastId = %d WHERE sTable = 'Users' OR sTable = 'UserAuth'",
        id, id, name, isSupervisor ? 1 : 0, emptyPassword(), id, id, rightsText(functions), id));
}

std::vector<std::string> OperatorBooks::stored() {
    std::vector<std::string> texts;
    for (const _UsersInfo& user : readRows<_UsersInfo>(database, "lId > 0 ORDER BY lUserId")) {
        std::string text = std::to_string(user.lUserId) + ' ' + user.sUserName;
        if (user.bManager != 0) text += " 主管";
        const std::string rights = rightsOf(user.lUserId);
        for (int function = 1; function <= functionCount; ++function)
            if (grants(rights, function)) text += ' ' + std::to_string(function);
        texts.push_back(text);
    }
    return texts;
}

std::string OperatorBooks::rightsOf(int userId) {
    const auto rows = readRows<_UserAuthInfo>(database, formatSql("lUserId = %d", userId).c_str());
    return rows.empty() ? "" : rows.front().sAuthId;
}

std::string OperatorBooks::hashOf(int userId) {
    const auto rows = readRows<_UsersInfo>(database, formatSql("lUserId = %d", userId).c_str());
    return rows.empty() ? "" : rows.front().sPassword;
}

void OperatorBooks::logOn(const std::string& name, const std::string& station, int process,
                          int userId) {
    int id = 0;
    const _LoginInfo row{.lId = 0,
                         .lAccId = 3,
                         .sUser = name,
                         .sStation = station,
                         .lProcess = process,
                         .dtLogon = {2026, 1, 1},
                         .lUserId = userId};
    mustHave(database, database.add(row, id) == 0);
}

bool OperatorBooks::holdsLocks() {
    LockService& locks = *database.lockService();
    for (const char* name : {"Users", "UserAuth"})
        if (locks.holds(name, LockMode::shared) || locks.holds(name, LockMode::exclusive))
            return true;
    return false;
}

std::string rightsText(std::initializer_list<int> functions) {
    std::string text(rightsLength, 'N');
    for (const int function : functions) text[static_cast<std::size_t>(function - 1)] = 'Y';
    return text;
}

}  // namespace chengheng
