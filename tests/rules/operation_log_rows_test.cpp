#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "data/log/change_gatherer.h"
#include "data/log/packing.h"
#include "data/log/row_bytes.h"

namespace chengheng::operation_log_rows_test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

Value whole(std::int64_t number) { return Value::of(number); }
Value text(std::string_view words) { return Value::of(words); }

/// What the parts of a gatherer tell, all of them in one list.
std::vector<LoggedRow> rowsOf(const std::vector<LogPart>& parts) {
    std::vector<LoggedRow> rows;
    for (const LogPart& part : parts) {
        const auto bytes = unpacked(part.packed);
        EXPECT_TRUE(bytes && readRowBytes(*bytes, rows)) << part.table;
    }
    return rows;
}

class Gathering : public testing::Test {
  protected:
    void insert(std::int64_t id, std::string_view name) {
        const Value after[] = {whole(id), text("1"), text(name), whole(0)};
        m_gatherer.take(
            {.kind = ChangeKind::inserted, .table = "settle", .before = {}, .after = after});
    }
    void rename(std::int64_t id, std::string_view before, std::string_view after) {
        const Value was[] = {whole(id), text("1"), text(before), whole(0)};
        const Value is[] = {whole(id), text("1"), text(after), whole(0)};
        m_gatherer.take(
            {.kind = ChangeKind::changed, .table = "Settle", .before = was, .after = is});
    }
    std::vector<std::int64_t> idsAtEnd() {
        std::vector<std::int64_t> ids;
        for (const LoggedRow& row : rowsOf(m_gatherer.takeParts(true))) ids.push_back(row.id);
        return ids;
    }
    /// So many rows that parts get full.
    void flood(std::int64_t from, int count) {
        for (int at = 0; at < count; ++at) insert(from + at, std::string(200, 'x'));
    }

    ChangeGatherer m_gatherer;
};

TEST_F(Gathering, KeepsAllColumnsOfARowThatWasPutIn) {
    insert(7, "现金");
    EXPECT_THAT(rowsOf(m_gatherer.takeParts(true)),
                ElementsAre(LoggedRow{.kind = ChangeKind::inserted,
                                      .id = 7,
                                      .columns = {{"lId", {}, std::int64_t{7}},
                                                  {"sStlId", {}, std::string("1")},
                                                  {"sSettle", {}, std::string("现金")},
                                                  {"bNote", {}, std::int64_t{0}}}}));
}

TEST_F(Gathering, KeepsOfAChangedRowWhatDiffers) {
    rename(7, "现金", "支票");
    EXPECT_THAT(
        rowsOf(m_gatherer.takeParts(true)),
        ElementsAre(LoggedRow{.kind = ChangeKind::changed,
                              .id = 7,
                              .columns = {{"sSettle", std::string("现金"), std::string("支票")}}}));
}

TEST_F(Gathering, KeepsNothingOfARowThatStaysAsItIs) {
    rename(7, "现金", "现金");
    EXPECT_TRUE(m_gatherer.isEmpty());
    EXPECT_THAT(m_gatherer.takeParts(true), IsEmpty());
}

TEST_F(Gathering, BringsEveryCellBackAsItWentIn) {
    const std::string hostile = std::string("a\0b", 3) + "'\"\u202E" + std::string(1 << 20, 'z');
    const Value before[] = {whole(std::numeric_limits<std::int64_t>::min()),
                            whole(std::numeric_limits<std::int64_t>::max()),
                            Value::of(-0.0),
                            Value::of(0.1),
                            Value::ofNull(),
                            text(hostile),
                            text("")};
    m_gatherer.take({.kind = ChangeKind::deleted, .table = "X", .before = before, .after = {}});
    const auto rows = rowsOf(m_gatherer.takeParts(true));
    ASSERT_THAT(rows, SizeIs(1));
    EXPECT_EQ(rows[0].kind, ChangeKind::deleted);
    EXPECT_EQ(rows[0].id, std::numeric_limits<std::int64_t>::min());
    const auto& columns = rows[0].columns;
    ASSERT_THAT(columns, SizeIs(7));
    EXPECT_EQ(columns[1].before, LoggedCell(std::numeric_limits<std::int64_t>::max()));
    EXPECT_TRUE(std::signbit(std::get<double>(columns[2].before)));
    EXPECT_EQ(columns[3].before, LoggedCell(0.1));
    EXPECT_EQ(columns[4].before, LoggedCell());
    EXPECT_EQ(columns[5].before, LoggedCell(hostile));
    EXPECT_EQ(columns[6].before, LoggedCell(std::string()));
    EXPECT_EQ(columns[6].name, "7") << "a table that nobody knows";
}

