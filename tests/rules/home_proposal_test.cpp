#include <gtest/gtest.h>

#include "base/values/numbers.h"
#include "currency/opening_rate.h"
#include "opening/editing/typed_figures.h"
#include "tests/support/opening_accounts.h"

namespace home_proposals {
namespace {

using namespace chengheng;
using OpeningLayout::midYear;
using OpeningLayout::simple;

constexpr auto money = Measure::money;
constexpr auto foreign = Measure::foreign;
constexpr auto opening = &Balance::opening;
constexpr auto yearStart = &Balance::yearStart;
constexpr auto debit = &Balance::debit;

/// The rate that openings of books beginning on a day go by: "2026-03-01 7.1", "none".
std::string chosen(const std::vector<RateRow>& fixed, const std::vector<RateRow>& floating,
                   const Date& start) {
    RateKind kind{};
    const RateRow* const row = openingRateRow(fixed, floating, start, kind);
    if (row == nullptr) return "none";
    return rateTitle(kind, row->day) + " " + ftoa(row->rate);
}

RateRow rateOn(const Date& day, double rate) { return {1, day, day.month, rate, 9}; }

TEST(OpeningRates, AreTheFixedOneOfTheMonthBeforeAnyFloatingOne) {
    const Date start{2026, 3, 1};
    const std::vector<RateRow> fixed{rateOn(start, 7.1)};
    const std::vector<RateRow> floating{rateOn({2026, 2, 28}, 7.2)};
    EXPECT_EQ(chosen(fixed, floating, start), "2026.03 7.1");
    EXPECT_EQ(chosen({rateOn(start, 0)}, floating, start), "2026.02.28 7.2");
    EXPECT_EQ(chosen({}, floating, start), "2026.02.28 7.2");
}

TEST(OpeningRates, AreElseTheLastFloatingOneBeforeTheStart) {
    const Date start{2026, 3, 1};
    const std::vector<RateRow> floating{rateOn({2025, 12, 31}, 7), rateOn({2026, 2, 26}, 7.26),
                                        rateOn({2026, 2, 27}, 0),  rateOn({2026, 2, 28}, 0),
                                        rateOn(start, 7.31),       rateOn({2026, 3, 2}, 7.32)};
    EXPECT_EQ(chosen({}, floating, start), "2026.02.26 7.26");
    EXPECT_EQ(chosen({}, floating, {2026, 2, 26}), "2025.12.31 7");
}

TEST(OpeningRates, AreThatOfTheFirstDayWhereThereIsNoneBefore) {
    const std::vector<RateRow> floating{rateOn({2026, 1, 1}, 7.01), rateOn({2026, 1, 2}, 7.02)};
    EXPECT_EQ(chosen({}, floating, {2026, 1, 1}), "2026.01.01 7.01");
    EXPECT_EQ(chosen({}, {rateOn({2026, 1, 1}, 0), rateOn({2026, 1, 2}, 7.02)}, {2026, 1, 1}),
              "none");
    EXPECT_EQ(chosen({}, {}, {2026, 1, 1}), "none");
}

/// A sheet with an account in a currency, id 1, and one without, id 2.
OpeningSheet currencySheet(OpeningLayout layout = simple) {
    return sheetOf({AccountDraft{"100201"}.foreign(1), {"1001"}}, layout);
}

HomeRateOf at(double rate) {
    return [rate](int currency) {
        EXPECT_EQ(currency, 1);
        return HomeRate{RateMode::multiplied, rate};
    };
}

std::optional<HomeRate> noRate(int) { return std::nullopt; }

EditStep stepOf(const OpeningSheet& sheet, std::vector<TypedFigure> typed,
                const EditJournal& earlier = {}, const HomeRateOf& rateOf = at(7.1)) {
    return typedStep(sheet, typed, earlier, rateOf);
}

OpeningAccount& currencyAccount(OpeningSheet& sheet) {
    return sheet.accounts()[sheet.placeOfId(1).value()];
}

/// Puts a step into a sheet and a journal, as writing it does.
void carryOut(const EditStep& step, OpeningSheet& sheet, EditJournal& journal) {
    for (const CellChange& change : step)
        currencyAccount(sheet).balance(change.measure).*change.figure = change.after;
    journal.add(step);
}

TEST(HomeProposals, FollowATypedOpeningBalanceInForeignCurrency) {
    EXPECT_EQ(stepOf(currencySheet(), {{1, foreign, opening, 1000}}),
              (EditStep{{1, money, opening, 0, 7100, true}, {1, foreign, opening, 0, 1000}}));
    EXPECT_EQ(stepOf(currencySheet(), {{1, foreign, opening, -10}}).front().after, -71);
}

TEST(HomeProposals, DivideWhereTheRateIsQuotedTheOtherWay) {
    const auto divided = [](int) { return HomeRate{RateMode::divided, 3}; };
    EXPECT_EQ(stepOf(currencySheet(), {{1, foreign, opening, 10}}, {}, divided).front().after,
              3.33);
}

TEST(HomeProposals, NeedSomethingToAskForRates) {
    EXPECT_EQ(stepOf(currencySheet(), {{1, foreign, opening, 1000}}, {}, {}),
              (EditStep{{1, foreign, opening, 0, 1000}}));
    EXPECT_EQ(stepOf(currencySheet(), {{1, foreign, opening, 1000}}, {}, noRate),
              (EditStep{{1, foreign, opening, 0, 1000}}));
}

TEST(HomeProposals, LeaveAFigureThatWasThereBefore) {
    OpeningSheet sheet = currencySheet();
    currencyAccount(sheet).balance(money).opening = 5;
    EXPECT_EQ(stepOf(sheet, {{1, foreign, opening, 1000}}),
              (EditStep{{1, foreign, opening, 0, 1000}}));
}

TEST(HomeProposals, LeaveAFigureThatWasTypedEvenZero) {
    OpeningSheet sheet = currencySheet();
    EditJournal journal;
    carryOut({{1, money, opening, 5, 0}}, sheet, journal);
    EXPECT_EQ(stepOf(sheet, {{1, foreign, opening, 1000}}, journal),
              (EditStep{{1, foreign, opening, 0, 1000}}));
    EXPECT_EQ(stepOf(currencySheet(), {{1, foreign, opening, 10}, {1, money, opening, 3}}),
              (EditStep{{1, money, opening, 0, 3}, {1, foreign, opening, 0, 10}}));
}

TEST(HomeProposals, FollowAgainUntilTheyAreTypedOver) {
    OpeningSheet sheet = currencySheet();
    EditJournal journal;
    carryOut(stepOf(sheet, {{1, foreign, opening, 1000}}), sheet, journal);
    EXPECT_EQ(
        stepOf(sheet, {{1, foreign, opening, 2000}}, journal),
        (EditStep{{1, money, opening, 7100, 14200, true}, {1, foreign, opening, 1000, 2000}}));
    carryOut({{1, money, opening, 7100, 7123}}, sheet, journal);
    EXPECT_EQ(stepOf(sheet, {{1, foreign, opening, 2000}}, journal),
              (EditStep{{1, foreign, opening, 1000, 2000}}));
    journal.undone();
    currencyAccount(sheet).balance(money).opening = 7100;
    EXPECT_EQ(stepOf(sheet, {{1, foreign, opening, 2000}}, journal).front().after, 14200)
        << "the typing over was undone";
}

TEST(HomeProposals, GoWithTheForeignCurrencyTheyCameFrom) {
    OpeningSheet sheet = currencySheet();
    EditJournal journal;
    carryOut(stepOf(sheet, {{1, foreign, opening, 1000}}), sheet, journal);
    EXPECT_EQ(stepOf(sheet, {{1, foreign, opening, 0}}, journal, noRate),
              (EditStep{{1, money, opening, 7100, 0, true}, {1, foreign, opening, 1000, 0}}));
}

TEST(HomeProposals, AreLeftOutWhereTheBooksCouldNotHoldThem) {
    EXPECT_EQ(stepOf(currencySheet(), {{1, foreign, opening, 9e12}}),
              (EditStep{{1, foreign, opening, 0, 9e12}}));
}

TEST(HomeProposals, AreNotMadeForMoneyTypedOrAccountsThatTakeNoFigures) {
    EXPECT_EQ(stepOf(currencySheet(), {{1, money, opening, 5}}, {}, noRate),
              (EditStep{{1, money, opening, 0, 5}}));
    const OpeningSheet sheet = sheetOf(
        {AccountDraft{"1122"}.foreign(1).keptBy("B"), AccountDraft{"1002"}.foreign(1), {"100201"}});
    for (const int account : {1, 2}) {
        for (const CellChange& change : stepOf(sheet, {{account, foreign, opening, 10}}))
            EXPECT_NE(change.measure, money) << account;
    }
}

TEST(HomeProposals, LetTheYearStartFollowInBooksThatBeginMidYear) {
    OpeningSheet sheet = currencySheet(midYear);
    EditJournal journal;
    const EditStep step = stepOf(sheet, {{1, foreign, opening, 1000}});
    EXPECT_EQ(step, (EditStep{{1, money, yearStart, 0, 7100, true},
                              {1, money, opening, 0, 7100, true},
                              {1, foreign, yearStart, 0, 1000, true},
                              {1, foreign, opening, 0, 1000}}));
    carryOut(step, sheet, journal);
    carryOut({{1, money, debit, 0, 100}, {1, money, opening, 7100, 7200, true}}, sheet, journal);
    EXPECT_EQ(stepOf(sheet, {{1, foreign, opening, 2000}}, journal),
              (EditStep{{1, money, yearStart, 7100, 14100, true},
                        {1, money, opening, 7200, 14200, true},
                        {1, foreign, yearStart, 1000, 2000, true},
                        {1, foreign, opening, 1000, 2000}}));
}

TEST(HomeProposals, ContradictNoYearStartThatWasGiven) {
    OpeningSheet sheet = currencySheet(midYear);
    currencyAccount(sheet).balance(money) = {100, 0, 100, 0};
    for (const CellChange& change : stepOf(sheet, {{1, foreign, opening, 1000}}))
        EXPECT_NE(change.measure, money);
}

TEST(HomeProposals, AreMadeForTypedOpeningBalancesAlone) {
    for (const CellChange& change : stepOf(currencySheet(midYear), {{1, foreign, yearStart, 1000}}))
        EXPECT_NE(change.measure, money);
}

}  // namespace
}  // namespace home_proposals
