#include "currency/currency_sql.h"

#include <gtest/gtest.h>

namespace {

using namespace chengheng;

TEST(CurrencySql, NamesCurrenciesByIdSymbolAndName) {
    EXPECT_STREQ(currency_sql::inOrder, "lId > 0 ORDER BY lId");
    EXPECT_EQ(currency_sql::ofId(7), "lId = 7");
    EXPECT_EQ(currency_sql::ofSymbol("O'B", 0), "sExchCode = 'O''B'");
    EXPECT_EQ(currency_sql::ofName("美元", 0), "sExchName = '美元'");
    EXPECT_EQ(currency_sql::ofSymbol("USD", 7), "lId <> 7 AND sExchCode = 'USD'");
    EXPECT_EQ(currency_sql::ofName("美元", 7), "lId <> 7 AND sExchName = '美元'");
    EXPECT_EQ(currency_sql::ofCurrency(7), "byExchId = 7");
}

TEST(CurrencySql, ReadsRatesInTheOrderOfTime) {
    EXPECT_EQ(currency_sql::fixedRatesOf(7), "byExchId = 7 ORDER BY byPeroid");
    EXPECT_EQ(currency_sql::floatingRatesOf(7, 2), "byExchId = 7 AND byPeroid = 2 ORDER BY dtDate");
    EXPECT_EQ(currency_sql::floatingRatesOf(7, 0), "byExchId = 7 ORDER BY dtDate");
}

TEST(CurrencySql, AddsTheRateOfADayAsALineOfABatch) {
    std::string batch;
    currency_sql::addFloatingRate(batch, 8, 7, {2028, 2, 29});
    currency_sql::addFloatingRate(batch, 9, 7, {2028, 3, 1});
    EXPECT_EQ(batch,
              "Insert ExchgFlt Values(8, 7, '2028/2/29', 2, 0.0, 0.0)\n"
              "Insert ExchgFlt Values(9, 7, '2028/3/1', 3, 0.0, 0.0)\n");
}

TEST(CurrencySql, SetsTheCounterOfFloatingRates) {
    EXPECT_STREQ(currency_sql::counters, "ABIdTable");
    EXPECT_STREQ(currency_sql::floatingRateCounter, "sTable = 'ExchgFlt'");
    EXPECT_EQ(formatSql(currency_sql::lastId, 365), "lLastId = 365 ");
}

}  // namespace
