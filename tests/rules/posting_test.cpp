#include "opening/storing/posting.h"

#include <gtest/gtest.h>

#include <array>

#include "data/tables/balances.h"
#include "opening/sheet/edit_journal.h"
#include "opening/storing/opening_sql.h"
#include "tests/support/opening_accounts.h"

using namespace chengheng;

namespace {

constexpr auto simple = OpeningLayout::simple;
using OpeningLayout::midYear;

/// Account 7 with figures in every place.
OpeningAccount fullAccount(bool isEnd) {
    OpeningAccount account = accountsOf({AccountDraft{"1405"}.foreign(1).countedIn("件")}).front();
    account.id = 7;
    account.isEnd = isEnd;
    account.balances = {Balance{10, 20, 30, 40}, Balance{1, 2, 3, 4}, Balance{5, 6, 7, 8}};
    return account;
}

StoredSums rowsOf(std::initializer_list<int> periods) {
    StoredSums stored;
    for (const int period : periods) stored.periods.push_back(static_cast<std::uint8_t>(period));
    return stored;
}

StoredSums rowCount(int count) {
    StoredSums stored;
    for (int row = 1; row <= count; ++row) stored.periods.push_back(static_cast<std::uint8_t>(row));
    return stored;
}

std::size_t countOf(std::string_view text, std::string_view word) {
    std::size_t count = 0;
    for (auto at = text.find(word); at != text.npos; at = text.find(word, at + 1)) ++count;
    return count;
}

_AccSumInfo sumRow(int period, double begin, double debit = 0, double credit = 0) {
    _AccSumInfo row;
    row.byPeroid = static_cast<std::uint8_t>(period);
    row.mBegin = begin;
    row.mDebet = debit;
    row.mCredit = credit;
    return row;
}

}  // namespace

TEST(PostingBatches, UpdateTwelveRowsAtOnceInTheSimpleLayout) {
    for (const bool isEnd : {false, true})
        EXPECT_EQ(postingBatch(fullAccount(isEnd), rowCount(12), simple, 100),
                  "Update AccSum Set mBegin = 40.000000, mFgnBegin = 4.000000, "
                  "dAmtBegin = 8.000000 Where lCodeId = 7\n");
}

TEST(PostingBatches, InsertTwelveRowsWithTheNextIdsInTheSimpleLayout) {
    const std::string batch = postingBatch(fullAccount(false), {}, simple, 100);
    std::string expected;
    for (int period = 1; period <= 12; ++period)
        expected += "INSERT AccSum Values( " + std::to_string(100 + period) + ", 7, " +
                    std::to_string(period) +
                    ", 40.000000, 0.00, 0.00, 8.000000, 0.00, 0.00, 4.000000, 0.00, 0.00 )\n";
    expected += "Update ABIdTable Set lLastId = 112 Where sTable = 'AccSum'";
    EXPECT_EQ(batch, expected);
}

TEST(PostingBatches, DeleteFirstWhatIsNotTwelveRows) {
    for (const int count : {1, 11, 13}) {
        const std::string batch = postingBatch(fullAccount(false), rowCount(count), simple, 0);
        EXPECT_TRUE(batch.starts_with("Delete AccSum Where lCodeId = 7\nINSERT")) << count;
        EXPECT_EQ(countOf(batch, "INSERT"), 12u) << count;
    }
}

TEST(PostingBatches, GiveAParentWithoutMoneyNoRowsWhateverElseItHas) {
    OpeningAccount account = fullAccount(false);
    account.balance(Measure::money).opening = 0;
    EXPECT_EQ(postingBatch(account, {}, simple, 0), "");
    EXPECT_EQ(postingBatch(account, rowCount(11), simple, 0), "Delete AccSum Where lCodeId = 7\n");
    account.balance(Measure::money) = {};
    EXPECT_EQ(postingBatch(account, {}, midYear, 0), "");
}

TEST(PostingBatches, KeepWhatWasTypedIntoAnEndAccountWithoutMoney) {
    OpeningAccount account = fullAccount(true);
    account.balance(Measure::money).opening = 0;
    EXPECT_EQ(countOf(postingBatch(account, {}, simple, 0), "INSERT"), 12u);
}

