#include <gtest/gtest.h>

#include <chrono>

#include "accounts/changing/designation.h"
#include "accounts/transfer/chart_import.h"
#include "data/tables/accounts.h"
#include "sheets/delimited/delimited_text.h"
#include "tests/support/account_books.h"
#include "tests/support/engine_cases.h"

using namespace chengheng;

namespace {

/// An operator who has chosen an account, while another workstation is at work on the same
/// books.
class AccountWorkstations : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        NbCwDBInfo info;
        ASSERT_NE(m_other.DBOpen(info, m_location.c_str(), "books", 1), 0);
        ASSERT_NE(m_other.DBSelect("books"), 0);
        m_books.database().setLockWaiter(&m_waiter);
        m_books.add("1001");
        m_books.add("100101");
        m_books.add("1002");
        m_shown = m_books.account("1002");
    }
    void TearDown() override { m_books.database().setLockWaiter(nullptr); }

    void otherRuns(const std::string& batch) {
        ASSERT_NE(m_other.QRYExecuteSQL(batch), 0) << m_other.lastStatus().detail;
    }
    void otherUses1002() {
        otherRuns(
            "INSERT INTO RegMain VALUES( 900, 1, '2026/1/5', '记', 9, 0, 0, 0, 0 )\r\n"
            "INSERT INTO RegSub VALUES( 900, 900, 1, '付款', " +
            std::to_string(m_shown.lId) +
            ", 1, 5.0, 0.0, 0.0, 0.0, 0, NULL, 0, 0, '', '', '', '2026/1/5', 0 )\r\n"
            "UPDATE ABIdTable SET lLastId = 900 WHERE sTable = 'RegMain' OR sTable = "
            "'RegSub' OR sTable = 'UnRegMain' OR sTable = 'UnRegSub'");
    }
    Outcome saveAs(const std::string& code, const std::string& name = "新名") {
        AccountEntry entry = entryOf(m_shown);
        entry.code = code;
        entry.name = name;
        return m_books.service().modify(m_shown, entry).outcome;
    }
    Outcome remove1002() {
        m_books.messages().willAnswer(Answer::ok);
        return m_books.service().remove("1002", "科目").outcome;
    }
    std::string lastNotice() {
        const auto& notices = m_books.messages().notices();
        return notices.empty() ? "" : notices.back().text;
    }
    void expectSound() {
        EXPECT_EQ(m_books.faults(), std::vector<std::string>{});
        EXPECT_FALSE(m_books.holdsLocks());
    }

    std::string m_location = freshLocation(GetParam());
    AccountBooks m_books{m_location};
    CNbCwDB m_other;
    PatientWaiter m_waiter{std::chrono::milliseconds(0)};
    _CodeInfo m_shown;
};

}  // namespace

TEST_P(AccountWorkstations, ModifyAnAccountThatTheOtherDeleted) {
    otherRuns("DELETE FROM Code WHERE sCode = '1002'");
    EXPECT_EQ(saveAs("1002"), Outcome::stale);
    EXPECT_EQ(lastNotice(), "科目(1002)已经删除!");
    EXPECT_TRUE(m_books.messages().onlyNotice().beep);
    EXPECT_FALSE(m_books.hasAccount("1002"));
    expectSound();
}

TEST_P(AccountWorkstations, ModifyAnAccountThatTheOtherRenumbered) {
    otherRuns("UPDATE Code SET sCode = '1009' WHERE sCode = '1002'");
    EXPECT_EQ(saveAs("1002"), Outcome::stale);
    EXPECT_EQ(lastNotice(),
              "科目(1002)已被其他操作员修改,没有保存。\n\n科目编码:现在是“1009”\n\n"
              "输入已保留,核对后可以再次确定。");
    EXPECT_TRUE(m_books.messages().onlyNotice().beep);
    EXPECT_EQ(m_books.account("1009").sName, "科目");
    expectSound();
}

TEST_P(AccountWorkstations, ModifyAnAccountWhoseEndFlagAloneChanged) {
    otherRuns(
        "INSERT INTO Code VALUES( 900, '100201', '工行', '资产', 2, 1, 1, 0, 0, '', '', 0, "
        "0, '', 0, '' )\r\n"
        "UPDATE Code SET bEnd = 0 WHERE sCode = '1002'\r\n"
        "UPDATE ABIdTable SET lLastId = 900 WHERE sTable = 'Code'");
    EXPECT_EQ(saveAs("1002"), Outcome::done);
    EXPECT_EQ(m_books.account("1002").bEnd, 0) << "the flag of the other stays";
    EXPECT_EQ(saveAs("1003"), Outcome::stale) << "it was saved since it was shown";
    expectSound();
}

