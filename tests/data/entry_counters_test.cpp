// Counters of ids that are at their end: an entry that gets none is told of it.

#include <gtest/gtest.h>

#include <fmt/format.h>

#include "tests/support/engine_cases.h"
#include "tests/support/entry_books.h"

namespace {

using namespace chengheng;

class EntryCounters : public testing::TestWithParam<EngineCase> {
  protected:
    /// So many ids are left after the last one.
    void leave(const char* counter, int count) {
        m_books.books().run(formatSql("UPDATE ABIdTable SET lLastId = %d WHERE sTable = '%s'",
                                      2147483647 - count, counter));
    }
    Outcome add(double money) {
        m_books.messages().forget();
        AuxiliaryEntry entry = EntryBooks::entry(m_member, 1, money);
        return m_books.service(m_member).add(m_books.account(m_member), entry);
    }
    void expectTold(const char* counter) {
        const auto before = m_books.rows();
        EXPECT_EQ(add(5), Outcome::failed) << counter;
        EXPECT_NE(m_books.messages().onlyNotice().text.find("的记录编号已经用完,数据没有改动。"),
                  std::string::npos)
            << counter << ": " << m_books.messages().onlyNotice().text;
        EXPECT_EQ(m_books.rows(), before) << counter;
    }

    EntryBooks m_books{freshLocation(GetParam())};
    const AuxiliaryMember& m_member = memberOf(AuxiliaryKind::department);
};

TEST_P(EntryCounters, AtTheirEndAreToldAndNothingIsWritten) {
    for (const char* counter : {"RegMain", "UnRegMain", "RegSub", "UnRegSub"}) {
        leave(counter, 0);
        expectTold(counter);
        leave(counter, 2147483647);
    }
    for (const char* counter : {"AssAcc", "AccSum"}) {
        leave(counter, 11);
        expectTold(counter);
        leave(counter, 2147483647);
    }
}

TEST_P(EntryCounters, GiveTheirLastIds) {
    leave("UnRegMain", 1);
    leave("RegSub", 1);
    leave("AssAcc", 12);
    leave("AccSum", 12);
    EXPECT_EQ(add(5), Outcome::done);
    EXPECT_EQ(m_books.auxiliary(m_member, 1), allPeriods("5"));
    EXPECT_EQ(m_books.opening().openings(accountCode(m_member)), allPeriods("5"));
    EXPECT_EQ(m_books.stored(m_member).at(0).lineId, 2147483647);
    expectTold("RegMain");
}

TEST_P(EntryCounters, ThatAreAtTheirEndLetAnEntryBeChangedAndDeleted) {
    ASSERT_EQ(add(5), Outcome::done);
    for (const char* counter : {"RegMain", "RegSub", "AssAcc", "AccSum"}) leave(counter, 0);
    const AuxiliaryEntry before = m_books.stored(m_member).at(0);
    AuxiliaryEntry after = before;
    after.content.money = 7;
    const AuxiliaryAccount account = m_books.account(m_member);
    EXPECT_EQ(m_books.service(m_member).modify(account, before, after), Outcome::done);
    EXPECT_EQ(m_books.service(m_member).remove(account, after), Outcome::done);
    EXPECT_TRUE(m_books.stored(m_member).empty());
}

CHENGHENG_ON_ALL_ENGINES(EntryCounters);

}  // namespace
