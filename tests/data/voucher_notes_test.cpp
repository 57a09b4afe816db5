#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "books/checking/integrity_check.h"
#include "tests/support/engine_cases.h"
#include "tests/support/faulty_engine.h"
#include "tests/support/small_books.h"

namespace {

using namespace chengheng;

using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

/// Small books whose type 收 requires 1001 or 1002 on the debit side. What is said of vouchers.
class VoucherNotes : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_engine = std::make_unique<FaultyEngine>(openForTest(freshLocation(GetParam())));
        fillSmallBooks(*m_engine);
        run("INSERT INTO Sign (lId, sSign, byLimit, sCode1, sCode2) VALUES (2, '转', 3, '1001', "
            "'1002');UPDATE ABIdTable SET lLastId = 2 WHERE sTable = 'Sign'");
    }
    void run(const std::string& sql) { runScript(*m_engine, sql); }
    /// Adds a voucher of lines "account id, debit, money".
    void add(const char* table, int id, const char* type, const std::vector<std::string>& lines) {
        run("INSERT INTO " + std::string(table) +
            "Main (lId, byPeroid, dtDate, sSign, lNumber) VALUES (" + std::to_string(id) +
            ", 1, '2026-01-08', '" + type + "', " + std::to_string(id) + ")");
        for (const std::string& line : lines) {
            const std::string number = std::to_string(++m_lastLine);
            run("INSERT INTO " + std::string(table) +
                "Sub (lId, lTieId, lLine, lCodeId, bDirect, mMoney) VALUES (" + number + ", " +
                std::to_string(id) + ", " + number + ", " + line + ")");
        }
    }
    Texts notes() {
        std::vector<IntegrityFault> faults;
        std::vector<IntegrityFault> notes;
        const Status status = checkIntegrity(*m_engine, faults, &notes);
        EXPECT_TRUE(status) << status.detail;
        for (const IntegrityFault& fault : faults)
            EXPECT_TRUE(fault.check == "idCounters" || fault.check == "references" ||
                        fault.check == "cells")
                << fault.text;
        Texts texts;
        for (const IntegrityFault& note : notes)
            if (note.check == "voucherRestrictions") texts.push_back(note.text);
        return texts;
    }

    std::unique_ptr<FaultyEngine> m_engine;
    int m_lastLine = 100;
};

TEST_P(VoucherNotes, NameNoVoucherThatKeepsItsRestriction) {
    EXPECT_THAT(notes(), IsEmpty());
    add("Unreg", 11, "收", {"1, 1, 5", "6, 0, 5"});
    add("Reg", 12, "收", {"6, 1, 5", "4, 1, 5", "6, 0, 10"});
    add("Reg", 13, "转", {"6, 1, 5", "5, 0, 5"});
    EXPECT_THAT(notes(), IsEmpty());
}

TEST_P(VoucherNotes, NameEveryVoucherThatBreaksItsRestriction) {
    add("Unreg", 11, "收", {"6, 1, 5", "1, 0, 5"});
    add("Reg", 12, "转", {"6, 1, 5", "4, 0, 5"});
    EXPECT_THAT(notes(),
                ElementsAre("凭证 收 第 11 号(2026-01-08,未记帐):借方必有 1001 库存现金 或 1002 "
                            "银行存款:借方只有第 1 行 2202 应付账款",
                            "凭证 转 第 12 号(2026-01-08,已记帐):借贷必无 1001 库存现金 或 1002 "
                            "银行存款:第 2 行贷方 10020101 美元户"));
}

TEST_P(VoucherNotes, TellVouchersOneAfterTheOtherApart) {
    add("Unreg", 11, "收", {"1, 1, 5", "6, 0, 5"});
    add("Unreg", 12, "收", {"6, 1, 5", "1, 0, 5"});
    add("Unreg", 13, "收", {});
    add("Unreg", 14, "收", {"1, 1, 5", "6, 0, 5"});
    const Texts found = notes();
    ASSERT_EQ(found.size(), 2u);
    EXPECT_TRUE(found[0].starts_with("凭证 收 第 12 号")) << found[0];
    EXPECT_TRUE(
        found[1].ends_with("第 13 号(2026-01-08,未记帐):借方必有 1001 库存现金 或 1002 "
                           "银行存款:借方没有分录"))
        << found[1];
}

