#include "opening/storing/posting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "data/access/row_lease.h"
#include "data/access/unit_of_work.h"
#include "data/sql/characters.h"
#include "data/tables/balances.h"
#include "data/tables/schema.h"
#include "opening/storing/opening_sql.h"
#include "opening/storing/saving.h"
#include "opening/storing/zero_row_sweep.h"
#include "tests/support/engine_cases.h"
#include "tests/support/engine_tools.h"
#include "tests/support/opening_books.h"
#include "tests/support/small_books.h"

namespace {

using testing::HasSubstr;

using namespace chengheng;
using Texts = std::vector<std::string>;

using OpeningLayout::midYear;

/// "10: 1002 1 begin 5 ..." for twelve periods; the first period may differ.
Texts twelveRows(int firstId, const std::string& code, const std::string& figures,
                 const std::string& firstFigures = {}) {
    Texts rows;
    for (int period = 1; period <= 12; ++period) {
        const bool isFirst = period == 1 && !firstFigures.empty();
        rows.push_back(std::to_string(firstId + period - 1) + ": " + code + " " +
                       std::to_string(period) + " " + (isFirst ? firstFigures : figures));
    }
    return rows;
}

/// Books with the parent 1002 of 100201. The parent's rows are made first, with 9.
class Posting : public testing::TestWithParam<EngineCase> {
  protected:
    std::unique_ptr<OpeningTestBooks> make(OpeningLayout layout, int parentRows) {
        auto books = std::make_unique<OpeningTestBooks>(freshLocation(GetParam()), layout);
        books->addAccounts({"1002", "100201"});
        books->change("100201", "byExchId = 1, bAmount = 1");
        books->addRows("1002", parentRows, 9);
        return books;
    }
    /// Gives the end account figures behind the window's back, then saves.
    Texts parentAfterSave(OpeningTestBooks& books, const std::string& assignment) {
        books.addRows("100201", 12);
        books.books().run("UPDATE AccSum SET " + assignment +
                          formatSql(" WHERE lCodeId = %d", books.idOf("100201")));
        EXPECT_EQ(books.work().refresh(), Outcome::done);
        books.work().beginEdit();
        EXPECT_EQ(books.work().save(), Outcome::done);
        return books.rowsOf("1002");
    }
};

TEST_P(Posting, UpdatesTwelveRowsInPlaceAndKeepsTheirIds) {
    auto books = make(OpeningLayout::simple, 12);
    EXPECT_EQ(parentAfterSave(*books, "mBegin = 5, mFgnBegin = 2, dAmtBegin = 3"),
              twelveRows(1, "1002", "begin 5 quantity 3 foreign 2"));
}

TEST_P(Posting, RebuildsElevenAndThirteenRowsWithFreshIds) {
    for (const int rows : {11, 13}) {
        auto books = make(OpeningLayout::simple, rows);
        EXPECT_EQ(parentAfterSave(*books, "mBegin = 5"),
                  twelveRows(rows + 12 + 1, "1002", "begin 5"))
            << rows;
        EXPECT_EQ(books->database().AccSum_GetLastId(), rows + 24);
    }
}

TEST_P(Posting, InsertsTwelveRowsWhereThereAreNone) {
    auto books = make(OpeningLayout::simple, 0);
    EXPECT_EQ(parentAfterSave(*books, "mBegin = 5, mFgnBegin = 2, dAmtBegin = 3"),
              twelveRows(13, "1002", "begin 5 quantity 3 foreign 2"));
}

TEST_P(Posting, GivesAParentWithoutMoneyNoRows) {
    auto books = make(OpeningLayout::simple, 0);
    EXPECT_EQ(parentAfterSave(*books, "mFgnBegin = 2, dAmtBegin = 3"), Texts{});
    books.reset();
    books = make(OpeningLayout::simple, 11);
    EXPECT_EQ(parentAfterSave(*books, "mFgnBegin = 2"), Texts{});
}

TEST_P(Posting, KeepsTwelveRowsOfASumThatBecameZeroUntilTheNextSweep) {
    auto books = make(OpeningLayout::simple, 12);
    const Texts zeros = parentAfterSave(*books, "mBegin = 0");
    ASSERT_EQ(zeros.size(), 12u);
    EXPECT_EQ(zeros.front(), "1: 1002 1");
    EXPECT_EQ(books->work().refresh(), Outcome::done);
    EXPECT_EQ(books->rowsOf("1002"), Texts{});
}

TEST_P(Posting, PutsYearStartAndMovementsIntoPeriodOneOfBooksThatBeginMidYear) {
    auto books = make(midYear, 12);
    books->addRows("100201", 12);
    const std::string of = formatSql(" WHERE lCodeId = %d", books->idOf("100201"));
    books->books().run("UPDATE AccSum SET mBegin = 70" + of +
                       "\nUPDATE AccSum SET mBegin = 100, mDebet = 10, mCredit = 40, "
                       "mFgnBegin = 5" +
                       of + " AND byPeroid = 1");
    books->work().refresh();
    books->work().beginEdit();
    EXPECT_EQ(books->work().save(), Outcome::done);
    EXPECT_EQ(books->rowsOf("1002"),
              twelveRows(1, "1002", "begin 70", "begin 100 debit 10 credit 40"));
}

TEST_P(Posting, RebuildsRowsOfBooksThatBeginMidYear) {
    for (const int rows : {0, 11, 13}) {
        auto books = make(midYear, rows);
        EXPECT_EQ(parentAfterSave(*books, "mBegin = 5, mDebet = 0"),
                  twelveRows(rows + 13, "1002", "begin 5"))
            << rows;
    }
}

TEST_P(Posting, InsertsForMovementsThatCancelOutInBooksThatBeginMidYear) {
    auto books = make(midYear, 0);
    books->addRows("100201", 12);
    const std::string of = formatSql(" WHERE lCodeId = %d", books->idOf("100201"));
    books->books().run("UPDATE AccSum SET mDebet = 10, mCredit = 10" + of + " AND byPeroid = 1");
    books->work().refresh();
    books->work().beginEdit();
    EXPECT_EQ(books->work().save(), Outcome::done);
    EXPECT_EQ(books->rowsOf("1002").front(), "13: 1002 1 debit 10 credit 10");
    EXPECT_EQ(books->rowsOf("1002").back(), "24: 1002 12");
}

TEST_P(Posting, RebuildsTheRowsOfATypedAccountThatAreNotTwelve) {
    for (const int rows : {0, 11, 12, 13}) {
        auto books = make(OpeningLayout::simple, 0);
        books->addRows("100201", rows, 3);
        books->work().refresh();
        EXPECT_TRUE(books->type("100201", "5"));
        EXPECT_EQ(books->rowsOf("100201"),
                  twelveRows(rows == 12 ? 1 : rows + 1, "100201", "begin 5"))
            << rows;
        EXPECT_EQ(books->rowsOf("1002").size(), 12u);
        EXPECT_EQ(books->whatASaveWouldChange(), Texts{});
    }
}

CHENGHENG_ON_ALL_ENGINES(Posting);

class Sweep : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override { m_books.addAccounts({"1001", "1002", "1122"}); }
    void addAuxiliary(const std::string& person, const std::string& itemClass, double amount) {
        m_books.books().run(
            formatSql("INSERT INTO AssAcc VALUES(%d,1,3,4,5,%s,6,'%s',%lf,0,0,0,0,0,0,0,0)",
                      ++m_lastId, SqlFragment{person}, itemClass, amount));
    }
    std::vector<int> auxiliaryIds() {
        std::vector<int> ids;
        for (const _AssAccInfo& row : readRows<_AssAccInfo>(m_books.database(), "ORDER BY lId"))
            ids.push_back(row.lId);
        return ids;
    }
    void sweep() { ASSERT_TRUE(sweepZeroRows(m_books.database())); }

