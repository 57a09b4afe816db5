#include "vouchertype/transfer/voucher_type_plan.h"

#include <gtest/gtest.h>

#include "sheets/delimited/delimited_text.h"
#include "vouchertype/transfer/voucher_type_sheet.h"

namespace {

using namespace chengheng;

/// Types of the books and what becomes of sheets that are held against them.
class VoucherTypePlans : public testing::Test {
  protected:
    using Lines = std::vector<std::string>;

    static HeadedSheet read(Sheet sheet) {
        HeadedSheet headed;
        const auto failure = headed.read(std::move(sheet), voucher_type_columns::wanted);
        EXPECT_FALSE(failure) << failure->text();
        return headed;
    }
    static Sheet sheetOf(const std::string& csv) {
        Sheet sheet;
        EXPECT_FALSE(readCsv(csv, sheet));
        return sheet;
    }
    VoucherTypePlan plan(const std::string& csv) const {
        return planVoucherTypes(read(sheetOf(csv)), m_state);
    }
    /// "2 新增", "3 拒绝 第 3 行 A 列:..."
    Lines fates(const std::string& csv) const {
        Lines lines;
        for (const PlannedRow& row : plan(csv).rows) {
            lines.push_back(std::to_string(row.row) + " " + fateTitle(row.fate));
            if (row.fate == RowFate::refused) lines.back() += " " + refusalText(row);
        }
        return lines;
    }

    VoucherTypeState m_state{{{1, "收", "收款凭证", 1, "1001", "1002"},
                              {2, "记", "记帐凭证", 0, "", ""},
                              {3, "特", "特种凭证", 7, "1001", "1012"}},
                             {"1001", "1002", "1012"}};
};

TEST_F(VoucherTypePlans, AddModifyAndLeaveTypesByTheirNumber) {
    const VoucherTypePlan made = plan(
        "类别,名称,限制,科目一,科目二\n收,收款凭证,借方必有,1001,1002\n记,凭证,无,,\n"
        "付,付款凭证,贷方必有,1001,1012\n转,转帐凭证,借贷必无,1002,1001\n通,通用,,,\n");
    Lines ends;
    for (const PlannedRow& row : made.rows)
        ends.push_back(row.code + row.name + fateTitle(row.fate));
    EXPECT_EQ(ends, (Lines{"收收款凭证不变", "记凭证修改", "付付款凭证新增", "转转帐凭证新增",
                           "通通用新增"}));
    EXPECT_EQ(made.changed, (std::vector<_SignInfo>{{2, "记", "凭证", 0}}));
    EXPECT_EQ(made.added, (std::vector<_SignInfo>{{0, "付", "付款凭证", 2, "1001", "1012"},
                                                  {0, "转", "转帐凭证", 3, "1002", "1001"},
                                                  {0, "通", "通用", 0}}));
    EXPECT_TRUE(made.isAcceptable());
}

TEST_F(VoucherTypePlans, ReadColumnsInAnyOrderBelowTitlesAndTellThoseThatMeanNothing) {
    const VoucherTypePlan made =
        plan("凭证类别\n科目二,备注,限制,名称,类别\n1012,x,借贷必无,特种凭证,特\n");
    EXPECT_EQ(made.ignored, Lines{"备注"});
    EXPECT_EQ(made.changed, (std::vector<_SignInfo>{{3, "特", "特种凭证", 3, "1001", "1012"}}));
    EXPECT_EQ(made.rows.front().row, 3u);
}

TEST_F(VoucherTypePlans, TakeNoSheetWithoutNumbers) {
    HeadedSheet headed;
    const auto failure = headed.read(sheetOf("名称\n甲\n"), voucher_type_columns::wanted);
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->text(), "第 1 行:没有标题行。标题行中应有“类别”。");
}

TEST_F(VoucherTypePlans, LeaveWhatAMissingColumnOrAnEmptyRestrictionWouldSay) {
    EXPECT_EQ(plan("类别,名称\n收,收入\n").changed,
              (std::vector<_SignInfo>{{1, "收", "收入", 1, "1001", "1002"}}));
    EXPECT_EQ(fates("类别\n收\n记\n特\n"), (Lines{"2 不变", "3 不变", "4 不变"}));
    EXPECT_EQ(fates("类别,名称,限制,科目一,科目二\n收,收款凭证,,,\n"), Lines{"2 不变"});
    EXPECT_EQ(plan("类别,科目二\n收,1012\n").changed,
              (std::vector<_SignInfo>{{1, "收", "收款凭证", 1, "1001", "1012"}}));
    EXPECT_EQ(plan("类别,限制\n收,借贷必无\n").changed,
              (std::vector<_SignInfo>{{1, "收", "收款凭证", 3, "1001", "1002"}}));
}

