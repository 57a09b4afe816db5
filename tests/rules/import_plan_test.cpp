#include "accounts/transfer/import_plan.h"

#include <gtest/gtest.h>

#include <fmt/format.h>

#include "data/tables/accounts.h"
#include "data/tables/currency.h"
#include "sheets/delimited/delimited_text.h"

using namespace chengheng;

namespace {

_CodeInfo account(int id, const std::string& code, const std::string& name, int grade,
                  bool isEnd = true) {
    _CodeInfo made;
    made.lId = id;
    made.sCode = code;
    made.sName = name;
    made.sType = "资产";
    made.byGrade = static_cast<std::uint8_t>(grade);
    made.bEnd = isEnd ? 1 : 0;
    made.bDirect = 1;
    made.sPage = "金额式";
    return made;
}

/// 1001 with 100101 below it (mnemonic RMB), 1002, and 2202, a liability.
ChartState books() {
    ChartState state;
    state.levelPattern = "4222";
    state.classes = {{1, 1, "资产", 1}, {2, 2, "负债", 0}};
    _CyrencyInfo& dollar = state.currencies.emplace_back();
    dollar.lId = 3;
    dollar.sExchCode = "USD";
    dollar.sExchName = "美元";
    state.accounts = {account(1, "1001", "现金", 1, false), account(2, "100101", "人民币", 2),
                      account(3, "1002", "存款", 1), account(4, "2202", "应付", 1)};
    state.accounts[1].sHelp = "RMB";
    state.accounts[3].sType = "负债";
    state.accounts[3].bDirect = 0;
    return state;
}

void use(ChartState& state, UsePlace place, int accountId) {
    state.usedIn[static_cast<std::size_t>(place)].insert(accountId);
}

ImportPlan plan(const ChartState& state, const std::string& csv) {
    Sheet sheet;
    ChartSheet chart;
    EXPECT_FALSE(readCsv(csv, sheet));
    EXPECT_FALSE(readChartSheet(sheet, chart));
    return planImport(chart, state);
}

/// "2 新增 1003 | 3 拒绝 10: 第 3 行 A 列:不符合科目编码规则"
std::string fates(const ImportPlan& plan) {
    std::string text;
    for (const PlannedRow& row : plan.rows) {
        text += fmt::format("{}{} {} {}", text.empty() ? "" : " | ", row.row, fateTitle(row.fate),
                            row.code);
        if (!row.reason.empty()) text += ": " + refusalText(row);
        for (const std::string& question : row.questions) text += " ? " + question;
    }
    return text;
}

std::string fates(const std::string& csv) { return fates(plan(books(), csv)); }

/// The only row's refusal.
std::string refusal(const std::string& csv) {
    const ImportPlan made = plan(books(), csv);
    EXPECT_EQ(made.rows.size(), 1u);
    EXPECT_FALSE(made.isAcceptable());
    return made.rows.empty() ? "" : refusalText(made.rows.front());
}

}  // namespace

TEST(ImportPlans, TellNewChangedAndUnchangedRowsApart) {
    const ImportPlan made = plan(books(),
                                 "code,name,class\n1001,现金,资产\n1002,银行存款,资产\n"
                                 "1003,其他,资产\n");
    EXPECT_EQ(fates(made), "2 不变 1001 | 3 修改 1002 | 4 新增 1003");
    ASSERT_EQ(made.added.size(), 1u);
    _CodeInfo other = account(0, "1003", "其他", 1);
    other.sHelp = "QT";
    EXPECT_EQ(made.added[0], other);
    ASSERT_EQ(made.changed.size(), 1u);
    EXPECT_EQ(made.changed[0], account(3, "1002", "银行存款", 1));
    EXPECT_TRUE(made.isAcceptable());
}

TEST(ImportPlans, NameTheCellOfARefusalByItsColumn) {
    const ImportPlan made = plan(books(), "code,name,class\n1003,甲,无\n1004,乙,资产\n");
    EXPECT_EQ(refusedPlace(made.rows[0]), "C2 科目类型");
    EXPECT_EQ(refusedPlace(made.rows[1]), "");
}

