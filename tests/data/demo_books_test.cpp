#include "books/demo/demo_books.h"
#include "base/system/workstation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <set>

#include "books/checking/integrity_check.h"
#include "books/demo/demo_data.h"
#include "books/demo/demo_parts.h"
#include "data/access/CNbCwDB.h"
#include "data/access/row_lease.h"
#include "data/layout/layout.h"
#include "data/tables/accounts.h"
#include "data/tables/balances.h"
#include "data/tables/books.h"
#include "data/tables/currency.h"
#include "data/tables/operators.h"
#include "data/tables/settlement.h"
#include "data/tables/vouchers.h"
#include "data/transfer/content_digest.h"
#include "session/rights_list.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/failing_disk.h"
#include "tests/support/faulty_engine.h"
#include "vouchertype/restriction/voucher_restriction.h"

namespace {

using chengheng::DemoYear;
using chengheng::EngineCase;
using chengheng::freshLocation;
using chengheng::makeDemoBooks;
using chengheng::openForTest;
using chengheng::OpenMode;
using chengheng::PasswordCost;
using chengheng::readRows;
using testing::Contains;
using testing::IsEmpty;

std::string madeDemo(const EngineCase& kind, DemoYear year = DemoYear::present) {
    const std::string location = freshLocation(kind);
    const auto refusal = makeDemoBooks(location, {.year = year, .cost = PasswordCost::least});
    EXPECT_FALSE(refusal) << refusal->notice.text;
    return location;
}

/// The demo books on each engine.
class DemoBooks : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_location = madeDemo(GetParam());
        NbCwDBInfo info;
        ASSERT_NE(m_db.DBOpen(info, m_location.c_str(), "demo", 1), 0);
        ASSERT_NE(m_db.DBSelect("demo"), 0);
    }

    template <class Record>
    std::vector<Record> rows(const char* condition = nullptr) {
        return readRows<Record>(m_db, condition);
    }

    std::string m_location;
    CNbCwDB m_db;
};

TEST_P(DemoBooks, HaveNoFaults) {
    std::vector<chengheng::IntegrityFault> faults;
    const auto engine = openForTest(m_location, OpenMode::existing);
    ASSERT_TRUE(checkIntegrity(*engine, faults).isDone());
    for (const auto& fault : faults) ADD_FAILURE() << fault.check << ": " << fault.text;
}

TEST_P(DemoBooks, HaveAVoucherThatTheCheckNotes) {
    std::vector<chengheng::IntegrityFault> faults;
    std::vector<chengheng::IntegrityFault> notes;
    const auto engine = openForTest(m_location, OpenMode::existing);
    ASSERT_TRUE(checkIntegrity(*engine, faults, &notes).isDone());
    std::vector<std::string> texts;
    for (const auto& note : notes)
        if (note.check == "voucherRestrictions") texts.push_back(note.text);
    EXPECT_EQ(texts, std::vector<std::string>{
                         "凭证 转 第 2 号(2026-01-15,未记帐):借贷必无 1001 库存现金 或 1002 "
                         "银行存款:第 2 行贷方 1002010101 基本存款户"});
}

/// All but the log, which tells when and where they were made.
bool isMadeAlike(std::string_view table) { return !table.starts_with("OperationLog"); }

TEST_P(DemoBooks, BeginTheirLogWithAllTheirRows) {
    const auto engine = openForTest(m_location, OpenMode::existing);
    EXPECT_EQ(readSql(*engine, "SELECT lId, lUserId, sUser, sWords FROM OperationLog"),
              (std::vector<std::vector<std::string>>{
                  {"1", "0", chengheng::systemUserName(), "建立演示帐套"}}));
    std::vector<chengheng::TableDigest> digests;
    ASSERT_TRUE(digestContent(*engine, digests).isDone());
    std::int64_t rows = 0;
    for (const auto& digest : digests)
        if (isMadeAlike(digest.table) && digest.table != "ABIdTable" &&
            digest.table != "BooksFormat")
            rows += digest.rows;
    // Some rows are written more than once.
    EXPECT_GE(std::stoll(readCell(*engine, "SELECT sum(lRows) FROM OperationLogPart")), rows);
}

