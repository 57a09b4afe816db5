#include <gtest/gtest.h>

#include <filesystem>

#include "data/connection/database.h"
#include "opening/storing/opening_reading.h"
#include "session/failure_texts.h"
#include "setting/hub_status.h"
#include "tests/data/session_case.h"
#include "tests/support/engine_cases.h"
#include "tests/support/environment.h"
#include "tests/support/made_books.h"
#include "tests/support/older_books.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/private_postgres.h"

namespace chengheng {
namespace {

namespace files = std::filesystem;

TEST(BooksSession, OpensAFileThatMustNotBeWrittenForBrowsing) {
    const std::string path = makeBooks(freshFolder() + "/Nbzw.db");
    const files::path folder = files::path(path).parent_path();
    files::permissions(folder.parent_path(), files::perms(0755));
    files::permissions(path, files::perms(0444));
    files::permissions(folder, files::perms(0555));
    const std::string content = bytesIn(path);
    const auto browsing = [&path] {
        Shell shell;
        if (!shell.refusalOf(requestFor(path)).empty()) return 1;
        if (!shell.database.selectedDatabase()->isReadOnly()) return 2;
        if (hubStatus().back() != HubStatusLine{"日期", "2026-05-31(只读)"}) return 3;
        bool isBrowsing = false;
        if (!readIsBrowsing(shell.database, isBrowsing) || !isBrowsing) return 4;
        if (shell.database.QRYExecuteSQL("DELETE FROM Code") != 0) return 5;
        const std::string told = failureText(shell.database.lastStatus(), path);
        return told.starts_with("没有权限读写帐套文件“" + path + "”。\n") ? 0 : 6;
    };
    EXPECT_EQ(asOrdinaryUser(browsing), 0);
    EXPECT_EQ(bytesIn(path), content);
}

TEST(BooksSession, ReadsOlderBooksThatCannotBeWrittenWithoutAnUpgrade) {
    const std::string path = freshFolder() + "/Nbzw.db";
    fillOlderBooks(*openForTest(path), 1);
    const files::path folder = files::path(path).parent_path();
    files::permissions(folder.parent_path(), files::perms(0755));
    files::permissions(path, files::perms(0444));
    files::permissions(folder, files::perms(0555));
    const auto reading = [&path] {
        Shell shell;
        return shell.refusalOf(requestFor(path)).empty() ? 0 : 1;
    };
    EXPECT_EQ(asOrdinaryUser(reading), 0);
}

TEST(BooksSession, OnAServerThatTakesNoWritesIsForBrowsing) {
    if (!hasTestServer()) GTEST_SKIP() << "no PostgreSQL server for tests";
    const std::string address = makeBooks(freshSchema());
    const EnvironmentSetting options("PGOPTIONS", "-c default_transaction_read_only=on");
    Shell shell;
    EXPECT_EQ(shell.refusalOf(requestFor(address)), "");
    EXPECT_TRUE(shell.database.selectedDatabase()->isReadOnly());
    EXPECT_TRUE(shell.database.SQLLock("Code", 2, 0));
    EXPECT_EQ(shell.database.QRYExecuteSQL("DELETE FROM Code"), 0);
    EXPECT_EQ(shell.database.lastStatus().failure, Failure::readOnly);
}

TEST(BooksSession, OnAServerThatTakesNoWritesNeedsNoPlaceForTheTries) {
    if (!hasTestServer()) GTEST_SKIP() << "no PostgreSQL server for tests";
    const std::string address = makeBooks(freshSchema());
    askServer(address, "DROP TABLE " + address.substr(address.find("schema=") + 7) + ".LogonTries");
    askServer(address, "UPDATE " + address.substr(address.find("schema=") + 7) +
                           ".BooksFormat SET lVersion = 1");
    const EnvironmentSetting options("PGOPTIONS", "-c default_transaction_read_only=on");
    Shell shell;
    EXPECT_EQ(shell.refusalOf(requestFor(address)), "");
}

}  // namespace
}  // namespace chengheng
