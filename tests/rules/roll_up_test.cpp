#include "opening/sheet/roll_up.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "base/values/exact_sum.h"
#include "base/values/numbers.h"
#include "tests/support/opening_accounts.h"

using namespace chengheng;

namespace {

/// The definition taken literally: for each parent look at every account.
template <class Sum>
double nestedSum(const std::vector<OpeningAccount>& accounts, const std::string& code,
                 Measure measure, BalanceFigure figure) {
    Sum sum;
    for (const OpeningAccount& account : accounts)
        if (account.isEnd && account.keeps(measure) && account.code != code &&
            account.code.substr(0, code.size()) == code)
            sum.add(account.balance(measure).*figure);
    double value = sum.value();
    Round(value, decimalsOf(measure));
    return value;
}

void nestedRollUp(std::vector<OpeningAccount>& accounts, OpeningLayout layout) {
    for (OpeningAccount& parent : accounts) {
        if (parent.isEnd) continue;
        for (const Measure measure : measures)
            for (const BalanceFigure figure : figuresOf(layout))
                parent.balance(measure).*figure =
                    measure == Measure::quantity
                        ? nestedSum<QuantitySum>(accounts, parent.code, measure, figure)
                        : nestedSum<MoneySum>(accounts, parent.code, measure, figure);
    }
}

/// A chart of levels of one or two characters under a few top-level accounts, with some
/// figures, some of them with more decimals than the books keep.
std::vector<OpeningAccount> randomChart(std::mt19937& random, int count) {
    std::set<std::string> codes;
    for (int at = 0; at < count; ++at) {
        std::string code = std::to_string(1000 + random() % 9);
        while (random() % 3 != 0 && code.size() < 12) {
            codes.insert(code);
            code += std::to_string(10 + random() % 12);
        }
        codes.insert(code);
    }
    std::vector<AccountDraft> drafts;
    for (const std::string& code : codes) {
        AccountDraft draft{code};
        draft.currency = random() % 3 == 0 ? 1 : 0;
        draft.unit = random() % 4 == 0 ? "件" : "";
        drafts.push_back(draft);
    }
    std::vector<OpeningAccount> accounts = accountsOf(drafts);
    for (OpeningAccount& account : accounts)
        for (const Measure measure : measures)
            for (const BalanceFigure figure : balanceFigures) {
                if (random() % 3 == 0) continue;
                const double cents = static_cast<double>(random()) - 2e9;
                account.balance(measure).*figure = random() % 9 == 0 ? cents / 777 : cents / 100;
            }
    return accounts;
}

std::vector<Balances> figuresIn(const std::vector<OpeningAccount>& accounts) {
    std::vector<Balances> figures;
    for (const OpeningAccount& account : accounts) figures.push_back(account.balances);
    return figures;
}

double openingOf(const std::vector<OpeningAccount>& accounts, const std::string& code) {
    return std::ranges::find(accounts, code, &OpeningAccount::code)->opening();
}

}  // namespace

TEST(RollUp, AddsEndAccountsAtAnyDepthAndNoOthers) {
    auto accounts = accountsOf({{"1001", 7},
                                {"1002", 99},
                                {"100201", 99},
                                {"10020101", 10},
                                {"10020102", 20},
                                {"100202", 3},
                                {"1003", 5}});
    rollUp(accounts, OpeningLayout::simple);
    EXPECT_EQ(openingOf(accounts, "100201"), 30);
    EXPECT_EQ(openingOf(accounts, "1002"), 33);
    EXPECT_EQ(openingOf(accounts, "1001"), 7);
    EXPECT_EQ(openingOf(accounts, "1003"), 5);
}

TEST(RollUp, LeavesDirectionsAside) {
    auto accounts = accountsOf({{"1002"}, {"100201", 10}, creditOf("100202", 4, "资产")});
    rollUp(accounts, OpeningLayout::simple);
    EXPECT_EQ(openingOf(accounts, "1002"), 14);
}

TEST(RollUp, FindsZeroInTenAndTwentyLessThirtyCents) {
    auto accounts = accountsOf({{"1002"}, {"100201", 0.10}, {"100202", 0.20}, {"100203", -0.30}});
    rollUp(accounts, OpeningLayout::simple);
    EXPECT_EQ(openingOf(accounts, "1002"), 0.0);
}

TEST(RollUp, AddsForeignCurrencyAndQuantityOfAccountsThatKeepThem) {
    auto accounts = accountsOf({{"1405"},
                                AccountDraft{"140501"}.countedIn("件"),
                                AccountDraft{"140502"}.foreign(1).countedIn("件"),
                                AccountDraft{"140503"}});
    for (OpeningAccount& account : accounts) {
        account.balance(Measure::foreign).opening = 1.5;
        account.balance(Measure::quantity).opening = 0.00001;
    }
    rollUp(accounts, OpeningLayout::simple);
    EXPECT_EQ(accounts[0].balance(Measure::foreign).opening, 1.5);
    EXPECT_EQ(accounts[0].balance(Measure::quantity).opening, 0.00002);
}

