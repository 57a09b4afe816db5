#include "books/logon/own_password.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/tables/operators.h"
#include "session/rights/new_password_mark.h"
#include "tests/support/engine_cases.h"
#include "tests/support/operator_books.h"

namespace {

using namespace chengheng;

/// The operator 张三, number 1, whose password is "old", by a clock that stands still.
class OwnPasswords : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_books.insert("李明", {41});
        _UsersInfo user{1, 1, "张三", 1, hashPassword("old", PasswordCost::least)};
        ASSERT_EQ(m_books.database.Users_Edit(user), 0);
    }
    bool change(const char* old, const char* wanted, const char* confirmation) {
        m_books.messages.forget();
        OwnPassword form(m_books.messages, PasswordCost::least, [this] { return m_now; });
        form.old = old;
        form.wanted = wanted;
        form.confirmation = confirmation;
        const bool isDone = form.confirm();
        EXPECT_FALSE(m_books.holdsLocks());
        return isDone;
    }
    std::string said() const {
        const Notice notice = m_books.messages.onlyNotice();
        return notice.focusField + '|' + notice.text;
    }
    bool isPassword(const char* password) { return isPasswordOf(m_books.hashOf(1), password); }

    OperatorBooks m_books{freshLocation(GetParam())};
    double m_now = 1'795'000'000;
};

TEST_P(OwnPasswords, AreChangedByWhoeverKnowsTheOldOne) {
    EXPECT_TRUE(change("old", "neu", "neu"));
    EXPECT_TRUE(isPassword("neu"));
    EXPECT_THAT(m_books.messages.texts(), testing::IsEmpty());
    EXPECT_THAT(m_books.stored(), testing::ElementsAre("1 张三 主管", "2 李明 41"));
    EXPECT_TRUE(isPasswordOf(m_books.hashOf(2), "")) << "nobody else's";
}

TEST_P(OwnPasswords, AreNoLongerWantedOnceTheyAreChanged) {
    ASSERT_TRUE(writeNewPasswordMark(m_books.database, 1, true).isDone());
    EXPECT_TRUE(change("old", "neu", "neu"));
    bool isWanted = true;
    EXPECT_TRUE(readNewPasswordMark(m_books.database, 1, isWanted).isDone());
    EXPECT_FALSE(isWanted);
}

TEST_P(OwnPasswords, StayWhenTheNewOneIsNotTypedTwiceTheSame) {
    EXPECT_FALSE(change("old", "neu", "Neu"));
    EXPECT_EQ(said(), "confirmation|两次输入的新口令不一致!");
    EXPECT_TRUE(isPassword("old"));
}

TEST_P(OwnPasswords, AreGuessedAtNoFasterThanAtTheLogOn) {
    EXPECT_FALSE(change("guess", "neu", "neu"));
    EXPECT_EQ(said(), "oldPassword|原口令不正确!");
    EXPECT_FALSE(change("old", "neu", "neu")) << "too soon";
    EXPECT_EQ(said(), "oldPassword|口令连续输错,请在1秒后重试");
    m_now += 1;
    EXPECT_FALSE(change("guess", "neu", "neu"));
    m_now += 1;
    EXPECT_FALSE(change("old", "neu", "neu"));
    EXPECT_EQ(said(), "oldPassword|口令连续输错,请在1秒后重试");
    m_now += 1;
    EXPECT_TRUE(change("old", "neu", "neu"));
}

TEST_P(OwnPasswords, OfSomebodyWhoHasGoneAreNotChanged) {
    m_books.run("DELETE Users WHERE lUserId = 1");
    EXPECT_FALSE(change("old", "neu", "neu"));
    EXPECT_EQ(said(), "|您已不是本帐套的操作员,口令没有更改。");
}

TEST_P(OwnPasswords, AreWantedOnlyOnceSomethingIsTyped) {
    OwnPassword form(m_books.messages);
    EXPECT_FALSE(form.canConfirm());
    EXPECT_FALSE(form.confirm());
    form.wanted = "888888";
    EXPECT_TRUE(form.canConfirm());
    EXPECT_EQ(form.note(), "这是最常见的口令之一,很容易被猜中。");
    form.wanted = "张三";
    EXPECT_EQ(form.note(), "口令与姓名相同,很容易被猜中。");
    form.wanted = "";
    EXPECT_EQ(form.note(), "没有口令:任何人都能用这个姓名登录。");
    form.confirmation = "x";
    EXPECT_EQ(form.note(), "");
}

CHENGHENG_ON_ALL_ENGINES(OwnPasswords);

}  // namespace