TEST_P(DemoBooks, TwoRunsGiveEqualBooksButForTheSalts) {
    const auto content = [](const std::string& location) {
        const auto engine = openForTest(location, OpenMode::existing);
        EXPECT_TRUE(runSql(*engine, "UPDATE Users SET sPassword = ''").isDone());
        std::vector<chengheng::TableDigest> digests;
        EXPECT_TRUE(
            digestContent(*engine, chengheng::booksFormatVersion, digests, isMadeAlike).isDone());
        return digests;
    };
    EXPECT_EQ(content(m_location), content(madeDemo(GetParam())));
}

TEST_P(DemoBooks, AreTheSameOnEveryEngine) {
    const auto engine = openForTest(m_location, OpenMode::existing);
    const auto other = openForTest(madeDemo(EngineCase{"sqliteFile"}), OpenMode::existing);
    for (const auto& each : {engine.get(), other.get()})
        ASSERT_TRUE(runSql(*each, "UPDATE Users SET sPassword = ''").isDone());
    std::vector<chengheng::TableDigest> here;
    std::vector<chengheng::TableDigest> there;
    constexpr int today = chengheng::booksFormatVersion;
    ASSERT_TRUE(digestContent(*engine, today, here, isMadeAlike).isDone());
    ASSERT_TRUE(digestContent(*other, today, there, isMadeAlike).isDone());
    EXPECT_EQ(here, there);
}

TEST_P(DemoBooks, OpeningBalancesBalance) {
    std::map<int, double> opening;
    for (const _AccSumInfo& sums : rows<_AccSumInfo>("byPeroid = 1"))
        opening[sums.lCodeId] = sums.mBegin;
    double debit = 0;
    double credit = 0;
    for (const _CodeInfo& account : rows<_CodeInfo>("bEnd = 1"))
        (account.bDirect != 0 ? debit : credit) += opening[account.lId];
    EXPECT_NEAR(debit, credit, 1e-6);
    EXPECT_GT(debit, 1e6);
}

TEST_P(DemoBooks, EveryParentHoldsTheSumOfItsEndAccounts) {
    std::map<int, double> opening;
    for (const _AccSumInfo& sums : rows<_AccSumInfo>("byPeroid = 7"))
        opening[sums.lCodeId] = sums.mBegin;
    const auto accounts = rows<_CodeInfo>();
    for (const _CodeInfo& parent : accounts) {
        if (parent.bEnd != 0) continue;
        double below = 0;
        for (const _CodeInfo& account : accounts)
            if (account.bEnd != 0 && account.sCode.starts_with(parent.sCode))
                below += opening[account.lId];
        EXPECT_NEAR(opening[parent.lId], below, 1e-6) << parent.sCode;
    }
}

TEST_P(DemoBooks, ChartReachesEveryLevelOfItsPattern) {
    std::set<int> grades;
    for (const _CodeInfo& account : rows<_CodeInfo>()) grades.insert(account.byGrade);
    EXPECT_EQ(grades, (std::set<int>{1, 2, 3, 4}));
}

TEST_P(DemoBooks, EveryAuxiliaryKindHasAnAccountWithOpeningEntries) {
    std::set<std::string> kinds;
    for (const _RegSubInfo& line : rows<_RegSubInfo>("bBegin <> 0"))
        for (const _CodeInfo& account : rows<_CodeInfo>())
            if (account.lId == line.lCodeId) kinds.insert(account.sAssBook);
    EXPECT_EQ(kinds, (std::set<std::string>{"A", "B", "BC", "BD", "C", "CD", "D"}));
}

TEST_P(DemoBooks, TellCustomersFromSuppliers) {
    const auto engine = openForTest(m_location, OpenMode::existing);
    EXPECT_EQ(readSql(*engine,
                      "SELECT sClsName, byKind, count(*) FROM Enter e JOIN EnterClass c ON "
                      "c.lId = e.lClassId GROUP BY sClsName, byKind ORDER BY byKind"),
              (std::vector<std::vector<std::string>>{{"客户", "1", "3"}, {"供应商", "2", "3"}}));
}