TEST_P(AccountWorkstations, RenumberAnAccountThatTheOtherUsed) {
    otherUses1002();
    EXPECT_EQ(saveAs("1003"), Outcome::refused);
    EXPECT_EQ(lastNotice(), "科目 1002 在[已记帐凭证]中已使用!");
    expectSound();
}

TEST_P(AccountWorkstations, RenumberToACodeThatTheOtherTook) {
    otherRuns(
        "UPDATE Code SET sCode = '1003' WHERE sCode = '1001'\r\n"
        "UPDATE Code SET sCode = '100301' WHERE sCode = '100101'");
    EXPECT_EQ(saveAs("1003"), Outcome::refused);
    EXPECT_EQ(lastNotice(), "科目编码不唯一");
    expectSound();
}

TEST_P(AccountWorkstations, DeleteAnAccountThatTheOtherDeletedOrRenumberedWithoutAWord) {
    otherRuns("UPDATE Code SET sCode = '1009' WHERE sCode = '1002'");
    EXPECT_EQ(remove1002(), Outcome::stale);
    otherRuns("DELETE FROM Code WHERE sCode = '1009'");
    EXPECT_EQ(remove1002(), Outcome::stale);
    EXPECT_TRUE(m_books.messages().notices().empty());
    expectSound();
}

TEST_P(AccountWorkstations, DeleteAnAccountThatTheOtherUsed) {
    otherUses1002();
    EXPECT_EQ(remove1002(), Outcome::refused);
    EXPECT_EQ(lastNotice(), "在[已记帐凭证]中已使用本科目或其下级科目");
    expectSound();
}

TEST_P(AccountWorkstations, AddBelowAnAccountThatTheOtherDeletedOrUsed) {
    otherUses1002();
    EXPECT_EQ(m_books.service().add(assetEntry("100201")).outcome, Outcome::refused);
    EXPECT_EQ(lastNotice(), "科目 1002 在[已记帐凭证]中已使用,不能增加下级科目!");
    otherRuns(
        "DELETE FROM RegSub WHERE lId = 900\r\nDELETE FROM RegMain WHERE lId = 900\r\n"
        "DELETE FROM Code WHERE sCode = '1002'");
    EXPECT_EQ(m_books.service().add(assetEntry("100201")).outcome, Outcome::refused);
    EXPECT_EQ(lastNotice(), "必须先定义上级科目编码");
    expectSound();
}

TEST_P(AccountWorkstations, DesignateAnAccountThatTheOtherDeleted) {
    otherRuns("DELETE FROM Code WHERE sCode = '1002'");
    m_books.messages().willAnswer(Answer::ok);
    EXPECT_FALSE(DesignationService(m_books.messages()).designate("1001   科目", "1002   科目"));
    EXPECT_EQ(lastNotice(), "科目(1002)已经删除!");
    EXPECT_EQ(m_books.account("1001").bCash, 0);
    expectSound();
}

TEST_P(AccountWorkstations, DoNothingWhileTheOtherHoldsALock) {
    const auto before = m_books.chart();
    for (const auto& [names, mode] : {std::pair{"Code", 1}, std::pair{"AccSum", 2}}) {
        ASSERT_NE(m_other.SQLLock(names, mode, 0), 0);
        EXPECT_EQ(m_books.service().add(assetEntry("1003")).outcome, Outcome::failed) << names;
        EXPECT_EQ(saveAs("1002"), Outcome::failed) << names;
        EXPECT_EQ(remove1002(), Outcome::failed) << names;
        EXPECT_EQ(m_books.messages().notices().size(), 3u) << "each was told";
        m_books.messages().forget();
        m_other.SQLUnLock(names, mode);
    }
    EXPECT_EQ(m_books.chart(), before);
    EXPECT_EQ(m_books.service().add(assetEntry("1003")).outcome, Outcome::done);
    expectSound();
}

CHENGHENG_ON_SHARED_ENGINES(AccountWorkstations);
