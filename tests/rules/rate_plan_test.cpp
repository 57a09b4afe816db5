#include "currency/transfer/rate_plan.h"

#include <gtest/gtest.h>

#include "currency/transfer/rate_import.h"

using namespace chengheng;

namespace {

using Texts = std::vector<std::string>;

/// Cells of rows by commas; a cell that begins with # is a number.
Sheet cellsOf(const Texts& lines) {
    Sheet sheet;
    for (const std::string& line : lines) {
        SheetRow& row = sheet.rows.emplace_back();
        for (std::size_t begin = 0; begin <= line.size();) {
            const std::size_t end = std::min(line.find(',', begin), line.size());
            const std::string text = line.substr(begin, end - begin);
            row.push_back(text.starts_with('#') ? Cell::of(std::stod(text.substr(1)))
                                                : Cell::of(text));
            begin = end + 1;
        }
    }
    return sheet;
}

class RatePlans : public testing::Test {
  protected:
    RatePlans() {
        add(1, "USD", "美元", 1, 4);
        add(2, "JPY", "日元", 1, 6);
        add(3, "EUR", "欧元", 0, 5);
    }
    void add(int id, const char* symbol, const char* name, std::int16_t mode, int decimals) {
        m_records.push_back({id, 0, symbol, name, mode, static_cast<std::uint8_t>(decimals), 0});
    }
    /// The state that a sheet of a kind is held against: rows of the whole year, all 0 but those
    /// set by `stored`.
    RateState stateOf(RateKind kind) const {
        RateState state{.year = 2026, .currencies = {}};
        for (const _CyrencyInfo& record : m_records) {
            auto& currency = state.currencies.emplace_back(RateState::Currency{record, {}});
            for (const Date& day : rateDays(kind, 2026)) {
                currency.rows.push_back(
                    {.id = record.lId * 1000 + static_cast<int>(currency.rows.size()),
                     .day = day,
                     .period = day.month});
                if (record.lId == 1 && day == m_storedDay) currency.rows.back().rate = m_stored;
            }
        }
        return state;
    }
    std::string failureOf(const Texts& lines) {
        const auto failure = m_sheet.read(cellsOf(lines), m_records);
        return failure ? failure->reason : "";
    }
    void plan(const Texts& lines) {
        ASSERT_EQ(failureOf(lines), "");
        m_plan = planRates(m_sheet, m_quotedAs, stateOf(m_sheet.kind()));
    }
    /// "1 2026-03-04 7.1 0" for each change.
    Texts changes() const {
        Texts texts;
        for (const RateChange& change : m_plan.changes)
            texts.push_back(std::to_string(change.currency) + ' ' + isoText(change.after.day) +
                            ' ' + textOf(change.after.rate) + ' ' +
                            textOf(change.after.adjustRate));
        return texts;
    }
    static std::string textOf(double value) { return cellText(Cell::of(value)); }
    Texts refusals() const {
        Texts texts;
        for (const PlannedRow& row : m_plan.rows)
            if (row.fate == RowFate::refused) texts.push_back(refusalText(row));
        return texts;
    }

    std::vector<_CyrencyInfo> m_records;
    Date m_storedDay{2026, 3, 3};
    double m_stored = 0;
    QuotedAs m_quotedAs{.currency = 1};
    QuotedSheet m_sheet;
    RatePlan m_plan;
};

}  // namespace

TEST_F(RatePlans, TakeAColumnForEachCurrencyByItsSymbolOrName) {
    plan({"中间价,,", "日期,usd,欧元,备注", "2026-03-04,7.10556,0.128,x", "2026/3/5,,0.127,"});
    EXPECT_EQ(m_sheet.kind(), RateKind::floating);
    EXPECT_EQ(changes(),
              (Texts{"1 2026-03-04 7.1056 0", "3 2026-03-04 0.128 0", "3 2026-03-05 0.127 0"}));
    EXPECT_EQ(m_plan.ignored, Texts{"备注"});
    EXPECT_EQ(m_plan.rows[0].code, "2026.03.04");
    EXPECT_EQ(m_plan.rows[0].name, "USD 7.1056、EUR 0.128");
    EXPECT_EQ(m_plan.rows[0].row, 3u);
    EXPECT_TRUE(m_plan.isAcceptable());
}

TEST_F(RatePlans, TakeHundredUnitsFromTheHeadingTheColumnOrTheChoice) {
    for (const char* heading : {"100日元", "日元(100)", "JPY/100", "日元（100）", "100 JPY"}) {
        plan({std::string("日期,") + heading, "2026-03-04,4.85"});
        EXPECT_EQ(changes(), Texts{"2 2026-03-04 0.0485 0"}) << heading;
    }
    plan({"日期,币符,汇率,单位", "2026-03-04,JPY,4.85,100", "2026-03-05,JPY,0.0486,1",
          "2026-03-06,JPY,0.0487,"});
    EXPECT_EQ(changes(),
              (Texts{"2 2026-03-04 0.0485 0", "2 2026-03-05 0.0486 0", "2 2026-03-06 0.0487 0"}));
    m_quotedAs.units = 100;
    plan({"日期,日元", "2026-03-04,4.85"});
    EXPECT_EQ(changes(), Texts{"2 2026-03-04 0.0485 0"});
}

