#include "books/making/books_creation.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "books/checking/integrity_check.h"
#include "books/making/chart_templates.h"
#include "data/access/row_lease.h"
#include "data/tables/accounts.h"
#include "data/tables/books.h"
#include "data/tables/operators.h"
#include "data/tables/printing.h"
#include "report/output/print_templates.h"
#include "session/rights/passwords.h"
#include "session/rights_list.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/failing_disk.h"
#include "tests/support/failing_sync.h"
#include "tests/support/made_books.h"

namespace chengheng {
namespace {

namespace files = std::filesystem;

/// Books opened for reading their rows.
struct OpenedBooks {
    explicit OpenedBooks(const std::string& location) {
        NbCwDBInfo info;
        EXPECT_NE(database.DBOpen(info, location.c_str(), "made", 1), 0)
            << database.lastStatus().detail;
        EXPECT_NE(database.DBSelect("made"), 0);
    }
    template <class Record>
    std::vector<Record> rows(const char* order = nullptr) {
        return readRows<Record>(database, order);
    }
    CNbCwDB database;
};

std::string refusalText(const std::optional<Refusal>& refusal) {
    return refusal ? refusal->notice.text : std::string();
}

class BooksCreations : public testing::TestWithParam<EngineCase> {
  protected:
    std::string m_location = freshLocation(GetParam());
};

TEST_P(BooksCreations, KeepTheParametersOfTheBooks) {
    NewBooks facts = sampleBooks();
    facts.company = "O'Brien % _ \\ 公司";
    facts.startMonth = 7;
    facts.hasForeignCurrency = true;
    OpenedBooks books(makeBooks(m_location, facts));
    const auto parameters = books.rows<_zAccountMInfo>();
    ASSERT_EQ(parameters.size(), 1U);
    EXPECT_EQ(parameters[0], (_zAccountMInfo{.lId = 1,
                                             .sName = "示例帐套",
                                             .sCompany = "O'Brien % _ \\ 公司",
                                             .dtStart = {2026, 7, 1},
                                             .sCodeLen = "4222",
                                             .bFgn = 1,
                                             .lYear = 2026}));
}

TEST_P(BooksCreations, HoldNothingThatTheCheckFindsWrong) {
    for (const auto chart :
         {ChartTemplate::smallEnterprise, ChartTemplate::enterprise, ChartTemplate::empty}) {
        NewBooks facts = sampleBooks();
        facts.chart = chart;
        const auto engine =
            openForTest(makeBooks(freshLocation(GetParam()), facts), OpenMode::existing);
        std::vector<IntegrityFault> faults;
        ASSERT_TRUE(checkIntegrity(*engine, faults));
        for (const IntegrityFault& fault : faults) ADD_FAILURE() << fault.check << fault.text;
    }
}

TEST_P(BooksCreations, TakeClassesAndAccountsFromTheTemplate) {
    NewBooks facts = sampleBooks();
    facts.chart = ChartTemplate::enterprise;
    OpenedBooks books(makeBooks(m_location, facts));
    const auto classes = books.rows<_zCodeClassInfo>("lId > 0 ORDER BY lNum");
    ASSERT_EQ(classes.size(), 6U);
    EXPECT_EQ(classes[0], (_zCodeClassInfo{1, 1, "资产", 1}));
    EXPECT_EQ(classes[5], (_zCodeClassInfo{6, 6, "损益", 0}));
    const auto accounts = books.rows<_CodeInfo>("lId > 0 ORDER BY sCode");
    ASSERT_EQ(accounts.size(), 156U);
    const _CodeInfo& first = accounts.front();
    EXPECT_EQ(first.sCode, "1001");
    EXPECT_EQ(first.sName, "库存现金");
    EXPECT_EQ(first.sType, "资产");
    EXPECT_EQ(first.byGrade, 1);
    EXPECT_EQ(first.bEnd, 1);
    EXPECT_EQ(first.bDirect, 1);
    EXPECT_EQ(first.sHelp, "KCXJ");
    EXPECT_EQ(books.database.lastId("Code"), 156);
}

TEST_P(BooksCreations, LeaveTheEmptyChartWithoutAccounts) {
    NewBooks facts = sampleBooks();
    facts.chart = ChartTemplate::empty;
    facts.levelPattern = "322";
    OpenedBooks books(makeBooks(m_location, facts));
    EXPECT_TRUE(books.rows<_CodeInfo>().empty());
    EXPECT_EQ(books.rows<_zCodeClassInfo>().size(), 6U);
}

TEST_P(BooksCreations, MakeTheFirstOperatorASupervisorWithEveryRight) {
    OpenedBooks books(makeBooks(m_location));
    const auto users = books.rows<_UsersInfo>();
    ASSERT_EQ(users.size(), 1U);
    EXPECT_EQ(users[0].sUserName, "王芳");
    EXPECT_EQ(users[0].lUserId, users[0].lId);
    EXPECT_NE(users[0].bManager, 0);
    EXPECT_EQ(users[0].sPassword.find("secret"), std::string::npos);
    EXPECT_TRUE(isPasswordOf(users[0].sPassword, "secret"));
    const auto rights = books.rows<_UserAuthInfo>();
    ASSERT_EQ(rights.size(), 1U);
    EXPECT_EQ(rights[0].lUserId, users[0].lUserId);
    EXPECT_EQ(rights[0].sAuthId, std::string(255, 'Y'));
}

TEST_P(BooksCreations, ListTheFunctionsByTheirNumbers) {
    OpenedBooks books(makeBooks(m_location));
    const auto functions = books.rows<_zAuthInfo>("lId > 0 ORDER BY lId");
    ASSERT_EQ(functions.size(), static_cast<std::size_t>(functionCount));
    for (int number = 1; number <= functionCount; ++number) {
        const _zAuthInfo& row = functions[static_cast<std::size_t>(number - 1)];
        EXPECT_EQ(row.lId, number);
        EXPECT_EQ(row.sName, functionName(number));
    }
}

TEST_P(BooksCreations, BringThePrintTemplates) {
    OpenedBooks books(makeBooks(m_location));
    std::vector<std::int32_t> numbers;
    for (const auto& row : books.rows<_ZWPrintMainInfo>("lId > 0 ORDER BY lId"))
        numbers.push_back(row.lId);
    EXPECT_EQ(numbers, (std::vector<std::int32_t>{2, 3, 4, 5, 35, 36, 37, 38, 39, 40, 41, 42, 43,
                                                  44, 45, 46}));
    char** cells = nullptr;
    int columns = 0;
    int rows = 0;
    ASSERT_EQ(
        books.database.QRYGetData("select sColName, byWidth from ZWPrintSub where lTieId = 35",
                                  cells, columns, rows),
        0);
    ASSERT_EQ(rows, 3);
    EXPECT_STREQ(cells[0], "方式号");
    EXPECT_STREQ(cells[1], "10");
    books.database.QRYReleaseBuffer(cells, columns, rows);
}

TEST_P(BooksCreations, DoNotTouchBooksThatAreThere) {
    makeBooks(m_location);
    NewBooks other = sampleBooks();
    other.name = "另一帐套";
    other.location = m_location;
    CreatedBooks created;
    const auto refusal = BooksCreation(nullptr).create(other, created);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->kind, RefusalKind::alreadyThere) << refusal->notice.text;
    EXPECT_NE(refusal->notice.text.find(shownLocation(m_location)), std::string::npos);
    OpenedBooks books(m_location);
    EXPECT_EQ(books.rows<_zAccountMInfo>().at(0).sName, "示例帐套");
}

CHENGHENG_ON_SHARED_ENGINES(BooksCreations);

TEST(BooksCreation, PutsASetBesideTheOthersAndEntersItInTheList) {
    const BooksRegistry registry(freshFolder() + "/home");
    CreatedBooks created;
    EXPECT_EQ(refusalText(BooksCreation(&registry).create(sampleBooks(), created)), "");
    EXPECT_EQ(created.setId, 1);
    EXPECT_EQ(created.year.location, registry.folder() + "/001/2026/Nbzw.db");
    std::vector<BooksSet> sets;
    ASSERT_TRUE(registry.read(sets));
    EXPECT_EQ(sets, (std::vector<BooksSet>{
                        {1, "示例帐套", "示例贸易有限公司", {{2026, created.year.location}}}}));
}

TEST(BooksCreation, AddsAYearToASetOfTheSameName) {
    const BooksRegistry registry(freshFolder());
    CreatedBooks created;
    NewBooks facts = sampleBooks();
    ASSERT_FALSE(BooksCreation(&registry).create(facts, created));
    facts.year = 2027;
    ASSERT_FALSE(BooksCreation(&registry).create(facts, created));
    EXPECT_EQ(created.setId, 1);
    EXPECT_EQ(created.year.location, registry.folder() + "/001/2027/Nbzw.db");
    facts.name = "另一帐套";
    ASSERT_FALSE(BooksCreation(&registry).create(facts, created));
    EXPECT_EQ(created.setId, 2);
    EXPECT_EQ(OpenedBooks(created.year.location).rows<_zAccountMInfo>().at(0).lId, 2);
}

TEST(BooksCreation, RefusesAYearThatTheSetHas) {
    const BooksRegistry registry(freshFolder());
    CreatedBooks created;
    ASSERT_FALSE(BooksCreation(&registry).create(sampleBooks(), created));
    const auto refusal = BooksCreation(&registry).create(sampleBooks(), created);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->kind, RefusalKind::alreadyThere);
    EXPECT_EQ(refusal->notice.text,
              "帐套“示例帐套”的2026年度已经存在:\n" + registry.folder() + "/001/2026/Nbzw.db");
}

