#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/access/row_lease.h"
#include "data/connection/database.h"
#include "data/tables/operators.h"
#include "operators/operator_service.h"
#include "session/rights/new_password_mark.h"
#include "tests/data/session_case.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/made_books.h"
#include "tests/support/older_books.h"
#include "tests/support/operator_books.h"
#include "tests/support/small_books.h"

namespace {

using namespace chengheng;

constexpr const char* wanted = "password|主管要求操作员“王芳”先更改口令,再开始工作。";

/// Books whose only operator 王芳 is to choose a new password; she has "secret".
class NewPasswords : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override { mark(true); }
    void mark(bool isWanted) {
        runScript(*openForTest(m_location, OpenMode::existing),
                  "INSERT INTO LogonTries (lId, bNewPassword) VALUES (1, " +
                      std::string(isWanted ? "1" : "0") +
                      ") ON CONFLICT (lId) DO UPDATE SET bNewPassword = excluded.bNewPassword");
    }
    std::string stored(const std::string& select) {
        return readCell(*openForTest(m_location, OpenMode::existing), select);
    }
    bool isMarked() { return stored("SELECT bNewPassword FROM LogonTries WHERE lId = 1") == "1"; }
    bool isPassword(const char* password) {
        return isPasswordOf(stored("SELECT sPassword FROM Users WHERE lId = 1"), password);
    }
    LogonRequest request(std::optional<std::string> newPassword = {}) const {
        LogonRequest request = requestFor(m_location);
        request.newPassword = std::move(newPassword);
        return request;
    }

    std::string m_location = makeBooks(freshLocation(GetParam()));
    Shell m_shell;
};

TEST_P(NewPasswords, AreWantedBeforeAnybodyIsLoggedOn) {
    const auto refusal = m_shell.session.logOn(request());
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->kind, RefusalKind::newPassword);
    EXPECT_EQ(m_shell.refusalOf(request()), wanted);
    EXPECT_FALSE(m_shell.session.isLoggedOn());
    EXPECT_EQ(stored("SELECT count(*) FROM LoginInfoTbl"), "0");
    EXPECT_EQ(stored("SELECT lWrong FROM LogonTries WHERE lId = 1"), "0") << "no wrong password";
    EXPECT_EQ(stored("SELECT count(*) FROM LogonTries WHERE dLogonAt <> 0"), "0") << "no log-on";
    EXPECT_TRUE(isMarked());
}

TEST_P(NewPasswords, AreNotWantedOfWhoGivesAWrongOne) {
    LogonRequest wrong = request("neu");
    wrong.password = "guess";
    EXPECT_EQ(m_shell.refusalOf(wrong), "password|操作员姓名或口令不正确");
    EXPECT_TRUE(isPassword("secret"));
}

TEST_P(NewPasswords, TakeThePlaceOfTheOldOneWithTheLogOn) {
    EXPECT_EQ(m_shell.refusalOf(request("neu")), "");
    EXPECT_TRUE(m_shell.session.isLoggedOn());
    EXPECT_TRUE(isPassword("neu"));
    EXPECT_FALSE(isMarked());
    EXPECT_FALSE(m_shell.database.lockService()->holds("Users", LockMode::exclusive));
    m_shell.session.logOff();
    LogonRequest next = request();
    EXPECT_EQ(m_shell.refusalOf(next), "password|操作员姓名或口令不正确");
    m_shell.now += 1;
    next.password = "neu";
    EXPECT_EQ(m_shell.refusalOf(next), "");
}

TEST_P(NewPasswords, AreNotTheOldOneAgain) {
    EXPECT_EQ(m_shell.refusalOf(request("secret")), "password|新口令不能与原口令相同!");
    EXPECT_TRUE(isMarked());
    EXPECT_FALSE(m_shell.session.isLoggedOn());
}

TEST_P(NewPasswords, AreWantedOnlyOnce) {
    mark(false);
    EXPECT_EQ(m_shell.refusalOf(request()), "");
}

TEST_P(NewPasswords, AreNotWrittenWhileTheOperatorsAreBeingChanged) {
    CNbCwDB other;
    NbCwDBInfo info;
    ASSERT_NE(other.DBOpen(info, m_location.c_str(), "other", 1), 0);
    ASSERT_NE(other.DBSelect("other"), 0);
    ASSERT_NE(other.SQLLock("Users UserAuth", 2, 0), 0);
    PatientWaiter impatient{std::chrono::milliseconds(0)};
    m_shell.database.setLockWaiter(&impatient);
    EXPECT_THAT(m_shell.refusalOf(request("neu")), testing::HasSubstr("占用"));
    EXPECT_TRUE(isPassword("secret"));
    EXPECT_TRUE(isMarked());
    EXPECT_FALSE(m_shell.session.isLoggedOn());
    m_shell.database.setLockWaiter(nullptr);
}

TEST_P(NewPasswords, AreWantedAsTheSupervisorSaysInTheDialog) {
    OperatorBooks books(freshLocation(GetParam()));
    books.insert("李明", {41});
    OperatorService service(books.messages, PasswordCost::least);
    OperatorRecord known = service.readAll()->at(1);
    ASSERT_EQ(service.modify({"李明", "anfang", "anfang", true}, known), Outcome::done);
    EXPECT_TRUE(known.wantsNewPassword);
    const auto isWanted = [&](int userId) {
        bool isMarked = false;
        EXPECT_TRUE(readNewPasswordMark(books.database, userId, isMarked).isDone());
        return isMarked;
    };
    EXPECT_TRUE(isWanted(2));
    EXPECT_FALSE(isWanted(1));
    OperatorRecord again = service.readAll()->at(1);
    ASSERT_TRUE(service.readMark(again));
    EXPECT_TRUE(again.wantsNewPassword);
    ASSERT_EQ(service.modify({"李小明", "", "", true}, again), Outcome::done);
    EXPECT_TRUE(isWanted(2)) << "as it was";
    const auto entries = [&books] {
        return readCell(books.database.selectedDatabase()->engine(),
                        "SELECT count(*) FROM OperationLog");
    };
    const std::string before = entries();
    ASSERT_EQ(service.modify({"李小明", "", "", false}, again), Outcome::done);
    EXPECT_FALSE(isWanted(2));
    EXPECT_EQ(entries(), std::to_string(std::stoi(before) + 1)) << "nothing else was changed";
    OperatorRecord added;
    ASSERT_EQ(service.add({"赵燕", "a", "a", true}, added), Outcome::done);
    EXPECT_TRUE(isWanted(3));
    ASSERT_EQ(service.add({"王芳", "", ""}, added), Outcome::done);
    EXPECT_FALSE(isWanted(4));
}

TEST_P(NewPasswords, AreWantedOfNobodyInBooksOfAnOlderLayout) {
    const std::string older = freshLocation(GetParam());
    fillOlderBooks(*openForTest(older), 1);
    CNbCwDB database;
    database.adopt(openForTest(older, OpenMode::existing), older.c_str(), "books", 1);
    ASSERT_NE(database.DBSelect("books"), 0);
    bool isWanted = true;
    EXPECT_TRUE(readNewPasswordMark(database, 1, isWanted).isDone());
    EXPECT_FALSE(isWanted);
}

CHENGHENG_ON_SHARED_ENGINES(NewPasswords);

}  // namespace