TEST(ImportPlans, FollowTheOrderOfCodesWhereverRowsStand) {
    const ImportPlan made = plan(books(), "code,name\n10020101,美元户\n100202,农行\n100201,工行\n");
    EXPECT_EQ(fates(made), "2 新增 10020101 | 3 新增 100202 | 4 新增 100201");
    ASSERT_EQ(made.added.size(), 3u);
    EXPECT_EQ(made.added[0].sCode, "100201");
    EXPECT_EQ(made.added[0].bEnd, 0);
    EXPECT_EQ(made.added[0].sType, "资产") << "the class of its parent";
    EXPECT_EQ(made.added[1].sCode, "10020101");
    EXPECT_EQ(made.added[1].byGrade, 3);
    ASSERT_EQ(made.changed.size(), 1u);
    EXPECT_EQ(made.changed[0].sCode, "1002");
    EXPECT_EQ(made.changed[0].bEnd, 0) << "it got its first child";
}

TEST(ImportPlans, RefuseByTheRulesOfAnAdditionAtRowAndColumn) {
    const std::string heading = "name,code,class,mnemonic,currency,quantity,unit\n";
    EXPECT_EQ(refusal(heading + "甲,,资产,,,,\n"), "第 2 行 B 列:必须输入科目编码");
    EXPECT_EQ(refusal(heading + "甲,1 03,资产,,,,\n"), "第 2 行 B 列:科目编码不能包含空格!");
    EXPECT_EQ(refusal(heading + "甲,10030,资产,,,,\n"), "第 2 行 B 列:不符合科目编码规则");
    EXPECT_EQ(refusal(heading + "甲,100301,资产,,,,\n"), "第 2 行 B 列:必须先定义上级科目编码");
    EXPECT_EQ(refusal(heading + ",1003,资产,,,,\n"), "第 2 行 A 列:必须输入科目名称");
    EXPECT_EQ(refusal(heading + "甲,1003,资产,rmb,,,\n"), "第 2 行 D 列:助记码必须唯一");
    EXPECT_EQ(refusal(heading + "甲,1003,资产,,,是,\n"), "第 2 行 G 列:请输入计量单位.");
}

TEST(ImportPlans, RefuseCellsThatCannotBeUnderstood) {
    const std::string heading = "code,name,class,direction,currency,quantity,partner\n";
    EXPECT_EQ(refusal(heading + "1003,甲,权益,,,,\n"), "第 2 行 C 列:没有“权益”这个科目类型。");
    EXPECT_EQ(refusal(heading + "1003,甲,,,,,\n"), "第 2 行 C 列:没有科目类型。");
    EXPECT_EQ(refusal(heading + "1003,甲,资产,左,,,\n"),
              "第 2 行 D 列:“左”不是余额方向,应为借或贷。");
    EXPECT_EQ(refusal(heading + "1003,甲,资产,,XYZ,,\n"), "第 2 行 E 列:没有“XYZ”这个币种。");
    EXPECT_EQ(refusal(heading + "1003,甲,资产,,,或,\n"), "第 2 行 F 列:“或”应为是或否。");
    EXPECT_EQ(refusal(heading + "1003,甲,资产,,,,或\n"), "第 2 行 G 列:“或”应为是或否。");
    EXPECT_EQ(refusal(heading + "10030,甲,权益,,,,\n"), "第 2 行 A 列:不符合科目编码规则")
        << "the code before everything else";
}

TEST(ImportPlans, RefuseACodeThatStandsTwice) {
    EXPECT_EQ(fates("code,name,class\n1003,甲,资产\n1003,乙,资产\n"),
              "2 新增 1003 | 3 拒绝 1003: 第 3 行 A 列:科目编码不唯一");
}

TEST(ImportPlans, RefuseAParentInUse) {
    ChartState state = books();
    use(state, UsePlace::posted, 3);
    EXPECT_EQ(fates(plan(state, "code,name\n100201,工行\n10020101,户\n")),
              "2 拒绝 100201: 第 2 行 A 列:科目 1002 在[已记帐凭证]中已使用,不能增加下级科目! | "
              "3 拒绝 10020101: 第 3 行 A 列:必须先定义上级科目编码");
}