    OpeningTestBooks m_books{freshLocation(GetParam())};
    int m_lastId = 0;
};

TEST_P(Sweep, RemovesAccountsWithNothingInAnyRow) {
    m_books.addRows("1001", 12);
    m_books.addRows("1002", 12);
    m_books.addRows("1122", 12, 5);
    m_books.books().run("UPDATE AccSum SET mFgnCredit = -0.01 WHERE lId = 24");
    sweep();
    EXPECT_EQ(m_books.rowsOf("1001"), Texts{});
    EXPECT_EQ(m_books.rowsOf("1002").size(), 12u);
    EXPECT_EQ(m_books.rowsOf("1122").size(), 12u);
}

TEST_P(Sweep, TellsWhatFailsAndFailsAtNoCallWithoutASign) {
    addAuxiliary("7", "01", 0);
    for (int call = 1;; ++call) {
        m_books.addRows("1001", 12);
        m_books.books().engine().failCall(call, Failure::full);
        const Status status = sweepZeroRows(m_books.database());
        const bool hasFailed = m_books.books().engine().hasFailed();
        m_books.books().engine().failCall(0);
        if (!hasFailed) {
            EXPECT_TRUE(status);
            EXPECT_GT(call, 3);
            break;
        }
        EXPECT_EQ(status.failure, Failure::full) << call;
        m_books.books().run("DELETE FROM AccSum");
    }
    EXPECT_EQ(m_books.rowsOf("1001"), Texts{});
    EXPECT_TRUE(auxiliaryIds().empty());
}