TEST_P(DemoBooks, EntriesNameTheDimensionsOfTheirAccountAndNoOthers) {
    for (const _RegSubInfo& line : rows<_RegSubInfo>()) {
        const auto accounts = rows<_CodeInfo>(("lId = " + std::to_string(line.lCodeId)).c_str());
        ASSERT_EQ(accounts.size(), 1U);
        const std::string& letters = accounts.front().sAssBook;
        const auto has = [&letters](char letter) {
            return letters.find(letter) != std::string::npos;
        };
        EXPECT_EQ(line.lPersonId.has_value(), has('A')) << line.sDigest;
        EXPECT_EQ(line.lEnterId != 0, has('B')) << line.sDigest;
        EXPECT_EQ(line.lDeptId != 0, has('C') || has('A')) << line.sDigest;
        EXPECT_EQ(line.lItemId != 0, has('D')) << line.sDigest;
    }
}

TEST_P(DemoBooks, HoldNoPostedVoucherSoThatOpeningBalancesCanBeEdited) {
    EXPECT_THAT(rows<_RegMainInfo>("byPeroid > 0"), IsEmpty());
}

TEST_P(DemoBooks, VouchersAreOfEachTypeAndBalanceAndOneReceiptIsMissing) {
    std::map<std::string, std::vector<int>> numbers;
    for (const _UnregMainInfo& voucher : rows<_UnregMainInfo>()) {
        numbers[voucher.sSign].push_back(voucher.lNumber);
        EXPECT_EQ(voucher.dtDate.month, voucher.byPeroid);
        double balance = 0;
        const std::string ofVoucher = "lTieId = " + std::to_string(voucher.lId);
        for (const _UnregSubInfo& line : rows<_UnregSubInfo>(ofVoucher.c_str()))
            balance += line.bDirect != 0 ? line.mMoney : -line.mMoney;
        EXPECT_NEAR(balance, 0, 1e-6) << voucher.sSign << voucher.lNumber;
    }
    EXPECT_EQ(numbers, (std::map<std::string, std::vector<int>>{
                           {"收", {1, 2, 4}}, {"付", {1, 2, 3, 4}}, {"转", {1, 2, 3}}}));
}

TEST_P(DemoBooks, OneTransferBreaksTheRestrictionOfItsType) {
    const auto accounts = rows<_CodeInfo>();
    std::vector<std::string> breaches;
    for (const _UnregMainInfo& voucher : rows<_UnregMainInfo>()) {
        std::vector<chengheng::VoucherLine> lines;
        const std::string ofVoucher = "lTieId = " + std::to_string(voucher.lId);
        for (const _UnregSubInfo& line : rows<_UnregSubInfo>(ofVoucher.c_str())) {
            const auto account = std::ranges::find(accounts, line.lCodeId, &_CodeInfo::lId);
            ASSERT_NE(account, accounts.end());
            EXPECT_NE(account->bEnd, 0) << account->sCode;
            lines.push_back({line.lLine, account->sCode, line.bDirect != 0, line.mMoney});
        }
        const auto type = rows<_SignInfo>(("sSign = '" + voucher.sSign + "'").c_str());
        const auto breach = restrictionBreach(type.at(0), lines, chengheng::CodeLevels("4222"));
        if (breach) breaches.push_back(voucher.sSign + std::to_string(voucher.lNumber));
    }
    EXPECT_EQ(breaches, std::vector<std::string>{"转2"});
}

TEST_P(DemoBooks, CashAndBankAreDesignatedWithTheAccountsBelow) {
    for (const _CodeInfo& account : rows<_CodeInfo>()) {
        EXPECT_EQ(account.bCash != 0, account.sCode.starts_with("1001")) << account.sCode;
        EXPECT_EQ(account.bBank != 0, account.sCode.starts_with("1002")) << account.sCode;
        const std::string journals = account.bBank != 0 ? "RE" : "R";
        if (account.bCash != 0 || account.bBank != 0) {
            EXPECT_EQ(account.sAssBook, journals) << account.sCode;
        }
    }
}