TEST_P(VoucherNotes, CountALineOfForeignMoneyOrAQuantityAlone) {
    add("Unreg", 11, "收", {"4, 1, 0", "6, 0, 0"});
    EXPECT_EQ(notes().size(), 1u);
    run("UPDATE UnregSub SET mFgn = 7 WHERE lTieId = 11");
    EXPECT_THAT(notes(), IsEmpty());
    run("UPDATE UnregSub SET mFgn = 0, dAmt = 7 WHERE lTieId = 11");
    EXPECT_THAT(notes(), IsEmpty());
}

TEST_P(VoucherNotes, LeaveOpeningEntriesOut) {
    run("UPDATE Sign SET byLimit = 2 WHERE lId = 1");
    EXPECT_THAT(notes(), IsEmpty()) << "the entry of 1122 is of 收";
    run("UPDATE RegMain SET byPeroid = 1");
    EXPECT_THAT(notes(), IsEmpty()) << "whatever period its header has";
    run("UPDATE RegSub SET bBegin = 0");
    EXPECT_EQ(notes().size(), 1u) << "now it is a voucher";
    run("UPDATE RegMain SET byPeroid = 0");
    EXPECT_THAT(notes(), IsEmpty()) << "however its lines are marked";
}

TEST_P(VoucherNotes, LeaveVouchersWithoutAnAccountInTheChartToTheCheckOfReferences) {
    add("Unreg", 11, "收", {"77, 1, 5", "6, 0, 5"});
    EXPECT_THAT(notes(), ElementsAre(testing::HasSubstr("借方只有第 1 行 (没有这个科目)")));
    run("UPDATE UnregSub SET lCodeId = 0 WHERE lCodeId = 77");
    EXPECT_THAT(notes(), ElementsAre(testing::HasSubstr("借方只有第 1 行 (没有这个科目)")))
        << "a line without an account is one, too";
}

TEST_P(VoucherNotes, TellARestrictionThatNoVoucherCanKeepOnce) {
    add("Unreg", 11, "收", {"1, 1, 5", "6, 0, 5"});
    add("Unreg", 12, "收", {"1, 1, 5", "6, 0, 5"});
    run("UPDATE Sign SET byLimit = 7 WHERE lId = 1");
    EXPECT_THAT(notes(), ElementsAre("凭证类别 收:限制方式 7 无法识别,请在“凭证类别”中重新选择"));
    run("UPDATE Sign SET byLimit = 1, sCode1 = '', sCode2 = '' WHERE lId = 1");
    EXPECT_THAT(notes(), ElementsAre("凭证类别 收:借方必有的科目没有设置,请在“凭证类别”中补上"));
}

TEST_P(VoucherNotes, AreNotLookedForWhereNobodyWantsThem) {
    add("Unreg", 11, "收", {"6, 1, 5", "1, 0, 5"});
    std::vector<IntegrityFault> faults;
    ASSERT_TRUE(checkIntegrity(*m_engine, faults));
    for (const IntegrityFault& fault : faults) EXPECT_EQ(fault.check, "idCounters") << fault.text;
}

TEST_P(VoucherNotes, ThatCannotBeReadAreAFailure) {
    add("Unreg", 11, "收", {"6, 1, 5", "1, 0, 5"});
    m_engine->failCall(0);
    static_cast<void>(notes());
    const int calls = m_engine->calls();
    ASSERT_GT(calls, 10);
    // The last calls of a check are those that read the vouchers.
    for (int number = calls; number > calls - 4; --number) {
        std::vector<IntegrityFault> faults;
        std::vector<IntegrityFault> found;
        m_engine->failCall(number);
        EXPECT_FALSE(checkIntegrity(*m_engine, faults, &found)) << "call " << number;
        m_engine->failCall(0);
    }
}

CHENGHENG_ON_ALL_ENGINES(VoucherNotes);

}  // namespace