TEST_F(RatePlans, TurnRatesThatAreQuotedTheOtherWayRound) {
    m_quotedAs.mode = RateMode::multiplied;
    plan({"日期,USD,EUR", "2026-03-04,7.1,8"});
    EXPECT_EQ(changes(), (Texts{"1 2026-03-04 7.1 0", "3 2026-03-04 0.125 0"}));
    m_quotedAs.mode = RateMode::divided;
    plan({"日期,USD,EUR", "2026-03-04,0.125,0.128"});
    EXPECT_EQ(changes(), (Texts{"1 2026-03-04 8 0", "3 2026-03-04 0.128 0"}));
}

TEST_F(RatePlans, TakeBothRatesOfMonths) {
    plan({"月份,记帐汇率,调整汇率", "2026.03,7.1,7.2", "2026年4月,7.3,", "5月,,7.4", "6,7.5,7.5"});
    EXPECT_EQ(m_sheet.kind(), RateKind::fixed);
    EXPECT_EQ(changes(), (Texts{"1 2026-03-01 7.1 7.2", "1 2026-04-01 7.3 0", "1 2026-05-01 0 7.4",
                                "1 2026-06-01 7.5 7.5"}));
}

TEST_F(RatePlans, ReadDaysAndMonthsAsSpreadsheetsWriteThem) {
    const auto day = [](const char* text) { return readRateTime(RateKind::floating, text, 2026); };
    for (const char* text : {"2026-03-04", "2026/3/4", "2026.03.04", "2026年3月4日", " 2026-3-4 "})
        EXPECT_EQ(day(text), (Date{2026, 3, 4})) << text;
    for (const char* text : {"", "3-4", "2026-02-30", "2026.03", "4", "x", "2026-03-04-05"})
        EXPECT_EQ(day(text), std::nullopt) << text;
    const auto month = [](const char* text) { return readRateTime(RateKind::fixed, text, 2026); };
    for (const char* text : {"2026-03", "2026.3", "2026年3月", "2026/03/31", "3", "03", "3月"})
        EXPECT_EQ(month(text), (Date{2026, 3, 1})) << text;
    EXPECT_EQ(month("2025.12"), (Date{2025, 12, 1}));
    for (const char* text :
         {"", "13", "0", "2026.", "2026.13", "2026.003", "-3", "x", "3x", "0.3", "7.1", "999.3"})
        EXPECT_EQ(month(text), std::nullopt) << text;
}

TEST_F(RatePlans, TakeNoNumberWithDecimalsForAMonth) {
    plan({"月份,记帐汇率", "#2026.1,7.1", "2026.1,7.2", "#3,7.3"});
    EXPECT_EQ(refusals(), Texts{"第 2 行 A 列:“2026.1”不是月份"});
    EXPECT_EQ(m_plan.rows[1].code, "2026.01");
    EXPECT_EQ(m_plan.rows[2].code, "2026.03");
}

TEST_F(RatePlans, LeaveWhatAnEmptyCellSaysNothingOf) {
    m_stored = 7.1;
    plan({"日期,USD", "2026-03-03,", "2026-03-04,7.2"});
    EXPECT_EQ(m_plan.rows[0].fate, RowFate::unchanged);
    EXPECT_EQ(changes(), Texts{"1 2026-03-04 7.2 0"});
    plan({"日期,USD", "2026-03-03,7.1"});
    EXPECT_EQ(m_plan.rows[0].fate, RowFate::unchanged);
    EXPECT_FALSE(m_plan.changesSomething());
    EXPECT_EQ(changes(), Texts{});
}

TEST_F(RatePlans, RefuseADayThatIsNoneOrOfAnotherYearOrWithoutARow) {
    plan({"日期,USD", "昨天,7", "2025-12-31,7", "2026-03-04,7"});
    EXPECT_EQ(refusals(),
              (Texts{"第 2 行 A 列:“昨天”不是日期", "第 3 行 A 列:不是 2026 年的汇率"}));
    ASSERT_EQ(failureOf({"日期,USD", "2026-03-04,7"}), "");
    RateState state = stateOf(RateKind::floating);
    std::erase_if(state.currencies[0].rows, [](const RateRow& row) { return row.period == 3; });
    m_plan = planRates(m_sheet, m_quotedAs, state);
    EXPECT_EQ(refusals(), Texts{"第 2 行 B 列:帐套中没有 2026.03.04 的 USD 汇率"});
}