TEST_F(Gathering, TellsZeroOfEitherSignApart) {
    const Value before[] = {whole(1), Value::of(0.0)};
    const Value after[] = {whole(1), Value::of(-0.0)};
    m_gatherer.take({.kind = ChangeKind::changed, .table = "X", .before = before, .after = after});
    EXPECT_EQ(m_gatherer.rows(), 1);
}

TEST_F(Gathering, FillsOnePartAfterTheOther) {
    flood(1, 2000);
    const auto full = m_gatherer.takeParts(false);
    EXPECT_GE(full.size(), 2u);
    EXPECT_EQ(full[0].number, 1);
    EXPECT_EQ(full[0].lowestId, 1);
    EXPECT_EQ(full[1].lowestId, full[0].highestId + 1);
    EXPECT_EQ(full[0].rows, full[0].highestId);
    std::size_t told = rowsOf(full).size();
    told += rowsOf(m_gatherer.takeParts(true)).size();
    EXPECT_EQ(told, 2000u);
    EXPECT_EQ(m_gatherer.rows(), 2000);
    EXPECT_EQ(m_gatherer.tables().at("Settle"), 2000);
}

TEST_F(Gathering, GoesBackToAMark) {
    insert(1, "a");
    m_gatherer.mark();
    insert(2, "b");
    rename(1, "a", "c");
    m_gatherer.backToMark();
    insert(3, "d");
    EXPECT_EQ(m_gatherer.rows(), 2);
    EXPECT_THAT(idsAtEnd(), ElementsAre(1, 3));
}

TEST_F(Gathering, GoesBackToAMarkThatFullPartsHaveLeftBehind) {
    insert(1, "a");
    const std::string hashBefore = m_gatherer.partsHash();
    m_gatherer.mark();
    m_gatherer.mark();
    flood(10, 3000);
    EXPECT_GT(m_gatherer.takeParts(false).size(), 1u);
    EXPECT_NE(m_gatherer.partsHash(), hashBefore);
    m_gatherer.backToMark();
    EXPECT_EQ(m_gatherer.partsHash(), hashBefore);
    insert(2, "b");
    m_gatherer.backToMark();
    EXPECT_EQ(m_gatherer.parts(), 0);
    insert(3, "c");
    EXPECT_THAT(idsAtEnd(), ElementsAre(1, 3));
}

TEST_F(Gathering, KeepsWhatHappenedSinceAMarkThatIsReleased) {
    insert(1, "a");
    m_gatherer.mark();
    insert(2, "b");
    m_gatherer.release();
    EXPECT_THAT(idsAtEnd(), ElementsAre(1, 2));
}

TEST_F(Gathering, GoesBackToAMarkBeforeAnyRowOfItsTable) {
    m_gatherer.mark();
    insert(1, "a");
    m_gatherer.backToMark();
    EXPECT_TRUE(m_gatherer.isEmpty());
    EXPECT_THAT(m_gatherer.tables(), IsEmpty());
}

TEST_F(Gathering, NamesItemTablesAlikeWhateverTheLettersOfAStatement) {
    const Value after[] = {whole(7), text("1"), text("甲")};
    m_gatherer.take(
        {.kind = ChangeKind::inserted, .table = "projitemsa1", .before = {}, .after = after});
    const auto parts = m_gatherer.takeParts(true);
    ASSERT_THAT(parts, SizeIs(1));
    EXPECT_EQ(parts[0].table, "ProjItemsa1");
    EXPECT_EQ(rowsOf(parts)[0].columns[2].name, "FIELD1");
}

TEST_F(Gathering, LeavesOutTheLogItselfCountersAndWhoIsLoggedOn) {
    for (const char* table : {"ABIdTable", "abidtable", "LoginInfoTbl", "LogonTries"})
        EXPECT_FALSE(m_gatherer.watches(table)) << table;
    for (const char* table : {"Code", "users", "UserAuth", "ProjItems01"})
        EXPECT_TRUE(m_gatherer.watches(table)) << table;
}

TEST_F(Gathering, TellsThatARowWasMissed) {
    EXPECT_TRUE(m_gatherer.isWhole());
    m_gatherer.missed();
    EXPECT_FALSE(m_gatherer.isWhole());
    m_gatherer.clear();
    EXPECT_TRUE(m_gatherer.isWhole());
}

