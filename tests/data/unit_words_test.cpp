#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/access/unit_of_work.h"
#include "data/sql/sql_format.h"
#include "tests/support/engine_cases.h"
#include "tests/support/kept_log.h"
#include "tests/support/made_layout.h"

namespace unit_words {
namespace {

using namespace chengheng;
using testing::ElementsAre;
using testing::IsEmpty;

UnitWords words(std::int32_t function, std::string text) {
    return {function, [text = std::move(text)] { return text; }};
}

/// Units of work of books whose log is kept.
class WordsOfUnits : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        openNewBooks(m_database, freshLocation(GetParam()));
        m_log.emplace(m_database);
    }
    void addRow() {
        ASSERT_NE(m_database.QRYExecuteSQL(
                      formatSql("INSERT Settle VALUES( %d, '%d', '现金', 0 )", m_id, m_id)),
                  0);
        ++m_id;
    }

    CNbCwDB m_database;
    std::optional<KeptLog> m_log;
    int m_id = 1;
};

TEST_P(WordsOfUnits, AreThoseOfTheOutermostThatGivesSome) {
    {
        UnitOfWork outer(m_database, words(41, "外"));
        addRow();
        UnitOfWork inner(m_database, words(57, "内"));
        addRow();
        ASSERT_TRUE(inner.commit());
        addRow();
        ASSERT_TRUE(outer.commit());
    }
    EXPECT_THAT(m_log->news(), ElementsAre("41 外"));
    {
        UnitOfWork outer(m_database);
        UnitOfWork inner(m_database, words(57, "内"));
        addRow();
        ASSERT_TRUE(inner.commit());
        UnitOfWork part(m_database);
        addRow();
        ASSERT_TRUE(part.commit());
        ASSERT_TRUE(outer.commit());
    }
    EXPECT_THAT(m_log->news(), ElementsAre("57 内"));
}

TEST_P(WordsOfUnits, GoWithAUnitThatIsTakenBack) {
    {
        UnitOfWork outer(m_database);
        {
            UnitOfWork inner(m_database, words(57, "内"));
            addRow();
        }
        addRow();
        ASSERT_TRUE(outer.commit());
    }
    EXPECT_THAT(m_log->news(), ElementsAre("0 Settle 1"));
    {
        UnitOfWork outer(m_database);
        UnitOfWork inner(m_database, words(57, "内"));
        addRow();
        ASSERT_TRUE(inner.commit());
    }
    addRow();
    EXPECT_THAT(m_log->news(), ElementsAre("0 Settle 1"));
}

TEST_P(WordsOfUnits, OfOneThatChangesNothingAreNotThoseOfTheNext) {
    {
        UnitOfWork unit(m_database, words(57, "无"));
        ASSERT_TRUE(unit.commit());
    }
    EXPECT_THAT(m_log->news(), IsEmpty());
    addRow();
    EXPECT_THAT(m_log->news(), ElementsAre("0 Settle 1"));
}

TEST_P(WordsOfUnits, AreCutWhereTheyAreLong) {
    std::string most;
    for (std::size_t at = 0; at < mostWords; ++at) most += "科";
    for (const bool isLonger : {false, true}) {
        UnitOfWork unit(m_database, words(41, isLonger ? most + "目" : most));
        addRow();
        ASSERT_TRUE(unit.commit());
        EXPECT_THAT(m_log->news(), ElementsAre("41 " + most + (isLonger ? "…" : "")));
    }
}

TEST_P(WordsOfUnits, AreNotAskedForWhereNoLogIsKept) {
    CNbCwDB quiet;
    openNewBooks(quiet, freshLocation(GetParam()));
    bool isAsked = false;
    UnitOfWork unit(quiet, {57, [&isAsked] {
                                isAsked = true;
                                return std::string();
                            }});
    ASSERT_NE(quiet.QRYExecuteSQL("INSERT Settle VALUES( 1, '1', '现金', 0 )"), 0);
    ASSERT_TRUE(unit.commit());
    EXPECT_FALSE(isAsked);
}

CHENGHENG_ON_SHARED_ENGINES(WordsOfUnits);

}  // namespace
}  // namespace unit_words
