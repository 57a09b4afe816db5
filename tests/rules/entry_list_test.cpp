#include "auxiliary/screen/entry_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using namespace chengheng;

AuxiliaryEntry listedEntry(std::int32_t line, const char* unit, double money, const char* summary,
                           bool isDebit = true) {
    AuxiliaryEntry entry;
    entry.lineId = line;
    entry.content.date = {2025, 12, 31};
    entry.content.sign = "记";
    entry.content.number = line;
    entry.content.summary = summary;
    entry.content.isDebit = isDebit;
    entry.content.money = money;
    entry.content.of.unit = unit == std::string("甲公司") ? 1 : 2;
    entry.names.unit = unit;
    return entry;
}

class EntryLists : public testing::Test {
  protected:
    void SetUp() override {
        m_list.assign({listedEntry(1, "甲公司", 9, "abc"), listedEntry(2, "乙公司", 100, "Xyz"),
                       listedEntry(3, "甲公司", 20, "货款", false)});
    }
    std::vector<int> shown() const {
        std::vector<int> lines;
        for (std::size_t row = 0; row < m_list.rowCount(); ++row)
            lines.push_back(m_list.atRow(row).lineId);
        return lines;
    }
    int columnOf(EntryColumn column) const {
        const auto found = std::ranges::find(m_list.columns(), column);
        return static_cast<int>(found - m_list.columns().begin());
    }

    EntryList m_list{memberOf(AuxiliaryKind::unit)};
};

}  // namespace

TEST_F(EntryLists, ShowWhatHoldsTheFilterInAnyColumn) {
    const std::pair<const char*, std::vector<int>> filters[] = {
        {"", {1, 2, 3}},  {"  ", {1, 2, 3}},      {"甲", {1, 3}}, {" xYZ ", {2}}, {"100.00", {2}},
        {"记-0003", {3}}, {"2025-12", {1, 2, 3}}, {"贷", {3}},    {"没有", {}}};
    for (const auto& [filter, lines] : filters) {
        m_list.setFilter(filter);
        EXPECT_EQ(shown(), lines) << filter;
    }
    EXPECT_EQ(m_list.all().size(), 3u);
}

TEST_F(EntryLists, SortAmountsAsNumbersAndKeepTheOrderOfEquals) {
    m_list.sortBy(columnOf(EntryColumn::money), false);
    EXPECT_EQ(shown(), (std::vector<int>{1, 3, 2}));
    m_list.sortBy(columnOf(EntryColumn::money), true);
    EXPECT_EQ(shown(), (std::vector<int>{2, 3, 1}));
    m_list.sortBy(columnOf(EntryColumn::date), true);
    EXPECT_EQ(shown(), (std::vector<int>{1, 2, 3}));
    m_list.sortBy(columnOf(EntryColumn::voucherNumber), true);
    EXPECT_EQ(shown(), (std::vector<int>{3, 2, 1}));
    m_list.sortBy(-1, false);
    EXPECT_EQ(shown(), (std::vector<int>{1, 2, 3}));
}

TEST_F(EntryLists, KeepFilterAndOrderWhenEntriesComeChangeAndGo) {
    m_list.setFilter("甲");
    m_list.sortBy(columnOf(EntryColumn::money), true);
    m_list.put(listedEntry(4, "甲公司", 50, ""));
    EXPECT_EQ(shown(), (std::vector<int>{4, 3, 1}));
    m_list.put(listedEntry(3, "甲公司", 60, ""));
    EXPECT_EQ(shown(), (std::vector<int>{3, 4, 1}));
    m_list.put(listedEntry(3, "乙公司", 60, ""));
    EXPECT_EQ(shown(), (std::vector<int>{4, 1}));
    m_list.remove(4);
    EXPECT_EQ(shown(), std::vector<int>{1});
    EXPECT_EQ(m_list.rowOf(1), 0u);
    EXPECT_EQ(m_list.rowOf(3), m_list.rowCount());
}