TEST_P(DemoBooks, ForeignAndQuantityAccountsHaveTheirBalances) {
    int foreign = 0;
    int quantity = 0;
    for (const _CodeInfo& account : rows<_CodeInfo>("bEnd = 1")) {
        const std::string condition = "byPeroid = 1 AND lCodeId = " + std::to_string(account.lId);
        for (const _AccSumInfo& sums : rows<_AccSumInfo>(condition.c_str())) {
            EXPECT_EQ(sums.mFgnBegin != 0, account.byExchId != 0) << account.sCode;
            EXPECT_EQ(sums.dAmtBegin != 0, account.bAmount != 0) << account.sCode;
            foreign += sums.mFgnBegin != 0;
            quantity += sums.dAmtBegin != 0;
        }
    }
    EXPECT_GE(foreign, 3);
    EXPECT_GE(quantity, 4);
}

TEST_P(DemoBooks, FloatingRatesStayNearTheMonthsRateButForTwoGapsAndASlip) {
    std::vector<std::string> missing;
    std::vector<std::string> slipped;
    for (const _CyrencyInfo& currency : rows<_CyrencyInfo>()) {
        std::map<int, double> fixed;
        const std::string condition = "byExchId = " + std::to_string(currency.lId);
        for (const _ExchgFixInfo& rate : rows<_ExchgFixInfo>(condition.c_str()))
            fixed[rate.byPeroid] = rate.dRate;
        for (const _ExchgFltInfo& rate : rows<_ExchgFltInfo>(condition.c_str())) {
            const std::string place = currency.sExchCode + ' ' + chengheng::isoText(rate.dtDate);
            const double apart = std::fabs(rate.dRate - fixed[rate.byPeroid]);
            if (rate.dRate == 0)
                missing.push_back(place);
            else if (apart > 0.0051)
                slipped.push_back(place);
        }
    }
    EXPECT_EQ(missing, (std::vector<std::string>{"USD 2026-03-14", "USD 2026-03-15",
                                                 "USD 2026-03-16", "USD 2026-08-30"}));
    EXPECT_EQ(slipped, std::vector<std::string>{"USD 2026-06-17"});
}

TEST_P(DemoBooks, OperatorsHaveTheDemoPasswordAndDifferentRights) {
    const auto users = rows<_UsersInfo>("lId > 0 ORDER BY lUserId");
    const auto rights = rows<_UserAuthInfo>("lId > 0 ORDER BY lUserId");
    ASSERT_EQ(users.size(), 4U);
    ASSERT_EQ(rights.size(), 4U);
    std::set<std::string> different;
    for (std::size_t at = 0; at < users.size(); ++at) {
        EXPECT_TRUE(chengheng::isPasswordOf(users[at].sPassword, chengheng::demo::password));
        EXPECT_EQ(users[at].lId, users[at].lUserId);
        EXPECT_EQ(users[at].bManager != 0, users[at].sUserName == chengheng::demo::supervisor);
        EXPECT_EQ(rights[at].sAuthId.size(), 255U);
        different.insert(rights[at].sAuthId);
    }
    EXPECT_EQ(different.size(), 4U);
    EXPECT_THAT(different, Contains(std::string(255, 'N')));
}

TEST_P(DemoBooks, BookkeeperMaySetUpAccountsAndTheCashierSettlement) {
    constexpr int setUpAccounts = 41;
    constexpr int settlement = 57;
    const auto rightsOf = [this](const std::string& name) {
        const auto user = rows<_UsersInfo>(("sUserName = '" + name + "'").c_str()).front();
        return rows<_UserAuthInfo>(("lUserId = " + std::to_string(user.lUserId)).c_str())
            .front()
            .sAuthId;
    };
    EXPECT_TRUE(chengheng::grants(rightsOf("李明"), setUpAccounts));
    EXPECT_FALSE(chengheng::grants(rightsOf("李明"), settlement));
    EXPECT_TRUE(chengheng::grants(rightsOf("王芳"), settlement));
    EXPECT_FALSE(chengheng::grants(rightsOf("王芳"), setUpAccounts));
}