TEST(PostingBatches, UpdateEachPeriodOfAParentInBooksThatBeginMidYear) {
    const StoredSums stored = rowsOf({1, 2, 3, 3, 4, 5, 6, 7, 8, 9, 10, 11});
    const std::string batch = postingBatch(fullAccount(false), stored, midYear, 0);
    EXPECT_TRUE(batch.starts_with(
        "Update AccSum Set mBegin = 10.000000, mDebet = 20.000000, mCredit = 30.000000 "
        "Where lCodeId = 7 AND byPeroid = 1\n"
        "Update AccSum Set mBegin = 40.000000 Where lCodeId = 7 AND byPeroid = 2\n"))
        << batch;
    EXPECT_EQ(countOf(batch, "Update"), 12u);
}

TEST(PostingBatches, InsertYearStartAndMovementsInPeriodOneAndTheOpeningInTheOthers) {
    const std::string batch = postingBatch(fullAccount(false), {}, midYear, 5);
    EXPECT_TRUE(batch.starts_with(
        "INSERT AccSum Values( 6, 7, 1, 10.000000, 20.000000, 30.000000, 0.00, 0.00, 0.00, 0.00, "
        "0.00, 0.00 )\n"
        "INSERT AccSum Values( 7, 7, 2, 40.000000, 0.00, 0.00, 0.00, 0.00, 0.00, 0.00, 0.00, 0.00 "
        ")\n"))
        << batch;
    EXPECT_TRUE(batch.ends_with("Update ABIdTable Set lLastId = 17 Where sTable = 'AccSum'"));
    EXPECT_EQ(countOf(batch, "mFgnBegin"), 0u);
}

TEST(PostingBatches, InsertForAnyOfTheFourFiguresInBooksThatBeginMidYear) {
    for (const BalanceFigure figure : balanceFigures) {
        OpeningAccount account = accountsOf({{"1002"}}).front();
        account.isEnd = false;
        account.balance(Measure::money).*figure = 1;
        EXPECT_EQ(countOf(postingBatch(account, {}, midYear, 0), "INSERT"), 12u);
    }
}

TEST(PostingBatches, KeepCurrencyAndQuantityOfEndAccountsInBooksThatBeginMidYear) {
    const std::string batch = postingBatch(fullAccount(true), rowCount(12), midYear, 0);
    EXPECT_NE(batch.find("Update AccSum Set mFgnBegin = 1.000000, mFgnDebet = 2.000000, "
                         "mFgnCredit = 3.000000, dAmtBegin = 5.000000, dAmtDebet = 6.000000, "
                         "dAmtCredit = 7.000000 Where lCodeId = 7 AND byPeroid = 1\n"),
              std::string::npos);
    EXPECT_EQ(countOf(batch, "Update AccSum Set mFgnBegin = 4.000000, dAmtBegin = 8.000000 "), 11u);
}

TEST(StoredFigures, ComeFromPeriodOneInTheSimpleLayout) {
    Balances balances{};
    takeFigures(sumRow(1, 5, 6, 7), simple, true, balances);
    takeFigures(sumRow(2, 99), simple, true, balances);
    EXPECT_EQ(balances[0], (Balance{0, 0, 0, 5}));
}

TEST(StoredFigures, TakeTheOpeningFromPeriodTwoInBooksThatBeginMidYear) {
    Balances balances{};
    takeFigures(sumRow(1, 100, 30, 10), midYear, false, balances);
    EXPECT_EQ(balances[0], (Balance{100, 30, 10, 80}));
    takeFigures(sumRow(2, 81), midYear, false, balances);
    takeFigures(sumRow(3, 99), midYear, false, balances);
    EXPECT_EQ(balances[0], (Balance{100, 30, 10, 81}));
}

