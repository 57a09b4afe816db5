#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/engine_cases.h"
#include "tests/support/other_goes_on.h"
#include "tests/support/other_workstation.h"
#include "tests/support/voucher_type_books.h"
#include "vouchertype/voucher_type_form.h"

namespace {

using namespace chengheng;

using testing::EndsWith;

using Texts = std::vector<std::string>;

/// This workstation with the window open on the first type, and another one on the same books.
class VoucherTypeWorkstations : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_books.addAccounts();
        m_books.insert({"收 收款凭证 1 1001 1002", "付 付款凭证 0"});
        m_form.open();
    }
    void TearDown() override { m_books.database.setLockWaiter(nullptr); }

    void otherDoes(const std::string& sql) {
        const Status status = m_other.ask("sql " + sql);
        ASSERT_TRUE(status) << status.detail;
    }
    Texts leaves() const {
        Texts texts;
        for (const Leaf& leaf : m_form.leaves().all()) texts.push_back(leaf.text);
        return texts;
    }
    /// The other one holds the types while this one waits, does something and lets go.
    void otherDoesFirst(const std::string& sql, const std::function<void()>& change) {
        ASSERT_TRUE(m_other.lock("Sign", LockMode::exclusive));
        OtherGoesOn waiter([&] {
            otherDoes(sql);
            m_other.unlock("Sign", LockMode::exclusive);
        });
        m_books.database.setLockWaiter(&waiter);
        change();
    }

    std::string m_location = freshLocation(GetParam());
    VoucherTypeBooks m_books{m_location};
    OtherWorkstation m_other{m_location};
    VoucherTypeForm m_form{m_books.messages};
};

TEST_P(VoucherTypeWorkstations, OneThatIsAtWorkKeepsTheOthersChangeOut) {
    PatientWaiter impatient{std::chrono::milliseconds(0)};
    m_books.database.setLockWaiter(&impatient);
    for (const char* table : {"Sign", "Code"}) {
        m_books.messages.forget();
        ASSERT_TRUE(m_other.lock(table, LockMode::exclusive));
        m_form.input.sSignName = "收入";
        EXPECT_FALSE(m_form.save());
        EXPECT_THAT(m_books.messages.onlyNotice().text,
                    EndsWith(std::string("占用。\n请稍后重试。\n详细信息:") + table));
        EXPECT_FALSE(m_books.holdsLocks());
        EXPECT_EQ(m_form.input.sSignName, "收入");
        m_other.unlock(table, LockMode::exclusive);
    }
    EXPECT_TRUE(m_form.save());
    EXPECT_EQ(m_books.stored()[0], "1 收 收入 1 1001 1002");
}

TEST_P(VoucherTypeWorkstations, OfTwoThatModifyTheSameTypeTheSecondLearnsOfTheFirst) {
    m_form.input.sSignName = "收入";
    otherDoesFirst("UPDATE Sign SET byLimit = 3 WHERE lId = 1",
                   [this] { EXPECT_FALSE(m_form.save()); });
    EXPECT_EQ(m_books.messages.onlyNotice().text,
              "该凭证类别已被其他工作站修改,本次操作没有进行。\n\n"
              "现在的内容:收 收款凭证(借贷必无 1001、1002)\n"
              "输入的内容:收 收入(借方必有 1001、1002)\n\n输入已保留,核对后可以再次确定。");
    EXPECT_EQ(m_form.input, (_SignInfo{1, "收", "收入", 3, "1001", "1002"}))
        << "what was not typed follows";
    EXPECT_TRUE(m_form.save());
    EXPECT_EQ(m_books.stored()[0], "1 收 收入 3 1001 1002");
}

TEST_P(VoucherTypeWorkstations, ARestrictionThatWasTypedStaysAsAWhole) {
    m_form.input.sCode2 = "1012";
    otherDoes("UPDATE Sign SET byLimit = 0, sCode1 = '', sCode2 = '', sSign = '入' WHERE lId = 1");
    EXPECT_FALSE(m_form.save());
    EXPECT_EQ(leaves(), (Texts{"入 收款凭证", "付 付款凭证"}));
    EXPECT_EQ(m_form.input, (_SignInfo{1, "入", "收款凭证", 1, "1001", "1012"}));
    EXPECT_TRUE(m_form.save());
    EXPECT_EQ(m_books.stored()[0], "1 入 收款凭证 1 1001 1012");
}

