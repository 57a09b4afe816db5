#include "vouchertype/tester/trial_voucher.h"

#include <gtest/gtest.h>

#include "vouchertype/tester/trial_sheet.h"

using namespace chengheng;

namespace {

using Texts = std::vector<std::string>;
using TrialLines = std::vector<TrialLine>;

TrialBooks trialBooks() {
    return {.types = {{1, "收", "收款凭证", 1, "1001", "1002"},
                      {2, "转", "转帐凭证", 3, "1001", "1002"},
                      {3, "记", "记帐凭证", 0, "", ""}},
            .accounts = {{"1001", "库存现金"},
                         {"1002", "银行存款"},
                         {"100201", "工商银行"},
                         {"5001", "主营业务收入"}},
            .levels = CodeLevels("4222")};
}

TrialResult tried(const TrialLines& lines) { return tryVoucher(lines, trialBooks()); }

/// The faults of one line.
Texts faultsOf(const char* account, const char* debit, const char* credit) {
    return tried({{3, account, debit, credit}}).faults;
}

/// Each type with what is said of it.
Texts verdicts(const TrialResult& result) {
    Texts texts;
    for (const TypeVerdict& verdict : result.verdicts)
        texts.push_back((verdict.isAllowed ? "+" : "-") + verdict.type.sSign + ' ' + verdict.words);
    return texts;
}

TrialLines linesIn(std::vector<std::vector<std::string>> rows) {
    Sheet sheet;
    for (const auto& row : rows) {
        SheetRow cells;
        for (const std::string& text : row) cells.push_back(Cell::of(text));
        sheet.rows.push_back(std::move(cells));
    }
    TrialLines lines;
    const auto failure = readTrialLines(sheet, lines);
    EXPECT_FALSE(failure) << failure->text();
    return lines;
}

}  // namespace

TEST(TrialVoucher, SaysOfEachTypeWhetherTheVoucherMayBeOfIt) {
    const TrialResult result = tried({{1, "100201", "1,000.00", ""}, {2, "5001", "", "1000"}});
    EXPECT_EQ(result.faults, Texts{});
    EXPECT_EQ(result.notes, Texts{});
    EXPECT_EQ(verdicts(result),
              (Texts{"+收 借方必有 1001 库存现金 或 1002 银行存款",
                     "-转 借贷必无 1001 库存现金 或 1002 银行存款:第 1 行借方 100201 工商银行",
                     "+记 不限制"}));
    EXPECT_EQ(result.verdicts[1].lines, std::vector<int>{1});
}

TEST(TrialVoucher, TakesTheCodeInFrontOfAName) {
    EXPECT_EQ(accountIn(trialBooks(), "1001 库存现金"), "1001");
    EXPECT_EQ(accountIn(trialBooks(), "1001　库存 现金"), "1001") << "a wide blank";
    EXPECT_EQ(accountIn(trialBooks(), " 100201 "), "100201");
    EXPECT_EQ(accountIn(trialBooks(), "库存现金"), "");
    EXPECT_EQ(accountIn(trialBooks(), ""), "");
}

TEST(TrialVoucher, TellsWhichTypesNameAccountsThatRestrictNothing) {
    TrialBooks books = trialBooks();
    books.types = {{1, "转", "转帐凭证", 3, "100201", "1009"},
                   {2, "收", "收款凭证", 1, "1001", ""},
                   {3, "记", "记帐凭证", 0, "1009", ""}};
    const TrialResult result =
        tryVoucher(TrialLines{{1, "100201", "1", ""}, {2, "1001", "", "1"}}, books);
    EXPECT_EQ(result.notes, (Texts{"凭证类别 转 的限制科目“100201”不是一级科目,不起作用",
                                   "凭证类别 转 的限制科目“1009”不是一级科目,不起作用"}));
    EXPECT_EQ(result.verdicts.size(), 3u);
}

TEST(TrialVoucher, SaysWhichLineCannotBeReadAndNothingOfTheTypes) {
    EXPECT_EQ(faultsOf("", "1", ""), Texts{"第 3 行没有科目"});
    EXPECT_EQ(faultsOf("  ", "1", ""), Texts{"第 3 行没有科目"});
    EXPECT_EQ(faultsOf("9999", "1", ""), Texts{"第 3 行:没有科目“9999”"});
    EXPECT_EQ(faultsOf("1001", "12x", ""), Texts{"第 3 行:“12x”不是金额"});
    EXPECT_EQ(faultsOf("1001", "", "1,00"), Texts{"第 3 行:“1,00”不是金额"});
    EXPECT_EQ(faultsOf("1001", "1", "2"), Texts{"第 3 行借方和贷方都有金额"});
    EXPECT_EQ(faultsOf("9999", "x", "y"),
              (Texts{"第 3 行:没有科目“9999”", "第 3 行:“x”不是金额", "第 3 行:“y”不是金额"}));
    const TrialResult result = tried({{1, "1001", "5", ""}, {2, "9999", "", "5"}});
    EXPECT_EQ(result.faults, Texts{"第 2 行:没有科目“9999”"});
    EXPECT_EQ(verdicts(result), Texts{});
    EXPECT_EQ(result.notes, Texts{}) << "an unread line is not why it does not balance";
}