TEST_F(RatePlans, RefuseWhatIsNoRate) {
    plan({"日期,USD,100日元", "2026-03-01,七,", "2026-03-02,\"7 1\",", "2026-03-03,0,",
          "2026-03-04,-7,", "2026-03-05,0.00004,", "2026-03-06,1000000000,"});
    EXPECT_EQ(refusals(),
              (Texts{"第 2 行 B 列:“七”不是汇率", "第 3 行 B 列:“\"7 1\"”不是汇率",
                     "第 4 行 B 列:汇率应大于零", "第 5 行 B 列:汇率应大于零",
                     "第 6 行 B 列:汇率只有 4 位小数,舍入后为零", "第 7 行 B 列:汇率太大"}));
    Sheet sheet = cellsOf({"日期,USD", "2026-03-01,x"});
    sheet.rows[1][1] = Cell::of("7,1");
    ASSERT_FALSE(m_sheet.read(sheet, m_records));
    m_plan = planRates(m_sheet, m_quotedAs, stateOf(RateKind::floating));
    EXPECT_EQ(refusals(), Texts{"第 2 行 B 列:“7,1”中的逗号不是小数点"});
}

TEST_F(RatePlans, RefuseAnAdjustmentRateOfADay) {
    plan({"日期,汇率,调整汇率", "2026-03-01,7,", "2026-03-02,7,7.1"});
    EXPECT_EQ(refusals(), Texts{"第 3 行 C 列:浮动汇率的调整汇率不能录入"});
}

TEST_F(RatePlans, RefuseARateThatTwoRowsGive) {
    plan({"日期,币符,汇率", "2026-03-01,USD,7", "2026-03-01,EUR,7", "2026/3/1,usd,7.1"});
    EXPECT_EQ(refusals(), Texts{"第 4 行 C 列:与第 2 行的 USD 汇率重复"});
}

TEST_F(RatePlans, RefuseACurrencyThatIsUnknownOrMissing) {
    plan({"日期,币符,币名,汇率,单位", "2026-03-01,ZZZ,,7,", "2026-03-02,,瑞郎,7,",
          "2026-03-03,,,7,", "2026-03-04,,美元,7,", "2026-03-05,,日元,7,零"});
    EXPECT_EQ(refusals(),
              (Texts{"第 2 行 B 列:没有币符或币名为“ZZZ”的外币",
                     "第 3 行 C 列:没有币符或币名为“瑞郎”的外币", "第 4 行 B 列:没有外币",
                     "第 6 行 E 列:“零”不是单位数,应为 1、100 等"}));
}

TEST_F(RatePlans, AskAboutARateThatDepartsByMoreThanHalfFromTheOneBefore) {
    m_stored = 7;
    plan({"日期,USD", "2026-03-04,71", "2026-03-05,72", "2026-03-06,7.1"});
    EXPECT_EQ(m_plan.rows[0].questions, Texts{"USD 的汇率 71 与之前的 7 相差过半"});
    EXPECT_EQ(m_plan.rows[1].questions, Texts{});
    EXPECT_EQ(m_plan.rows[2].questions, Texts{"USD 的汇率 7.1 与之前的 72 相差过半"});
    EXPECT_TRUE(m_plan.isAcceptable());
}

TEST_F(RatePlans, FailWithoutWhatTheHeadingsMustName) {
    EXPECT_EQ(failureOf({"x,y"}),
              "没有标题行。标题行中应有“日期”或“月份”,以及“记帐汇率”或各外币的币符、币名。");
    EXPECT_EQ(failureOf({"日期,备注"}),
              "没有汇率的列。标题行中应有“记帐汇率”,或各外币的币符、币名。");
    EXPECT_EQ(failureOf({"日期,月份,USD"}), "“日期”和“月份”不能同时作为标题");
    EXPECT_EQ(failureOf({"日期,汇率,USD"}), "有“记帐汇率”的表中,不能再有以外币“USD”为标题的列");
    EXPECT_EQ(failureOf({"日期,USD,美元"}), "标题“美元”与第 2 列指同一种外币");
}

TEST_F(RatePlans, ReadAnExportBackUnchanged) {
    m_stored = 7.1;
    for (const RateKind kind : {RateKind::fixed, RateKind::floating}) {
        m_storedDay = kind == RateKind::fixed ? Date{2026, 10, 1} : Date{2026, 3, 3};
        const RateState state = stateOf(kind);
        const Sheet sheet = exportedRates(kind, m_records[0], state.currencies[0].rows);
        EXPECT_EQ(sheet.rows.size(), 2u);
        EXPECT_EQ(sheet.columns[2].decimals, 4);
        ASSERT_FALSE(m_sheet.read(sheet, m_records));
        m_plan = planRates(m_sheet, m_quotedAs, state);
        ASSERT_EQ(m_plan.rows.size(), 1u);
        EXPECT_EQ(m_plan.rows[0].fate, RowFate::unchanged);
        EXPECT_EQ(m_plan.rows[0].name, "USD 7.1");
    }
}

