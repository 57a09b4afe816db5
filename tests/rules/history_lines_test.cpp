#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "operationlog/history/directory_subject.h"
#include "operationlog/history/figure_subject.h"
#include "operationlog/history/history_list.h"

namespace history_lines {
namespace {

using namespace chengheng;
using testing::ElementsAre;
using Texts = std::vector<std::string>;

RowEvent event(ChangeKind kind, std::vector<LoggedColumn> columns) {
    RowEvent event;
    event.entry.time = "2026-11-23T18:04:05.123+08:00";
    event.entry.operatorName = "王芳";
    event.entry.workstation = "财务1";
    event.entry.words = "修改结算方式 1 现金";
    event.row = {.kind = kind, .id = 1, .columns = std::move(columns)};
    return event;
}

/// "item|before|after" of each line.
Texts linesOf(const RowEvent& event, const HistorySubject& subject) {
    Texts texts;
    for (const HistoryLine& line : historyLines(event, subject))
        texts.push_back(line.item + "|" + line.before + "|" + line.after);
    return texts;
}

const HistorySubject method{.table = "Settle", .id = 1};

TEST(HistoryLines, TellWhoChangedAColumnWhenAndWhere) {
    const auto lines = historyLines(
        event(ChangeKind::changed, {{"sSettle", std::string("现金"), std::string("现款")}}),
        method);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0], (HistoryLine{"2026-11-23 18:04:05", "王芳", "财务1", "修改结算方式 1 现金",
                                     "修改", lines[0].item, "现金", "现款"}));
    EXPECT_NE(lines[0].item, "sSettle") << "a name that operators know";
}

TEST(HistoryLines, AreOfEachColumnThatIsAnother) {
    const auto lines =
        linesOf(event(ChangeKind::changed, {{"sStlId", std::string("1"), std::string("2")},
                                            {"sSettle", std::string("现金"), std::string()}}),
                method);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_THAT(lines[0], testing::EndsWith("|1|2"));
}

TEST(HistoryLines, OfARowThatCameOrWentAreOfWhatWasFilledIn) {
    const auto added = linesOf(event(ChangeKind::inserted, {{"lId", {}, std::int64_t{1}},
                                                            {"sStlId", {}, std::string("1")},
                                                            {"sSettle", {}, std::string()},
                                                            {"bNote", {}, std::int64_t{0}}}),
                               method);
    ASSERT_EQ(added.size(), 1U);
    EXPECT_THAT(added[0], testing::EndsWith("||1"));
    const auto deleted =
        linesOf(event(ChangeKind::deleted, {{"sStlId", std::string("1"), {}}}), method);
    ASSERT_EQ(deleted.size(), 1U);
    EXPECT_THAT(deleted[0], testing::EndsWith("|1|"));
}

TEST(HistoryLines, OfOneColumnAreOfNoOther) {
    HistorySubject subject = method;
    subject.column = "bNote";
    const auto lines = historyLines(event(ChangeKind::inserted, {{"sStlId", {}, std::string("1")},
                                                                 {"bNote", {}, std::int64_t{0}}}),
                                    subject);
    EXPECT_EQ(lines.size(), 1U) << "also where it was left empty";
}

std::string placeOf(Measure measure, BalanceFigure figure, OpeningLayout layout) {
    const HistorySubject subject = figureSubject(5, measure, figure, layout);
    EXPECT_EQ(subject.table, "AccSum");
    if (!subject.balances) return "none";
    EXPECT_EQ(subject.balances->account, 5);
    return std::to_string(subject.balances->period) + " " + subject.column;
}

TEST(FigureSubjects, AreTheColumnsThatHoldTheFigures) {
    using enum Measure;
    using enum OpeningLayout;
    EXPECT_EQ(placeOf(money, &Balance::opening, simple), "1 mBegin");
    EXPECT_EQ(placeOf(foreign, &Balance::opening, simple), "1 mFgnBegin");
    EXPECT_EQ(placeOf(quantity, &Balance::opening, simple), "1 dAmtBegin");
    EXPECT_EQ(placeOf(money, &Balance::yearStart, midYear), "1 mBegin");
    EXPECT_EQ(placeOf(money, &Balance::debit, midYear), "1 mDebet");
    EXPECT_EQ(placeOf(foreign, &Balance::credit, midYear), "1 mFgnCredit");
    EXPECT_EQ(placeOf(quantity, &Balance::opening, midYear), "2 dAmtBegin");
}

TEST(DirectorySubjects, AreTheTablesOfTheDirectories) {
    const auto tableOf = [](DirectoryKind kind) { return directorySubject(kind, 3, "01").table; };
    EXPECT_EQ(tableOf(DirectoryKind::department), "Dept");
    EXPECT_EQ(tableOf(DirectoryKind::person), "Person");
    EXPECT_EQ(tableOf(DirectoryKind::unitClass), "EnterClass");
    EXPECT_EQ(tableOf(DirectoryKind::unit), "Enter");
    EXPECT_EQ(tableOf(DirectoryKind::projectClass), "ProjClass");
    EXPECT_EQ(tableOf(DirectoryKind::projectItem), "ProjItems01");
    EXPECT_EQ(directorySubject(DirectoryKind::unit, 3, "").id, 3);
}

}  // namespace
}  // namespace history_lines