TEST(TrialVoucher, LeavesALineThatHasNoAmountYetAside) {
    const TrialResult result =
        tried({{1, "1001", "", ""}, {2, "5001", "5", ""}, {3, "5001", "", "5"}});
    EXPECT_EQ(result.notes, Texts{"第 1 行没有金额,不算"});
    EXPECT_EQ(verdicts(result)[0],
              "-收 借方必有 1001 库存现金 或 1002 银行存款:借方只有第 2 行 5001 主营业务收入");
    EXPECT_TRUE(result.verdicts[1].isAllowed);
}

TEST(TrialVoucher, PutsAZeroOnTheSideWhereItStands) {
    EXPECT_EQ(verdicts(tried({{1, "1001", "0", ""}}))[0],
              "-收 借方必有 1001 库存现金 或 1002 银行存款:第 1 行 1001 库存现金没有金额,不算");
    EXPECT_EQ(verdicts(tried({{1, "1001", "", "0.00"}}))[0],
              "-收 借方必有 1001 库存现金 或 1002 银行存款:借方没有分录");
    EXPECT_EQ(verdicts(tried({{1, "1001", "0", "5"}}))[0],
              "-收 借方必有 1001 库存现金 或 1002 银行存款:借方没有分录");
    EXPECT_EQ(verdicts(tried({{1, "1001", "5", "0"}}))[0],
              "+收 借方必有 1001 库存现金 或 1002 银行存款");
}

TEST(TrialVoucher, TellsThatTheSidesDiffer) {
    EXPECT_EQ(tried({{1, "1001", "1000.1", ""}, {2, "5001", "", "1000"}}).notes,
              Texts{"借方合计 1,000.10,贷方合计 1,000.00,不平"});
    EXPECT_EQ(tried({{1, "1001", "0.1", ""}, {2, "1001", "0.2", ""}, {3, "5001", "", "0.3"}}).notes,
              Texts{});
    EXPECT_EQ(tried({{1, "1001", "-5", ""}, {2, "5001", "", "-5"}}).notes, Texts{}) << "red ink";
}

TEST(TrialVoucher, SaysThatThereIsNothingToTry) {
    EXPECT_EQ(tried({}).notes, Texts{"没有分录"});
    EXPECT_EQ(tried({{1, "", "", ""}}).notes, Texts{"没有分录"});
    EXPECT_EQ(verdicts(tried({})), Texts{});
    TrialBooks books = trialBooks();
    books.types.clear();
    EXPECT_EQ(tryVoucher(TrialLines{{1, "1001", "5", ""}, {2, "5001", "", "5"}}, books).notes,
              Texts{"还没有凭证类别"});
}

TEST(TrialSheet, ReadsAccountDebitAndCreditByTheirHeadings) {
    const TrialLines expected{{2, "1001", "5", ""}, {3, "5001", "", "5"}};
    EXPECT_EQ(linesIn({{"科目编码", "借方", "贷方"}, {"1001", "5"}, {"5001", "", "5"}}), expected);
    EXPECT_EQ(linesIn({{"贷方金额", "摘要", "科目", "借方金额"},
                       {"", "收款", "1001", "5"},
                       {"5", "收款", "5001", ""}}),
              expected);
    EXPECT_EQ(linesIn({{"Account", "DEBIT", "credit"}, {"1001", "5"}, {"5001", "", "5"}}),
              expected);
}

TEST(TrialSheet, ReadsAccountSideAndAmount) {
    const TrialLines expected{{2, "1001", "5", ""}, {3, "5001", "", "5"}};
    EXPECT_EQ(linesIn({{"科目编码", "方向", "金额"}, {"1001", "借", "5"}, {"5001", "贷方", "5"}}),
              expected);
    EXPECT_EQ(linesIn({{}, {"1001", "借方", "5"}, {"5001", "贷", "5"}}), expected);
}

TEST(TrialSheet, TakesColumnsWithoutHeadingsInTheirOrder) {
    EXPECT_EQ(linesIn({{"1001", "5", ""}, {"5001", "", "5"}}),
              (TrialLines{{1, "1001", "5", ""}, {2, "5001", "", "5"}}));
}

TEST(TrialSheet, LeavesBlankRowsOutAndKeepsTheNumbersOfTheOthers) {
    EXPECT_EQ(linesIn({{"1001", " 5 "}, {}, {" ", ""}, {"5001", "", "5"}, {}}),
              (TrialLines{{1, "1001", "5", ""}, {4, "5001", "", "5"}}));
    EXPECT_EQ(linesIn({}), TrialLines{});
}

TEST(TrialSheet, FailsWhereAHeadingStandsTwice) {
    Sheet sheet;
    SheetRow headings;
    for (const char* heading : {"科目编码", "借方", "借方", "贷方"})
        headings.push_back(Cell::of(std::string(heading)));
    sheet.rows = {headings};
    TrialLines lines;
    const auto failure = readTrialLines(sheet, lines);
    ASSERT_TRUE(failure.has_value());
    EXPECT_EQ(failure->row, 1u);
    EXPECT_EQ(failure->column, 3u);
}