TEST_F(EntryLists, TakeManyChangesAtOnce) {
    m_list.setFilter("c");
    EXPECT_EQ(shown(), std::vector<int>{1});
    const AuxiliaryEntry come[] = {listedEntry(5, "甲公司", 1, "c"),
                                   listedEntry(3, "甲公司", 2, "c"),
                                   listedEntry(4, "甲公司", 3, "c")};
    const std::int32_t gone[] = {1, 9};
    const unsigned revision = m_list.revision();
    m_list.change(come, gone);
    EXPECT_EQ(m_list.revision(), revision + 1);
    EXPECT_EQ(shown(), (std::vector<int>{3, 5, 4})) << "a changed one keeps its place";
    EXPECT_EQ(m_list.all().size(), 4u);
    m_list.setFilter("xyz");
    EXPECT_EQ(shown(), std::vector<int>{2});
    m_list.setFilter("货款");
    EXPECT_EQ(shown(), std::vector<int>{}) << "no text of what was before";
}

TEST_F(EntryLists, AddUpAllAndWhatTheyShow) {
    const AuxiliaryAccount account{.isDebit = true};
    EXPECT_EQ(m_list.total(account), (EntryFigures{89, 0, 0}));
    m_list.setFilter("甲");
    EXPECT_EQ(m_list.shownTotal(account), (EntryFigures{-11, 0, 0}));
    EXPECT_EQ(m_list.total(account), (EntryFigures{89, 0, 0}));
}

TEST_F(EntryLists, AddUpLargeAmountsToTheCent) {
    const AuxiliaryAccount account{.isDebit = true};
    std::vector<AuxiliaryEntry> entries;
    for (int count = 0; count < 1000; ++count)
        entries.push_back(listedEntry(count + 1, "甲公司", 9999999999999.99, ""));
    entries.push_back(listedEntry(2000, "甲公司", 0.01, ""));
    for (int count = 0; count < 1000; ++count)
        entries.push_back(listedEntry(count + 3000, "甲公司", 9999999999999.99, "", false));
    m_list.assign(entries);
    m_list.setFilter("甲");
    EXPECT_EQ(m_list.total(account), (EntryFigures{0.01, 0, 0}));
    EXPECT_EQ(m_list.shownTotal(account), (EntryFigures{0.01, 0, 0}));
    EXPECT_EQ(totalsOf(m_list.all(), account)[0].figures, (EntryFigures{0.01, 0, 0}));
}

TEST_F(EntryLists, FilterByWhatAnEntrySaysNow) {
    m_list.setFilter("XYZ");
    EXPECT_EQ(shown(), std::vector<int>{2});
    m_list.put(listedEntry(2, "乙公司", 100, "abc"));
    EXPECT_EQ(shown(), std::vector<int>{});
    m_list.remove(1);
    m_list.put(listedEntry(4, "甲公司", 50, "xyz"));
    EXPECT_EQ(shown(), std::vector<int>{4});
    m_list.setFilter("甲");
    EXPECT_EQ(shown(), (std::vector<int>{3, 4}));
    m_list.setFilter("司借");
    EXPECT_EQ(shown(), std::vector<int>{}) << "of two columns";
}

TEST_F(EntryLists, HaveAnotherRevisionWhenEntriesChangeAndNotWhenOthersAreShown) {
    unsigned before = m_list.revision();
    m_list.setFilter("甲");
    m_list.sortBy(columnOf(EntryColumn::money), true);
    EXPECT_EQ(m_list.revision(), before);
    const auto hasChanged = [&] { return std::exchange(before, m_list.revision()) != before; };
    m_list.put(listedEntry(4, "乙公司", 50, ""));
    EXPECT_TRUE(hasChanged());
    m_list.put(listedEntry(4, "乙公司", 60, ""));
    EXPECT_TRUE(hasChanged());
    m_list.remove(4);
    EXPECT_TRUE(hasChanged());
    m_list.assign({});
    EXPECT_TRUE(hasChanged());
}