TEST_F(Gathering, NeedsFewBytesForARowOfBalances) {
    constexpr int count = 12'000;
    for (int at = 0; at < count; ++at) {
        const double money = at / 12 * 12.34 + 5;
        const Value after[] = {whole(at + 1),    whole(at / 12 + 1), whole(at % 12 + 1),
                               Value::of(money), Value::of(0.0),     Value::of(0.0),
                               Value::of(money), Value::of(0.0),     Value::of(0.0),
                               Value::of(0.0),   Value::of(0.0),     Value::of(0.0)};
        m_gatherer.take(
            {.kind = ChangeKind::inserted, .table = "AccSum", .before = {}, .after = after});
    }
    std::size_t bytes = 0;
    for (const LogPart& part : m_gatherer.takeParts(true)) bytes += part.packed.size();
    EXPECT_LE(bytes / count, 40u);
}

TEST(PackedText, ComesBackAsItWentIn) {
    for (const std::string& bytes :
         {std::string(), std::string(3, '\0'), std::string(100'000, 'a')})
        EXPECT_EQ(unpacked(packed(bytes)), bytes);
}

TEST(PackedText, IsRefusedWhenDamagedOrBeyondMeasure) {
    EXPECT_FALSE(unpacked("no packed text"));
    EXPECT_FALSE(unpacked(""));
    const std::string text = packed(std::string(1000, 'a') + "b");
    EXPECT_FALSE(unpacked(text.substr(0, text.size() - 8)));
    EXPECT_FALSE(unpacked(text, 1000));
    EXPECT_TRUE(unpacked(text, 1001));
}

TEST(LoggedRows, AreRefusedWhereBytesAreMissing) {
    const Value after[] = {whole(1), text("现金"), Value::of(1.5)};
    std::string bytes = rowBytesHead({"lId", "sName", "mMoney"});
    const std::size_t head = bytes.size();
    ASSERT_TRUE(addRowBytes(
        {.kind = ChangeKind::inserted, .table = "X", .before = {}, .after = after}, bytes));
    std::vector<LoggedRow> rows;
    EXPECT_TRUE(readRowBytes(bytes, rows));
    for (std::size_t size = head + 1; size < bytes.size(); ++size)
        EXPECT_FALSE(readRowBytes(bytes.substr(0, size), rows)) << size;
    bytes[head] = '?';
    EXPECT_FALSE(readRowBytes(bytes, rows));
}

TEST(ChainHash, TellsDifferentListsOfTextsApart) {
    const auto hashOf = [](std::initializer_list<const char*> texts) {
        ChainHash hash;
        for (const char* each : texts) hash.add(std::string_view(each));
        return hash.text();
    };
    EXPECT_EQ(hashOf({"a", "b"}), hashOf({"a", "b"}));
    EXPECT_NE(hashOf({"ab"}), hashOf({"a", "b"}));
    EXPECT_NE(hashOf({"a", ""}), hashOf({"", "a"}));
    EXPECT_EQ(hashOf({}), "0e5751c026e543b2e8ab2eb06099daa1d1e5df47778f7787faab45cdf12fe3a8")
        << "of nothing, as everybody computes it";
}

TEST(EntryHash, ChangesWithEveryFieldAndWithTheHashBefore) {
    const LogEntry entry{.number = 3,
                         .time = "2026-11-23T18:04:05.123+08:00",
                         .operatorId = 1,
                         .operatorName = "陈静",
                         .workstation = "a",
                         .process = 4,
                         .program = "chengheng 1",
                         .function = 35,
                         .words = "增加科目 100103 备用金",
                         .unit = "0a",
                         .parts = 1,
                         .rows = 2,
                         .partsHash = "ff"};
    const std::string hash = entryHash(noHashBefore, entry);
    std::vector<LogEntry> others(13, entry);
    others[0].number = 4;
    others[1].time += "x";
    others[2].operatorId = 2;
    others[3].operatorName = "李明";
    others[4].workstation = "b";
    others[5].process = 5;
    others[6].program += "1";
    others[7].function = 36;
    others[8].words += "x";
    others[9].unit = "0b";
    others[10].parts = 2;
    others[11].rows = 3;
    others[12].partsHash = "fe";
    for (const LogEntry& other : others) EXPECT_NE(entryHash(noHashBefore, other), hash);
    EXPECT_NE(entryHash(hash, entry), hash);
    LogEntry hashed = entry;
    hashed.hash = hash;
    EXPECT_EQ(entryHash(noHashBefore, hashed), hash) << "its own hash is no part of it";
}

}  // namespace
}  // namespace chengheng::operation_log_rows_test