TEST_P(Sweep, KeepsAnAccountForAnyOneOfItsFigures) {
    for (const char* figure : {"mBegin", "mDebet", "mCredit", "dAmtBegin", "dAmtDebet",
                               "dAmtCredit", "mFgnBegin", "mFgnDebet", "mFgnCredit"}) {
        m_books.books().run("DELETE FROM AccSum");
        m_books.addRows("1001", 12);
        m_books.addRows("1002", 12);
        m_books.books().run(
            std::string("UPDATE AccSum SET ") + figure +
            formatSql(" = -0.01 WHERE lCodeId = %d AND byPeroid = 12", m_books.idOf("1001")));
        sweep();
        EXPECT_EQ(m_books.rowsOf("1001").size(), 12u) << figure;
        EXPECT_EQ(m_books.rowsOf("1002"), Texts{}) << figure;
    }
}

TEST_P(Sweep, KeepsAuxiliarySumsForAnyOneOfTheirFigures) {
    for (const char* figure : {"mBegin", "mDebt", "mCredit", "dBegin", "dDebt", "dCredit",
                               "mFBegin", "mFDebt", "mFCredit"}) {
        m_books.books().run("DELETE FROM AssAcc");
        addAuxiliary("7", "01", 0);
        addAuxiliary("8", "01", 0);
        m_books.books().run(std::string("UPDATE AssAcc SET ") + figure +
                            " = -0.01 WHERE lPersonId = 8");
        sweep();
        EXPECT_EQ(auxiliaryIds(), std::vector<int>{m_lastId}) << figure;
    }
}

TEST_P(Sweep, RunsWithASave) {
    m_books.addRows("1001", 12);
    addAuxiliary("7", "01", 0);
    m_books.work().refresh();
    m_books.addRows("1002", 12);
    addAuxiliary("8", "01", 0);
    m_books.work().beginEdit();
    EXPECT_EQ(m_books.work().save(), Outcome::done);
    EXPECT_EQ(m_books.rows(), Texts{});
    EXPECT_EQ(auxiliaryIds().size(), 0u);
}

TEST_P(Sweep, DeletesNothingWhereNothingIsEmpty) {
    sweep();
    m_books.addRows("1001", 12, 5);
    addAuxiliary("7", "01", 5);
    sweep();
    EXPECT_EQ(m_books.rows().size(), 12u);
    EXPECT_EQ(auxiliaryIds(), std::vector<int>{1});
}