TEST_P(VoucherTypeWorkstations, OfTwoThatAddTheSameNumberTheSecondIsRefused) {
    m_form.startAdding();
    m_form.input = {0, "记", "记帐凭证"};
    otherDoesFirst("INSERT INTO Sign (lId, sSign, sSignName) VALUES (3, '记', '别的')",
                   [this] { EXPECT_FALSE(m_form.save()); });
    EXPECT_EQ(m_books.messages.onlyNotice().text, "类别号重复，\n\n请重新输入。");
    EXPECT_EQ(m_books.stored().back(), "3 记 别的 0");
}

TEST_P(VoucherTypeWorkstations, AnAccountThatGoesMeanwhileRestrictsNothing) {
    m_form.input.sCode2 = "1012";
    otherDoesFirst("DELETE FROM Code WHERE sCode = '1012'",
                   [this] { EXPECT_FALSE(m_form.save()); });
    EXPECT_EQ(m_books.messages.onlyNotice().text, "非法科目");
    EXPECT_EQ(m_books.stored()[0], "1 收 收款凭证 1 1001 1002");
}

TEST_P(VoucherTypeWorkstations, ATypePutToUseMeanwhileKeepsItsNumber) {
    m_form.input.sSign = "入";
    otherDoesFirst("INSERT INTO UnregMain (lId, sSign) VALUES (1, '收')",
                   [this] { EXPECT_FALSE(m_form.save()); });
    EXPECT_EQ(m_books.messages.onlyNotice().text, "凭证类别已使用,不能再修改!");
    EXPECT_EQ(m_books.stored()[0], "1 收 收款凭证 1 1001 1002");
}

TEST_P(VoucherTypeWorkstations, ATypePutToUseWhileItsDeletionIsConfirmedStays) {
    m_books.messages.whileShown([this](const std::string& text) {
        if (text.starts_with("是否"))
            otherDoes("INSERT INTO AutoMain (lId, sSign) VALUES (1, '收')");
    });
    m_books.messages.willAnswer(Answer::yes);
    m_form.remove(1);
    EXPECT_EQ(m_books.messages.texts().back(), "凭证类别已使用,不能再修改!");
    EXPECT_EQ(m_books.stored().size(), 2u);
}

TEST_P(VoucherTypeWorkstations, ATypeDeletedElsewhereIsNotModified) {
    otherDoes("DELETE FROM Sign WHERE lId = 1");
    m_form.input.sSignName = "收入";
    EXPECT_FALSE(m_form.save());
    EXPECT_EQ(m_books.messages.onlyNotice().text,
              "该凭证类别已被其他工作站删除,列表已重新读入。\n"
              "输入已保留,再次确定将作为新的凭证类别增加。");
    EXPECT_EQ(m_books.stored(), Texts{"2 付 付款凭证 0"});
    EXPECT_EQ(leaves(), Texts{"付 付款凭证"});
    EXPECT_TRUE(m_form.isAdding());
    EXPECT_EQ(m_form.input, (_SignInfo{0, "收", "收入", 1, "1001", "1002"}));
    EXPECT_TRUE(m_form.save());
    EXPECT_EQ(leaves(), (Texts{"付 付款凭证", "收 收入"}));
}

TEST_P(VoucherTypeWorkstations, ATypeDeletedWhileItsDeletionIsConfirmedIsLeftAloneWithoutAWord) {
    m_books.messages.whileShown(
        [this](const std::string&) { otherDoes("DELETE FROM Sign WHERE lId = 1"); });
    m_books.messages.willAnswer(Answer::yes);
    m_form.remove(1);
    EXPECT_TRUE(m_books.messages.notices().empty());
    EXPECT_EQ(leaves(), Texts{"付 付款凭证"});
}

CHENGHENG_ON_SHARED_ENGINES(VoucherTypeWorkstations);

}  // namespace