TEST(BooksCreation, PassesByAFolderThatALostListLeftBehind) {
    const BooksRegistry registry(freshFolder());
    files::create_directories(registry.folder() + "/001");
    CreatedBooks created;
    ASSERT_FALSE(BooksCreation(&registry).create(sampleBooks(), created));
    EXPECT_EQ(created.setId, 2);
}

TEST(BooksCreation, FileAndItsFoldersAreTheOwnersOnly) {
    const std::string home = freshFolder() + "/home";
    const BooksRegistry registry(home);
    CreatedBooks created;
    ASSERT_FALSE(BooksCreation(&registry).create(sampleBooks(), created));
    struct stat found {};
    ASSERT_EQ(stat(created.year.location.c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 0777, 0600U);
    ASSERT_EQ(stat((home + "/001").c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 0777, 0700U);
}

TEST(BooksCreation, DamagedListStopsItBeforeAnythingIsMade) {
    const BooksRegistry registry(freshFolder());
    std::ofstream(registry.path()) << "{";
    CreatedBooks created;
    const auto refusal = BooksCreation(&registry).create(sampleBooks(), created);
    ASSERT_TRUE(refusal);
    EXPECT_TRUE(refusal->notice.text.starts_with("帐套列表文件“" + registry.path() +
                                                 "”已损坏,没有改动它。"));
    EXPECT_FALSE(files::exists(registry.folder() + "/001"));
}

TEST(BooksCreation, ListThatCannotBeSavedTakesTheBooksWithIt) {
    const BooksRegistry registry(freshFolder());
    files::create_directories(registry.path() + ".new/in the way");
    CreatedBooks created;
    const auto refusal = BooksCreation(&registry).create(sampleBooks(), created);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->kind, RefusalKind::failed);
    EXPECT_FALSE(files::exists(registry.folder() + "/001"));
}

TEST(BooksCreation, ListThatTheDiskDoesNotConfirmKeepsTheBooksItNames) {
    const BooksRegistry registry(freshFolder());
    CreatedBooks created;
    const FailingFolderSync failing;
    EXPECT_EQ(refusalText(BooksCreation(&registry).create(sampleBooks(), created)), "");
    std::vector<BooksSet> sets;
    ASSERT_TRUE(registry.read(sets));
    ASSERT_EQ(sets.size(), 1U);
    EXPECT_TRUE(files::exists(sets.front().years.front().location));
}

TEST(BooksCreation, WithoutAListNeedsAPlace) {
    CreatedBooks created;
    EXPECT_EQ(refusalText(BooksCreation(nullptr).create(sampleBooks(), created)),
              "请指定帐套存放的路径或服务器地址");
}

TEST(BooksCreation, WrongFactsMakeNothing) {
    NewBooks facts = sampleBooks();
    facts.levelPattern = "4x";
    facts.location = freshFolder() + "/sub/Nbzw.db";
    CreatedBooks created;
    EXPECT_TRUE(BooksCreation(nullptr).create(facts, created));
    EXPECT_FALSE(files::exists(files::path(facts.location).parent_path()));
}

TEST(BooksCreation, FullDiskLeavesNeitherFileNorFolder) {
    FailingDisk disk;
    const std::string folder = freshFolder() + "/sub";
    NewBooks facts = sampleBooks();
    facts.location = folder + "/Nbzw.db";
    CreatedBooks created;
    int failures = 0;
    for (int remaining = 0;; remaining += 7) {
        disk.fail(FailingDisk::Fault::full, remaining);
        const auto refusal = BooksCreation(nullptr).create(facts, created);
        if (!refusal) break;
        ++failures;
        ASSERT_TRUE(refusal->notice.text.starts_with("磁盘空间不足,帐套文件“" + facts.location +
                                                     "”没有改动。\n请清理磁盘空间后重试。"))
            << refusal->notice.text;
        ASSERT_FALSE(files::exists(folder)) << remaining;
    }
    EXPECT_GT(failures, 3);
}

TEST(BooksCreation, FolderThatRefusesWritingIsNamed) {
    NewBooks facts = sampleBooks();
    facts.location = "/proc/no such place/Nbzw.db";
    CreatedBooks created;
    const auto refusal = BooksCreation(nullptr).create(facts, created);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->notice.focusField, "location");
    EXPECT_NE(refusal->notice.text.find(facts.location), std::string::npos);
}

TEST(PlaceOfBooks, FollowsFromWhatWasGiven) {
    EXPECT_EQ(placeOfBooks("", "/home", 3, 2026), "/home/003/2026/Nbzw.db");
    EXPECT_EQ(placeOfBooks("/a/b/../my.db", "/home", 3, 2026), "/a/my.db");
    EXPECT_EQ(placeOfBooks("/no such folder/", "/home", 3, 2026), "/no such folder/Nbzw.db");
    EXPECT_EQ(placeOfBooks("postgresql://li@db/books", "/home", 3, 2026),
              "postgresql://li@db/books?schema=zw003_2026");
    EXPECT_EQ(placeOfBooks("postgresql://li@db/books?sslmode=require", "/home", 3, 2026),
              "postgresql://li@db/books?sslmode=require&schema=zw003_2026");
    EXPECT_EQ(placeOfBooks("postgresql://li@db/books?schema=own", "/home", 3, 2026),
              "postgresql://li@db/books?schema=own");
}

}  // namespace
}  // namespace chengheng