TEST_F(RatePlans, TakeFiguresPastedBelowEachOtherForTheDaysFromTheCurrentOne) {
    const auto pasted = [this](const Texts& lines, RateKind kind, const Date& from,
                               bool isAdjustment = false) {
        ASSERT_FALSE(
            m_sheet.read(pastedRates(cellsOf(lines), kind, from, isAdjustment), m_records));
        m_plan = planRates(m_sheet, m_quotedAs, stateOf(m_sheet.kind()));
    };
    pasted({"#7.1", "", "#7.2"}, RateKind::floating, {2026, 1, 30});
    EXPECT_EQ(changes(), (Texts{"1 2026-01-30 7.1 0", "1 2026-02-01 7.2 0"}));
    pasted({"#7.1", "#7.2"}, RateKind::fixed, {2026, 11, 1}, true);
    EXPECT_EQ(changes(), (Texts{"1 2026-11-01 0 7.1", "1 2026-12-01 0 7.2"}));
    pasted({"7.1,7.3", "7.2,7.4"}, RateKind::fixed, {2026, 2, 1});
    EXPECT_EQ(changes(), (Texts{"1 2026-02-01 7.1 7.3", "1 2026-03-01 7.2 7.4"}));
    pasted({"#7.1", "#7.2"}, RateKind::fixed, {2026, 12, 1});
    EXPECT_EQ(refusals(), Texts{"第 3 行 A 列:“”不是月份"});
}

TEST_F(RatePlans, TakePastedDaysAndHeadingsAsTheyAre) {
    const auto pasted = [this](const Texts& lines) {
        const Sheet sheet = pastedRates(cellsOf(lines), RateKind::floating, {2026, 1, 30}, false);
        ASSERT_FALSE(m_sheet.read(sheet, m_records));
        m_plan = planRates(m_sheet, m_quotedAs, stateOf(m_sheet.kind()));
    };
    pasted({"2026-03-04,7.1", "2026-03-05,7.2"});
    EXPECT_EQ(changes(), (Texts{"1 2026-03-04 7.1 0", "1 2026-03-05 7.2 0"}));
    pasted({"日期,EUR", "2026-03-04,0.128"});
    EXPECT_EQ(changes(), Texts{"3 2026-03-04 0.128 0"});
    const Sheet months =
        pastedRates(cellsOf({"7,7.05", "8,8.05"}), RateKind::fixed, {2026, 1, 1}, false);
    ASSERT_FALSE(m_sheet.read(months, m_records));
    m_plan = planRates(m_sheet, m_quotedAs, stateOf(RateKind::fixed));
    EXPECT_EQ(changes(), (Texts{"1 2026-01-01 7 7.05", "1 2026-02-01 8 8.05"}))
        << "whole rates are no months";
    EXPECT_TRUE(pastedRates({}, RateKind::fixed, {2026, 1, 1}, false).rows.empty());
}

TEST_F(RatePlans, TellColumnsThatWerePastedBeyondTheirPlace) {
    ASSERT_FALSE(m_sheet.read(
        pastedRates(cellsOf({"7.1,7.2,7.3"}), RateKind::fixed, {2026, 1, 1}, false), m_records));
    m_plan = planRates(m_sheet, m_quotedAs, stateOf(RateKind::fixed));
    EXPECT_EQ(changes(), Texts{"1 2026-01-01 7.1 7.2"});
    EXPECT_EQ(m_plan.ignored, Texts{"第 3 列"});
    ASSERT_FALSE(m_sheet.read(
        pastedRates(cellsOf({"7.1,7.2"}), RateKind::fixed, {2026, 1, 1}, true), m_records));
    m_plan = planRates(m_sheet, m_quotedAs, stateOf(RateKind::fixed));
    EXPECT_EQ(changes(), Texts{"1 2026-01-01 0 7.1"});
    EXPECT_EQ(m_plan.ignored, Texts{"第 2 列"});
}

TEST_F(RatePlans, RefuseToPasteAtTheAdjustmentRatesOfDays) {
    ASSERT_FALSE(m_sheet.read(
        pastedRates(cellsOf({"#7.1"}), RateKind::floating, {2026, 1, 1}, true), m_records));
    m_plan = planRates(m_sheet, m_quotedAs, stateOf(RateKind::floating));
    EXPECT_EQ(refusals(), Texts{"第 2 行 C 列:浮动汇率的调整汇率不能录入"});
}