TEST_P(DemoBooks, NextIdsFollowTheLastOnes) {
    EXPECT_EQ(m_db.RegMain_GetLastId(), m_db.UnregMain_GetLastId());
    EXPECT_EQ(m_db.RegSub_GetLastId(), m_db.UnregSub_GetLastId());
    EXPECT_EQ(m_db.AccSum_GetLastId(), static_cast<int>(rows<_AccSumInfo>().size()));
}

TEST_P(DemoBooks, WhereBooksAreAlreadyTheyAreLeftAlone) {
    const auto before = rows<_CodeInfo>();
    const auto refusal = makeDemoBooks(m_location, {.cost = PasswordCost::least});
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->kind, chengheng::RefusalKind::alreadyThere);
    EXPECT_EQ(rows<_CodeInfo>(), before);
}

TEST_P(DemoBooks, TheYearBeforeClosesWithWhatTheyOpenedWith) {
    const std::string before = madeDemo(GetParam(), DemoYear::finished);
    std::vector<chengheng::IntegrityFault> faults;
    ASSERT_TRUE(checkIntegrity(*openForTest(before, OpenMode::existing), faults).isDone());
    for (const auto& fault : faults) ADD_FAILURE() << fault.check << ": " << fault.text;
    const auto openings = rows<_AccSumInfo>("byPeroid = 1 ORDER BY lCodeId");
    NbCwDBInfo info;
    ASSERT_NE(m_db.DBOpen(info, before.c_str(), "before", 1), 0);
    ASSERT_NE(m_db.DBSelect("before"), 0);
    EXPECT_EQ(rows<_zAccountMInfo>().front().lYear, 2025);
    EXPECT_THAT(rows<_UnregMainInfo>(), IsEmpty());
    const auto closings = rows<_AccSumInfo>("byPeroid = 12 ORDER BY lCodeId");
    const auto turnovers = rows<_AccSumInfo>("byPeroid = 11 ORDER BY lCodeId");
    ASSERT_EQ(closings.size(), openings.size());
    for (std::size_t at = 0; at < closings.size(); ++at) {
        EXPECT_EQ(closings[at].lCodeId, openings[at].lCodeId);
        EXPECT_EQ(closings[at].mBegin + closings[at].mDebet - closings[at].mCredit,
                  openings[at].mBegin);
        EXPECT_EQ(turnovers[at].mDebet, 2 * openings[at].mBegin);
    }
}

CHENGHENG_ON_SHARED_ENGINES(DemoBooks);

TEST(DemoOperators, AreNotWrittenWhenTheirNextIdCannotBeRead) {
    auto made = openForTest(":memory:");
    ASSERT_TRUE(createLayout(*made));
    auto faulty = std::make_unique<chengheng::FaultyEngine>(std::move(made));
    chengheng::FaultyEngine& engine = *faulty;
    CNbCwDB database;
    database.adopt(std::move(faulty), "", "demo");
    ASSERT_NE(database.DBSelect("demo"), 0);
    chengheng::DemoBooks books(database, PasswordCost::least, chengheng::demo::year);
    engine.failCall(1);
    EXPECT_EQ(writeDemoOperators(books).failure, chengheng::Failure::full);
    EXPECT_THAT(readRows<_UsersInfo>(database, nullptr), IsEmpty());
}

TEST(DemoFile, DiskThatFillsUpOnTheWayLeavesNothingBehind) {
    const std::string folder = chengheng::freshFolder();
    const std::string path = folder + "/Nbzw.db";
    chengheng::FailingDisk disk;
    bool isMade = false;
    int failures = 0;
    for (int room = 0; !isMade; room += 29) {
        disk.fail(chengheng::FailingDisk::Fault::full, room);
        const auto refusal = makeDemoBooks(path, {.cost = PasswordCost::least});
        disk.repair();
        isMade = !refusal;
        EXPECT_EQ(std::filesystem::is_empty(folder), !isMade) << room;
        if (refusal) {
            ++failures;
            EXPECT_THAT(refusal->notice.text, testing::HasSubstr(path));
        }
    }
    EXPECT_GT(failures, 3);
}

}  // namespace