TEST_F(VoucherTypePlans, DropTheAccountsOfARestrictionThatEnds) {
    EXPECT_EQ(plan("类别,限制\n收,无\n").changed,
              (std::vector<_SignInfo>{{1, "收", "收款凭证", 0}}));
    EXPECT_EQ(fates("类别,限制,科目一\n收,无,1001\n"),
              Lines{"2 拒绝 第 2 行 C 列:没有限制的类别不能有限制科目"});
    EXPECT_EQ(fates("类别,名称,科目二\n新,新,1001\n记,记,1001\n"),
              (Lines{"2 拒绝 第 2 行 C 列:没有限制的类别不能有限制科目",
                     "3 拒绝 第 3 行 C 列:没有限制的类别不能有限制科目"}));
}

TEST_F(VoucherTypePlans, TakeARestrictionWithAccountOneAloneAsPresetsHaveIt) {
    EXPECT_EQ(plan("类别,名称,限制,科目一,科目二\n01,现金收款,借方必有,1001,\n").added,
              (std::vector<_SignInfo>{{0, "01", "现金收款", 1, "1001", ""}}));
    EXPECT_EQ(plan("类别,名称,限制,科目一\n01,现金收款,借方必有,1001\n").added,
              (std::vector<_SignInfo>{{0, "01", "现金收款", 1, "1001", ""}}));
    EXPECT_EQ(plan("类别,限制,科目一,科目二\n收,借方必有,1001,\n").changed,
              (std::vector<_SignInfo>{{1, "收", "收款凭证", 1, "1001", ""}}));
    EXPECT_EQ(fates("类别,名称,限制,科目二\n01,现金收款,借方必有,1001\n"),
              Lines{"2 拒绝 第 2 行:非法科目"});
}

TEST_F(VoucherTypePlans, RefuseInTheWordsOfTheWindowWithRowAndColumn) {
    const std::string long17(17, 'x');
    EXPECT_EQ(
        fates("类别,名称,限制,科目一,科目二\n,甲,,,\n123,甲,,,\n1,,,,\n2," + long17 +
              ",,,\n3,甲,禁止,,\n4,甲,借方必有,,\n5,甲,借方必有,100201,1001\n"
              "6,甲,借方必有,1001,9\n7,甲,借方必有,1001,1001\n8,甲,7,1001,1002\n"),
        (Lines{"2 拒绝 第 2 行 A 列:类别不能为空", "3 拒绝 第 3 行 A 列:类别最多 2 个字",
               "4 拒绝 第 4 行 B 列:名称不能为空", "5 拒绝 第 5 行 B 列:名称最多 16 个字",
               "6 拒绝 第 6 行 C 列:“禁止”不是限制方式,应为无、借方必有、贷方必有或借贷必无",
               "7 拒绝 第 7 行 D 列:请输入限制科目", "8 拒绝 第 8 行 D 列:非法科目",
               "9 拒绝 第 9 行 E 列:非法科目", "10 拒绝 第 10 行 E 列:科目不能重复",
               "11 拒绝 第 11 行 C 列:“7”不是限制方式,应为无、借方必有、贷方必有或借贷必无"}));
}

TEST_F(VoucherTypePlans, RefuseLineEndsInTextsThatNoFieldCouldHold) {
    EXPECT_EQ(
        fates("类别,名称\n1,\"甲\n乙\"\n\"\t\",甲\n"),
        (Lines{"2 拒绝 第 2 行 B 列:名称含有不能显示的字符", "3 拒绝 第 3 行 A 列:类别不能为空"}));
}

TEST_F(VoucherTypePlans, WantAKindChosenWhereTheStoredOneIsNone) {
    EXPECT_EQ(fates("类别,名称\n特,特种\n"), Lines{"2 拒绝 第 2 行:请选择限制方式"});
    EXPECT_EQ(fates("类别,名称,限制\n特,特种凭证,7\n"), Lines{"2 不变"});
}

TEST_F(VoucherTypePlans, RefuseANumberThatStandsTwiceInTheSheetOrInTheBooks) {
    m_state.types.push_back({4, "记", "又一个", 0});
    EXPECT_EQ(
        fates("类别,名称\n新,甲\n新,乙\n记,丙\nＡ,全角\nA,半角\n"),
        (Lines{"2 新增", "3 拒绝 第 3 行 A 列:类别与第 2 行的重复",
               "4 拒绝 第 4 行 A 列:帐套中有 2 个类别“记”,不知道是哪一个", "5 新增", "6 新增"}));
}

TEST_F(VoucherTypePlans, LeaveEveryTypeOfAnExportedSheetUnchanged) {
    m_state.types.push_back({4, "01", "现金收款凭证", 1, "1001", ""});
    m_state.types.push_back({5, "'%", "=1+1", 2, "9999", "8888"});
    m_state.types.push_back({6, "闲", "旧科目", 0, "1001", "1002"});
    const Sheet sheet = exportedVoucherTypes(m_state.types);
    const VoucherTypePlan made = planVoucherTypes(read(sheet), m_state);
    EXPECT_EQ(made.count(RowFate::unchanged), m_state.types.size());
    EXPECT_EQ(sheet.name, "凭证类别");
    Lines row;
    for (const Cell& cell : sheet.rows[1]) row.push_back(cellText(cell));
    EXPECT_EQ(row, (Lines{"收", "收款凭证", "借方必有", "1001", "1002"}));
}

}  // namespace