TEST(RollUp, AddsAllFourFiguresInBooksThatBeginMidYear) {
    auto accounts = accountsOf({{"1002"}, {"100201"}, {"100202"}});
    accounts[1].balance(Measure::money) = {1, 2, 3, 4};
    accounts[2].balance(Measure::money) = {10, 20, 30, 40};
    rollUp(accounts, OpeningLayout::midYear);
    EXPECT_EQ(accounts[0].balance(Measure::money), (Balance{11, 22, 33, 44}));
}

TEST(RollUp, ClearsAParentWithoutEndAccounts) {
    auto accounts = accountsOf({{"1002", 5}});
    accounts[0].isEnd = false;
    rollUp(accounts, OpeningLayout::simple);
    EXPECT_EQ(accounts[0].opening(), 0);
}

TEST(RollUp, IsExactInBooksOfFourTrillion) {
    std::vector<AccountDraft> drafts{{"1002"}};
    for (int at = 10; at < 99; ++at) drafts.push_back({"1002" + std::to_string(at), 4e12 + 0.07});
    auto accounts = accountsOf(drafts);
    rollUp(accounts, OpeningLayout::simple);
    EXPECT_EQ(accounts[0].opening(), 89 * 4e12 + 6.23);
}

TEST(RollUp, GivesWhatTheNestedDefinitionGivesOnRandomCharts) {
    std::mt19937 random(20260105);
    for (int turn = 0; turn < 200; ++turn) {
        const auto layout = turn % 2 == 0 ? OpeningLayout::simple : OpeningLayout::midYear;
        auto accounts = randomChart(random, 1 + turn / 2);
        auto nested = accounts;
        rollUp(accounts, layout);
        nestedRollUp(nested, layout);
        ASSERT_EQ(figuresIn(accounts), figuresIn(nested)) << "turn " << turn;
    }
}

TEST(RollUp, OfTheStretchAroundAnAccountIsThatOfTheWhole) {
    std::mt19937 random(7);
    for (int turn = 0; turn < 100; ++turn) {
        auto accounts = randomChart(random, 40);
        rollUp(accounts, OpeningLayout::simple);
        const std::size_t place = random() % accounts.size();
        if (!accounts[place].isEnd) continue;
        accounts[place].balance(Measure::money).opening += 12.34;
        auto whole = accounts;
        rollUp(whole, OpeningLayout::simple);
        const Subtree around = subtreeAround(accounts, place);
        rollUp(std::span(accounts).subspan(around.first, around.count), OpeningLayout::simple);
        ASSERT_EQ(figuresIn(accounts), figuresIn(whole)) << "turn " << turn;
    }
}

TEST(Ancestors, RunFromTheNearestToTheTop) {
    const auto accounts =
        accountsOf({{"1001"}, {"1002"}, {"100201"}, {"10020101"}, {"100202"}, {"1003"}});
    EXPECT_EQ(ancestorsOf(accounts, 3), (std::vector<std::size_t>{2, 1}));
    EXPECT_EQ(ancestorsOf(accounts, 0), std::vector<std::size_t>{});
    EXPECT_EQ(subtreeAround(accounts, 3).first, 1u);
    EXPECT_EQ(subtreeAround(accounts, 3).count, 4u);
    EXPECT_EQ(subtreeAround(accounts, 5).count, 1u);
}

TEST(Ancestors, AreNoEndAccountsThoughTheirCodesAreInFront) {
    auto accounts = accountsOf({{"1002"}, {"100201"}, {"10020101"}});
    accounts[1].isEnd = true;
    EXPECT_EQ(ancestorsOf(accounts, 2), std::vector<std::size_t>{0});
    accounts[0].isEnd = true;
    EXPECT_EQ(ancestorsOf(accounts, 2), std::vector<std::size_t>{});
    EXPECT_EQ(subtreeAround(accounts, 2).first, 2u);
}

TEST(ExactSums, CountTwoDecimalsWithoutLoss) {
    MoneySum sum;
    for (int time = 0; time < 1'000'000; ++time) sum.add(0.01);
    EXPECT_EQ(sum.value(), 10'000.0);
    sum.subtract(10'000);
    EXPECT_EQ(sum.value(), 0.0);
    EXPECT_FALSE(std::signbit(sum.value()));
}

TEST(ExactSums, CarryAlongWhatOtherAmountsLose) {
    MoneySum sum;
    sum.add(1e15 + 0.125);
    sum.add(0.001);
    sum.subtract(1e15 + 0.125);
    EXPECT_DOUBLE_EQ(sum.value(), 0.001);
}

TEST(ExactSums, AreInfiniteWhereAnAmountIs) {
    const double infinity = std::numeric_limits<double>::infinity();
    MoneySum sum;
    sum.add(5);
    sum.add(-infinity);
    sum.add(0.001);
    EXPECT_EQ(sum.value(), -infinity);
    MoneySum largest;
    largest.add(1.7e308);
    largest.add(1.7e308);
    EXPECT_EQ(largest.value(), infinity);
}

TEST(ExactSums, AddSumsToSums) {
    MoneySum one;
    one.add(4e12 + 0.01);
    one.add(0.0001);
    MoneySum other;
    other.add(4e12);
    other -= one;
    EXPECT_NEAR(other.value(), -0.0101, 1e-12);
    other += one;
    EXPECT_EQ(other.value(), 4e12);
}