TEST(EditJournals, UndoAndRedoInTurn) {
    EditJournal journal;
    EXPECT_EQ(journal.toUndo(), nullptr);
    journal.add({{1, Measure::money, &Balance::opening, 0, 5}});
    journal.add({{2, Measure::money, &Balance::opening, 0, 6}});
    EXPECT_EQ(journal.toUndo()->front().accountId, 2);
    journal.undone();
    EXPECT_EQ(journal.toUndo()->front().accountId, 1);
    EXPECT_EQ(journal.toRedo()->front().accountId, 2);
    journal.redone();
    EXPECT_EQ(journal.toRedo(), nullptr);
}

TEST(EditJournals, ForgetWhatWasUndoneWithANewStep) {
    EditJournal journal;
    journal.add({{1}});
    journal.add({{2}});
    journal.undone();
    journal.add({{3}});
    EXPECT_EQ(journal.toRedo(), nullptr);
    EXPECT_EQ(journal.toUndo()->front().accountId, 3);
    journal.add({});
    EXPECT_EQ(journal.toUndo()->front().accountId, 3);
}

TEST(EditSteps, AreTakenBackFromTheLastChangeOn) {
    const EditStep step{{1, Measure::money, &Balance::debit, 1, 2},
                        {1, Measure::money, &Balance::opening, 3, 4}};
    const EditStep expected{{1, Measure::money, &Balance::opening, 4, 3},
                            {1, Measure::money, &Balance::debit, 2, 1}};
    EXPECT_EQ(reversed(step), expected);
}

TEST(OpeningConditions, AreThoseOfTheBooks) {
    EXPECT_STREQ(opening_sql::accountsInOrder, "lId > 0 ORDER BY sCode");
    EXPECT_STREQ(opening_sql::classesInOrder, "lId > 0 ORDER BY lNum");
    EXPECT_STREQ(opening_sql::firstPeriod, "byPeroid = 1 AND mBegin is not NULL ORDER BY lCodeId");
    EXPECT_STREQ(opening_sql::vouchers, "byPeroid>0");
    EXPECT_EQ(opening_sql::sumsOf(7), "lCodeId = 7");
    EXPECT_EQ(opening_sql::sumsOfInOrder(7), "lCodeId = 7 ORDER BY byPeroid");
}

TEST(Sweeps, AskForTheSizesOfAllFigures) {
    EXPECT_STREQ(opening_sql::sumSizes,
                 "SELECT Sum( abs(mBegin)+abs(mDebet)+abs(mCredit)+abs(dAmtBegin)+abs(dAmtDebet)"
                 "+abs(dAmtCredit) + abs(mFgnBegin)+abs(mFgnDebet)+abs(mFgnCredit)), lCodeId "
                 "FROM AccSum GROUP BY lCodeId");
    EXPECT_STREQ(opening_sql::auxiliarySizes,
                 "SELECT Sum( abs(mBegin)+abs(mDebt)+abs(mCredit)+abs(dBegin)+abs(dDebt)"
                 "+abs(dCredit) + abs(mFBegin)+abs(mFDebt)+abs(mFCredit)), lCodeId, lItemId, "
                 "lDeptId, lPersonId, lEnterId, sItemId FROM AssAcc GROUP BY lCodeId, lItemId, "
                 "lDeptId, lPersonId, lEnterId, sItemId");
    EXPECT_EQ(opening_sql::deleteSumsOfAccounts(std::array<std::string_view, 2>{"1", "22"}),
              "DELETE FROM AccSum WHERE lCodeId in ( 1,22 )");
}

TEST(Sweeps, NameAPersonThatIsNotKnownWithoutComparing) {
    std::string batch;
    opening_sql::deleteAuxiliary(batch, {"1", "2", "3", "4", "5", ""});
    opening_sql::deleteAuxiliary(batch, {"1", "0", "0", nullptr, "0", "O'B"});
    EXPECT_EQ(batch,
              "DELETE AssAcc WHERE lCodeId = 1 AND lItemId = 2 AND lDeptId = 3 AND lPersonId = 4 "
              "AND lEnterId = 5 AND sItemId = '' \r\n "
              "DELETE AssAcc WHERE lCodeId = 1 AND lItemId = 0 AND lDeptId = 0 AND lPersonId IS "
              "NULL AND lEnterId = 0 AND sItemId = 'O''B' \r\n ");
}
