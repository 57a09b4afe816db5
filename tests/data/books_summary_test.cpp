#include "books/checking/books_summary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/tables/schema.h"
#include "tests/support/engine_cases.h"
#include "tests/support/small_books.h"

namespace {

using chengheng::BooksSummary;
using testing::Contains;
using testing::Pair;

class Summary : public testing::TestWithParam<chengheng::EngineCase> {
  protected:
    void SetUp() override {
        m_engine = chengheng::openForTest(chengheng::freshLocation(GetParam()));
        chengheng::fillSmallBooks(*m_engine);
    }
    BooksSummary summary() {
        BooksSummary read;
        const auto status = readBooksSummary(*m_engine, read);
        EXPECT_TRUE(status.isDone()) << status.detail;
        return read;
    }

    std::unique_ptr<chengheng::Engine> m_engine;
};

TEST_P(Summary, NamesTheBooksAndTheirParameters) {
    const BooksSummary read = summary();
    EXPECT_EQ(read.name, "小帐");
    EXPECT_EQ(read.company, "小公司");
    EXPECT_EQ(read.year, 2026);
    EXPECT_EQ(read.start, (chengheng::Date{2026, 1, 1}));
    EXPECT_EQ(read.levelPattern, "4222");
    EXPECT_TRUE(read.hasForeignCurrency);
    EXPECT_EQ(read.formatVersion, chengheng::booksFormatVersion);
    EXPECT_GT(read.engine.bytes, 0);
}

TEST_P(Summary, CountsTheRowsOfEveryTable) {
    const BooksSummary read = summary();
    EXPECT_THAT(read.tables, Contains(Pair("Code", 6)));
    EXPECT_THAT(read.tables, Contains(Pair("AccSum", 36)));
    EXPECT_THAT(read.tables, Contains(Pair("RecpEnter", 0)));
    EXPECT_THAT(read.tables, Contains(Pair("ProjItems01", 1)));
}

TEST_P(Summary, OfBooksWithoutParametersIsEmptyAndNoFailure) {
    chengheng::runScript(*m_engine, "DELETE FROM zAccountM");
    EXPECT_EQ(summary().name, "");
    EXPECT_FALSE(m_engine->inTransaction());
}

CHENGHENG_ON_ALL_ENGINES(Summary);

}  // namespace