TEST(ImportPlans, CountOnlyAnOpeningBalanceAsUseOfAParentsSums) {
    ChartState state = books();
    use(state, UsePlace::sums, 3);
    EXPECT_TRUE(plan(state, "code,name\n100201,工行\n").isAcceptable());
    state.withOpening.insert(3);
    EXPECT_FALSE(plan(state, "code,name\n100201,工行\n").isAcceptable());
}

TEST(ImportPlans, NoteWhatTheDialogWouldAsk) {
    ChartState state = books();
    use(state, UsePlace::posted, 4);
    const ImportPlan made = plan(state,
                                 "code,name,class,partner\n2001,借款,资产,\n2202,,负债,是\n"
                                 "2202,应付,负债,是\n");
    EXPECT_EQ(fates(plan(state, "code,name,class,partner\n2001,借款,资产,\n2202,应付,负债,是\n")),
              "2 新增 2001 ? 科目编码首位和分类编号不符,接受此编码吗? | 3 修改 2202 ? 科目 2202 "
              "在[已记帐凭证]中已使用,修改辅助核算可能导致数据错误,是否继续?");
    EXPECT_EQ(made.count(RowFate::refused), 2u);
}

TEST(ImportPlans, LeaveWhatNoColumnSaysAsItIs) {
    ChartState state = books();
    state.accounts[2].byExchId = 3;
    state.accounts[2].bAmount = 1;
    state.accounts[2].sUnit = "张";
    state.accounts[2].sAssBook = "ER";
    state.accounts[2].bBank = 1;
    state.accounts[2].sHelp = "YHCK";
    EXPECT_EQ(fates(plan(state, "code,name\n1002,存款\n")), "2 不变 1002");
    const ImportPlan made = plan(state, "code,name\n1002,银行\n");
    _CodeInfo expected = state.accounts[2];
    expected.sName = "银行";
    EXPECT_EQ(made.changed, std::vector{expected});
}

TEST(ImportPlans, TakeAnEmptyCellForNothing) {
    ChartState state = books();
    state.accounts[2].byExchId = 3;
    state.accounts[2].sAssBook = "B";
    state.accounts[2].sHelp = "YHCK";
    const ImportPlan made = plan(state, "code,name,mnemonic,currency,partner\n1002,存款,,,\n");
    EXPECT_EQ(made.changed, std::vector{books().accounts[2]});
}

TEST(ImportPlans, ReadCurrenciesBySymbolOrNameAndMnemonicsInCapitals) {
    const ImportPlan made = plan(books(),
                                 "code,name,class,currency,mnemonic\n1003,甲,资产,usd,jia\n"
                                 "1004,乙,资产,美元,\n");
    ASSERT_EQ(made.added.size(), 2u);
    EXPECT_EQ(made.added[0].byExchId, 3);
    EXPECT_EQ(made.added[0].sHelp, "JIA");
    EXPECT_EQ(made.added[1].byExchId, 3);
}

TEST(ImportPlans, TakeAUnitAloneForQuantityAccountingAndAnEmptyOneForNone) {
    const auto made = plan(books(), "code,name,class,unit\n1003,甲,资产, 吨 \n1004,乙,资产,\n");
    ASSERT_EQ(made.added.size(), 2u);
    EXPECT_EQ(made.added[0].bAmount, 1);
    EXPECT_EQ(made.added[0].sUnit, "吨");
    EXPECT_EQ(made.added[1].bAmount, 0);
    EXPECT_EQ(made.added[1].sUnit, "");
    ChartState state = books();
    state.accounts[2].bAmount = 1;
    state.accounts[2].sUnit = "吨";
    const auto taken = plan(state, "code,name,unit\n1002,存款,\n");
    ASSERT_EQ(taken.changed.size(), 1u);
    EXPECT_EQ(taken.changed[0].bAmount, 0);
    EXPECT_EQ(taken.changed[0].sUnit, "");
}

