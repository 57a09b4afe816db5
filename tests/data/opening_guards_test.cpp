#include "opening/sheet/opening_texts.h"
#include "tests/data/opening_case.h"

namespace chengheng {
namespace {

/// When figures may no longer be written: vouchers, and what other workstations did meanwhile.
class OpeningGuards : public OpeningCase {};

TEST_P(OpeningGuards, IsForBrowsingOnceAVoucherIsThere) {
    m_books.type("1001", "5");
    EXPECT_STREQ(work().modeText(), "");
    EXPECT_TRUE(work().mayAdjustDirection());
    m_books.addVoucher();
    ASSERT_EQ(work().refresh(), Outcome::done);
    EXPECT_STREQ(work().modeText(), "浏览,只读");
    EXPECT_FALSE(work().mayAdjustDirection());
    EXPECT_FALSE(work().mayCarryForward());
    EXPECT_FALSE(m_books.type("1001", "6"));
    EXPECT_EQ(m_books.openings("1001"), allPeriods("5"));
}

TEST_P(OpeningGuards, KeepsParentsAsTheyAreStoredWhileBrowsing) {
    m_books.type("100202", "5");
    m_books.books().run(
        formatSql("UPDATE AccSum SET mBegin = 77 WHERE lCodeId = %d", m_books.idOf("1002")));
    m_books.addVoucher();
    work().refresh();
    EXPECT_EQ(m_books.shown("1002"), "77.00");
    EXPECT_EQ(work().save(), Outcome::done);
    EXPECT_EQ(m_books.openings("1002"), allPeriods("77"));
}

TEST_P(OpeningGuards, StaysEditableWithVouchersOfNoPeriod) {
    m_books.addVoucher();
    m_books.books().run("UPDATE RegMain SET byPeroid = 0");
    work().refresh();
    EXPECT_FALSE(work().isBrowsing());
    EXPECT_TRUE(m_books.type("1001", "5"));
}

TEST_P(OpeningGuards, SavesAndSweepsNothingOnceAVoucherIsThere) {
    m_books.type("100202", "5");
    m_books.books().run(
        formatSql("UPDATE AccSum SET mBegin = 77 WHERE lCodeId = %d", m_books.idOf("1002")));
    m_books.addRows("1001", 12);
    m_books.addVoucher();
    const auto before = m_books.rows();
    EXPECT_EQ(work().save(), Outcome::done);
    EXPECT_TRUE(work().isBrowsing());
    EXPECT_EQ(work().save(), Outcome::done);
    EXPECT_EQ(work().afterAuxiliary(), Outcome::done);
    EXPECT_EQ(m_books.rows(), before);
}

TEST_P(OpeningGuards, RefusesAnEditAfterAnotherWorkstationEnteredAVoucher) {
    m_books.addVoucher();
    EXPECT_FALSE(m_books.type("1001", "5"));
    EXPECT_EQ(messages().texts(), Texts{opening_texts::vouchersMeanwhile});
    EXPECT_TRUE(work().isBrowsing());
    EXPECT_EQ(m_books.rows(), Texts{});
}

TEST_P(OpeningGuards, RefusesAnEditOfAnAccountThatGotAccountsBelowItMeanwhile) {
    m_books.books().add("100101");
    EXPECT_FALSE(m_books.type("1001", "5"));
    EXPECT_EQ(messages().texts(), Texts{opening_texts::chartMeanwhile});
    EXPECT_EQ(m_books.rows(), Texts{});
    EXPECT_TRUE(m_books.type("100101", "5"));
}

TEST_P(OpeningGuards, RefusesAnEditOfAnAccountDeletedMeanwhile) {
    const auto readings = work().readings();
    m_books.books().run("DELETE FROM Code WHERE sCode = '1001'");
    EXPECT_FALSE(m_books.type("1001", "5"));
    EXPECT_EQ(messages().texts(), Texts{opening_texts::chartMeanwhile});
    EXPECT_GT(work().readings(), readings);
    EXPECT_EQ(m_books.rows(), Texts{});
}

TEST_P(OpeningGuards, RefusesAnEditOfAnAccountWhoseMeaningAnotherWorkstationChanged) {
    for (const char* change : {"bDirect = 0", "byExchId = 1", "sCode = '1009'"}) {
        m_books.change("1001", change);
        EXPECT_FALSE(m_books.type("1001", "5")) << change;
        EXPECT_EQ(messages().texts(), Texts{opening_texts::chartMeanwhile}) << change;
        EXPECT_EQ(m_books.rows(), Texts{}) << change;
        messages().forget();
    }
    EXPECT_TRUE(m_books.type("1009", "5"));
}

TEST_P(OpeningGuards, RefusesAnEditOfAnAccountThatBecameAuxiliaryMeanwhile) {
    m_books.change("1001", "sAssBook = 'B'");
    EXPECT_FALSE(m_books.type("1001", "5"));
    EXPECT_EQ(messages().texts(), Texts{opening_texts::chartMeanwhile});
    EXPECT_EQ(m_books.rows(), Texts{});
}

TEST_P(OpeningGuards, UndoesNothingThatAnotherWorkstationTypedOver) {
    m_books.type("1001", "1");
    m_books.type("1405", "2");
    m_books.books().run("UPDATE AccSum SET mBegin = 9 WHERE lCodeId = " +
                        std::to_string(m_books.idOf("1405")));
    EXPECT_NE(work().undo(), Outcome::done);
    EXPECT_EQ(messages().texts(), Texts{opening_texts::chartMeanwhile});
    EXPECT_EQ(m_books.shown("1405"), "9.00");
    EXPECT_EQ(work().undo(), Outcome::done) << "the step before";
    EXPECT_EQ(m_books.openings("1001"), allPeriods("0"));
    m_books.books().run("UPDATE AccSum SET mBegin = 8 WHERE lCodeId = " +
                        std::to_string(m_books.idOf("1001")));
    EXPECT_NE(work().redo(), Outcome::done);
    EXPECT_EQ(m_books.openings("1001"), allPeriods("8"));
    EXPECT_FALSE(work().canRedo());
}

TEST_P(OpeningGuards, KeepsAStepToBeUndoneWhileVouchersAreThere) {
    m_books.type("1001", "1");
    m_books.addVoucher();
    EXPECT_NE(work().undo(), Outcome::done);
    EXPECT_EQ(messages().texts(), Texts{opening_texts::vouchersMeanwhile});
    m_books.books().run("DELETE FROM RegMain WHERE lId > 0");
    work().refresh();
    EXPECT_EQ(work().undo(), Outcome::done);
}

TEST_P(OpeningGuards, AllowsTheCarryForwardOnlyIntoEmptyBooks) {
    EXPECT_TRUE(work().mayCarryForward());
    m_books.type("1001", "5");
    EXPECT_FALSE(work().mayCarryForward());
    work().refresh();
    EXPECT_FALSE(work().mayCarryForward());
}

TEST_P(OpeningGuards, ForbidsTheCarryForwardWhileRowsWithoutFiguresAreThere) {
    m_books.addRows("1001", 12);
    work().refresh();
    EXPECT_FALSE(work().mayCarryForward());
    EXPECT_EQ(m_books.rows(), Texts{});
    work().refresh();
    EXPECT_TRUE(work().mayCarryForward());
}

TEST_P(OpeningGuards, TellThatNoIdsAreLeftForTheRowsOfAnAccount) {
    const auto leave = [this](int count) {
        m_books.books().run(formatSql("UPDATE ABIdTable SET lLastId = %d WHERE sTable = 'AccSum'",
                                      2147483647 - count));
    };
    leave(11);
    EXPECT_FALSE(m_books.type("1001", "5"));
    EXPECT_NE(messages().onlyNotice().text.find("的记录编号已经用完,数据没有改动。"),
              std::string::npos);
    EXPECT_EQ(m_books.rows(), Texts{});
    leave(12);
    EXPECT_TRUE(m_books.type("1001", "5"));
    EXPECT_EQ(m_books.openings("1001"), allPeriods("5"));
}

TEST_P(OpeningGuards, WriteOverTheRowsOfAnAccountWithoutIdsLeft) {
    ASSERT_TRUE(m_books.type("1001", "5"));
    m_books.books().run("UPDATE ABIdTable SET lLastId = 2147483647 WHERE sTable = 'AccSum'");
    EXPECT_TRUE(m_books.type("1001", "6"));
    EXPECT_EQ(m_books.openings("1001"), allPeriods("6"));
}

CHENGHENG_ON_ALL_ENGINES(OpeningGuards);

}  // namespace
}  // namespace chengheng