TEST_P(Sweep, KeepsAnAccountWhoseOtherRowsCarrySomething) {
    m_books.addRows("1001", 12);
    m_books.books().run("UPDATE AccSum SET mDebet = 3, mCredit = 3 WHERE byPeroid = 1");
    addAuxiliary("7", "01", 0);
    addAuxiliary("7", "01", 5);
    sweep();
    EXPECT_EQ(m_books.rowsOf("1001").size(), 12u);
    EXPECT_EQ(auxiliaryIds(), (std::vector<int>{1, 2}));
}

TEST_P(Sweep, RemovesRowsOfWhateverPeriodsAndNumber) {
    m_books.addRows("1001", 12);
    m_books.addRows("1002", 3);
    m_books.books().run("DELETE FROM AccSum WHERE lCodeId = 1 AND byPeroid < 9");
    sweep();
    EXPECT_EQ(m_books.rows(), Texts{});
}

TEST_P(Sweep, FindsWhatIsEmptyByAnIndexOfRowsWithoutFigures) {
    for (int account = 1; account <= 40; ++account)
        m_books.books().run(
            formatSql("INSERT INTO AccSum VALUES(%d,%d,1,5,0,0,0,0,0,0,0,0)", account, account));
    for (int entry = 0; entry < 40; ++entry) addAuxiliary("7", "01", 5);
    const bool isServer = !m_books.books().engine().dialect().rowLock.empty();
    std::string plan;
    if (isServer) runScript(m_books.books().engine(), "SET enable_seqscan = off");
    for (const auto& row :
         readSql(m_books.books().engine(), (isServer ? "EXPLAIN " : "EXPLAIN QUERY PLAN ") +
                                               opening_sql::isAnythingToSweep()))
        for (const std::string& cell : row) plan += cell + '\n';
    std::ranges::transform(plan, plan.begin(), lowerOf);
    for (const char* index : {"accsum_lcodeid_where_mbegin", "assacc_lcodeid_where_mbegin"})
        EXPECT_THAT(plan, HasSubstr(index));
}

TEST(SweepIndexes, AreOfTheRowsThatAQueryForThemAsksFor) {
    EXPECT_EQ(findTable("AccSum")->indexes.back(),
              std::string("lCodeId WHERE ") + opening_sql::sumsWithoutFigures);
    EXPECT_EQ(findTable("AssAcc")->indexes.back(),
              std::string("lCodeId WHERE ") + opening_sql::auxiliaryWithoutFigures);
}

TEST_P(Sweep, RemovesAuxiliarySumsByCombinationOfDimensions) {
    addAuxiliary("7", "01", 0);
    addAuxiliary("8", "01", 0);
    addAuxiliary("8", "01", 5);
    addAuxiliary("NULL", "01", 0);
    addAuxiliary("NULL", "", 0);
    addAuxiliary("0", "O'B", 0);
    addAuxiliary("0", "", 1);
    sweep();
    EXPECT_EQ(auxiliaryIds(), (std::vector<int>{2, 3, 7}));
}

TEST_P(Sweep, RunsWithARefreshAndNotWhileBrowsing) {
    m_books.addRows("1001", 12);
    addAuxiliary("7", "01", 0);
    m_books.addVoucher();
    EXPECT_EQ(m_books.work().refresh(), Outcome::done);
    EXPECT_EQ(m_books.rows().size(), 12u);
    EXPECT_EQ(auxiliaryIds().size(), 1u);
    m_books.books().run("DELETE FROM RegMain WHERE lId > 0");
    EXPECT_EQ(m_books.work().refresh(), Outcome::done);
    EXPECT_EQ(m_books.rows(), Texts{});
    EXPECT_EQ(auxiliaryIds().size(), 0u);
}

CHENGHENG_ON_ALL_ENGINES(Sweep);

}  // namespace