TEST(ImportPlans, BelieveTheQuantityColumnMoreThanAUnit) {
    const auto made = plan(books(), "code,name,class,quantity,unit\n1003,甲,资产,否,吨\n");
    ASSERT_EQ(made.added.size(), 1u);
    EXPECT_EQ(made.added[0].bAmount, 0);
    EXPECT_EQ(made.added[0].sUnit, "");
}

TEST(ImportPlans, UnderstandEveryWordForYesAndNo) {
    const auto quantityOf = [](const std::string& word) {
        const auto made = plan(books(), "code,name,class,quantity,unit,person\n1003,甲,资产," +
                                            word + ",吨," + word + "\n");
        if (made.added.size() != 1) return -1;
        EXPECT_EQ(made.added[0].sAssBook, made.added[0].bAmount == 1 ? "A" : "");
        return int{made.added[0].bAmount};
    };
    for (const char* yes : {"是", "√", "1", "y", "Y", "yes", "YES", "true", "True", " 是 "})
        EXPECT_EQ(quantityOf(yes), 1) << yes;
    for (const char* no : {"否", "", " ", "0", "n", "N", "no", "No", "false", "FALSE"})
        EXPECT_EQ(quantityOf(no), 0) << no;
    for (const char* other : {"2", "是的", "yess", "t"}) EXPECT_EQ(quantityOf(other), -1) << other;
}

TEST(ImportPlans, ReadEachAuxiliaryColumnAndThePage) {
    const std::string heading =
        "code,name,class,page,person,partner,department,project,journal,bank";
    const std::string letters = "ABCDRE";
    for (std::size_t at = 0; at < letters.size(); ++at) {
        std::string row = "1003,甲,资产, 数量金额式 ";
        for (std::size_t cell = 0; cell < letters.size(); ++cell) row += cell == at ? ",是" : ",否";
        const auto made = plan(books(), heading + "\n" + row + "\n");
        ASSERT_EQ(made.added.size(), 1u);
        EXPECT_EQ(made.added[0].sAssBook, letters.substr(at, 1));
        EXPECT_EQ(made.added[0].sPage, "数量金额式");
    }
}

TEST(ImportPlans, LetARowTakeAMnemonicThatOneBeforeItGaveUp) {
    ChartState state = books();
    state.accounts[2].sHelp = "AAA";
    const std::string heading = "code,name,class,mnemonic\n1002,存款,资产,BBB\n";
    EXPECT_EQ(fates(plan(state, heading + "1003,甲,资产,AAA\n")), "2 修改 1002 | 3 新增 1003");
    EXPECT_EQ(fates(plan(state, heading + "1003,甲,资产,BBB\n")),
              "2 修改 1002 | 3 拒绝 1003: 第 3 行 D 列:助记码必须唯一");
}

TEST(ImportPlans, TellACellThatCannotBeUnderstoodBeforeAMissingName) {
    EXPECT_EQ(refusal("code,name,class\n1003,,权益\n"), "第 2 行 C 列:没有“权益”这个科目类型。");
    EXPECT_EQ(refusal("code,name,class\n1002,,权益\n"), "第 2 行 C 列:没有“权益”这个科目类型。");
}

TEST(ImportPlans, RefuseToChangeAnAccountWhoseCurrencyIsGone) {
    ChartState state = books();
    state.accounts[2].byExchId = 9;
    const auto made = plan(state, "code,name\n1002,新名\n");
    ASSERT_EQ(made.count(RowFate::refused), 1u);
    EXPECT_EQ(made.rows[0].column, 0u);
    EXPECT_EQ(refusedPlace(made.rows[0]), "");
    EXPECT_EQ(fates(plan(state, "code,name\n1002,存款\n")), "2 不变 1002");
}

TEST(ImportPlans, KeepTheDirectionOfAnAccountThatIsThere) {
    EXPECT_EQ(refusal("code,name,direction\n1002,存款,贷\n"),
              "第 2 行 C 列:余额方向与帐套中的不同。请在期初余额中调整方向。");
    const ImportPlan made = plan(books(), "code,name,class,direction\n1231,坏账,资产,贷\n");
    EXPECT_EQ(made.added[0].bDirect, 0);
}