TEST_F(EntryLists, FindByEveryField) {
    AuxiliaryEntry entry = listedEntry(5, "甲公司", 12.5, "应收货款");
    entry.content.foreign = 2;
    entry.content.quantity = 1.25;
    entry.names = {.department = "销售部", .person = "张三", .unit = "甲公司", .item = "一期"};
    const auto isFound = [&](auto set) {
        EntrySearch search;
        set(search);
        return fits(entry, search);
    };
    EXPECT_TRUE(isFound([](EntrySearch&) {}));
    struct Field {
        std::string EntrySearch::*text;
        const char* right;
        const char* wrong;
    };
    for (const auto& [text, right, wrong] :
         {Field{&EntrySearch::date, "2025/12/31", "2025-12-30"},
          Field{&EntrySearch::date, "2025-12", "2026"}, Field{&EntrySearch::sign, "记", "付"},
          Field{&EntrySearch::number, "0005", "55"}, Field{&EntrySearch::number, "5", "0"},
          Field{&EntrySearch::summary, " 货款 ", "运费"}, Field{&EntrySearch::money, "12.50", "12"},
          Field{&EntrySearch::money, "=10+2.5", "x"}, Field{&EntrySearch::foreign, "2", "-2"},
          Field{&EntrySearch::quantity, "1.25", "1.250001x"}}) {
        EXPECT_TRUE(isFound([&](EntrySearch& search) { search.*text = right; })) << right;
        EXPECT_FALSE(isFound([&](EntrySearch& search) { search.*text = wrong; })) << wrong;
    }
    for (std::string EntryNames::*name :
         {&EntryNames::department, &EntryNames::person, &EntryNames::unit, &EntryNames::item}) {
        EXPECT_TRUE(isFound([&](EntrySearch& search) { search.names.*name = entry.names.*name; }));
        EXPECT_FALSE(isFound([&](EntrySearch& search) { search.names.*name = "无"; }));
    }
    EXPECT_TRUE(isFound([](EntrySearch& search) { search.isDebit = true; }));
    EXPECT_FALSE(isFound([](EntrySearch& search) { search.isCredit = true; }));
    EXPECT_TRUE(isFound([](EntrySearch& search) { search.isDebit = search.isCredit = true; }));
}

TEST_F(EntryLists, FindOnFromTheRowAndBeginAnewAfterTheLast) {
    EntrySearch search;
    search.names.unit = "甲";
    EXPECT_EQ(m_list.find(search, m_list.rowCount()), 0u);
    EXPECT_EQ(m_list.find(search, 0), 2u);
    EXPECT_EQ(m_list.find(search, 2), 0u);
    search.summary = "Xyz";
    EXPECT_EQ(m_list.find(search, 0), m_list.rowCount());
}

TEST_F(EntryLists, GiveATotalForEachCombinationInTheOrderOfTheirFirstEntries) {
    const auto totals = totalsOf(m_list.all(), {.isDebit = true});
    ASSERT_EQ(totals.size(), 2u);
    EXPECT_EQ(totals[0].names.unit, "甲公司");
    EXPECT_EQ(totals[0].count, 2u);
    EXPECT_EQ(totals[0].figures, (EntryFigures{-11, 0, 0}));
    EXPECT_EQ(totals[1].figures, (EntryFigures{100, 0, 0}));
}

TEST_F(EntryLists, ShowNothingForAForeignAmountOrQuantityOfNone) {
    AuxiliaryEntry entry = listedEntry(1, "甲公司", 0, "");
    EXPECT_EQ(cellText(entry, EntryColumn::money), "0.00");
    EXPECT_EQ(cellText(entry, EntryColumn::foreign), "");
    EXPECT_EQ(cellText(entry, EntryColumn::quantity), "");
    entry.content.foreign = 1234.5;
    entry.content.quantity = 1234.5;
    EXPECT_EQ(cellText(entry, EntryColumn::foreign), "1,234.50");
    EXPECT_EQ(cellText(entry, EntryColumn::quantity), "1,234.50000");
}