TEST(ImportPlans, TakeTheIndentationOffANameButNotItsOwnBlanks) {
    ChartState state = books();
    state.accounts[1].sName = " 人民币";
    EXPECT_EQ(fates(plan(state, "code,name\n100101,\"   人民币\"\n100102,\"      美元\"\n")),
              "2 不变 100101 | 3 新增 100102");
    EXPECT_EQ(plan(state, "code,name\n100102,\"   美元\"\n").added[0].sName, "美元");
}

TEST(ImportPlans, OfAnExportedChartChangeNothing) {
    ChartState state = books();
    state.accounts[0].sAssBook = "RE";
    state.accounts[1].sHelp = "rmb";
    state.accounts[2].byExchId = 3;
    state.accounts[2].bAmount = 1;
    ChartSheet chart;
    ASSERT_FALSE(readChartSheet(chartSheet(state.accounts, state.currencies), chart));
    const ImportPlan made = planImport(chart, state);
    EXPECT_EQ(made.count(RowFate::unchanged), 4u) << fates(made);
    EXPECT_TRUE(made.added.empty());
    EXPECT_TRUE(made.changed.empty());
}

TEST(ImportPlans, AddBelowADesignatedAccountWhatItsDesignationWouldHaveGiven) {
    ChartState state = books();
    state.accounts[2].bBank = 1;
    state.accounts[2].sAssBook = "BRE";
    const ImportPlan made = plan(state, "code,name\n100201,工行\n10020101,户\n220201,甲\n");
    ASSERT_EQ(made.added.size(), 3u);
    EXPECT_EQ(made.added[0].bBank, 1);
    EXPECT_EQ(made.added[0].sAssBook, "RE");
    EXPECT_EQ(made.added[1].bBank, 1);
    EXPECT_EQ(made.added[1].sAssBook, "RE");
    EXPECT_EQ(made.added[2].bBank, 0);
    EXPECT_EQ(made.added[2].sAssBook, "");
    const ImportPlan told = plan(state, "code,name,journal,bank\n100201,工行,否,是\n");
    ASSERT_EQ(told.added.size(), 1u) << fates(told);
    EXPECT_EQ(told.added[0].sAssBook, "E") << "as its row says";
    EXPECT_EQ(told.added[0].bBank, 1);
}

TEST(ImportPlans, GiveNewAccountsTheMnemonicThatTheDialogWouldPropose) {
    const auto mnemonics = [](const ImportPlan& made) {
        std::string text;
        for (const _CodeInfo& account : made.added) text += " " + account.sHelp;
        return text;
    };
    EXPECT_EQ(mnemonics(plan(books(), "code,name,class\n1003,运费,资产\n1004,运费,资产\n")),
              " YF YF2");
    EXPECT_EQ(mnemonics(plan(books(), "code,name\n100102,人民币\n")), " RMB2") << "RMB is taken";
    EXPECT_EQ(mnemonics(plan(books(),
                             "code,name,class,mnemonic\n1003,运费,资产,\n1004,医药费,资产, yf \n"
                             "1005,运费,资产,\n1006,——,资产,\n")),
              " YF2 YF YF3 ")
        << "what a later row gives is that row's";
}

TEST(ImportPlans, OfAFileWithoutMnemonicsChangeNothingTheSecondTime) {
    const std::string csv = "code,name,class,mnemonic\n1003,运费,资产,\n1004,运费,资产,\n";
    ChartState state = books();
    for (_CodeInfo added : plan(state, csv).added) {
        added.lId = static_cast<int>(state.accounts.size()) + 1;
        state.accounts.push_back(added);
    }
    EXPECT_EQ(fates(plan(state, csv)), "2 不变 1003 | 3 不变 1004");
}

TEST(ImportPlans, TakeWildcardsInCodesAsTheyStand) {
    EXPECT_EQ(fates("code,name,class\n10%_,甲,资产\n10%_01,乙,\n"), "2 新增 10%_ | 3 新增 10%_01");
}

TEST(ImportPlans, RefuseEverythingWhenTheBooksHaveNoPattern) {
    ChartState state = books();
    state.levelPattern.clear();
    EXPECT_FALSE(plan(state, "code,name,class\n1003,甲,资产\n").isAcceptable());
}
