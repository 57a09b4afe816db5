#include "vouchertype/screen/trial_screen.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <optional>

#include "tests/support/engine_cases.h"
#include "tests/support/faulty_engine.h"
#include "tests/support/made_layout.h"
#include "tests/support/told_failures.h"
#include "tests/support/voucher_type_books.h"

namespace {

using namespace chengheng;

using Texts = std::vector<std::string>;
using Kind = TrialWord::Kind;

/// The tester on books with the types 收 and 记.
class TrialScreens : public testing::TestWithParam<EngineCase> {
  protected:
    static constexpr TrialColumn account = TrialColumn::account;
    static constexpr TrialColumn accountName = TrialColumn::name;
    static constexpr TrialColumn debit = TrialColumn::debit;
    static constexpr TrialColumn credit = TrialColumn::credit;

    void SetUp() override {
        auto faulty = std::make_unique<FaultyEngine>(openForTest(freshLocation(GetParam())));
        makeLayout(*faulty);
        m_engine = faulty.get();
        m_books.emplace(std::move(faulty));
        m_books->addAccounts();
        m_books->run("INSERT zAccountM (lId, sCodeLen) VALUES(1, '4222')");
        m_books->insert({"收 收款凭证 1 1001 1002", "记 记帐凭证 0"});
        m_screen.emplace(m_books->messages);
        m_screen->refresh();
    }
    void type(int row, TrialColumn column, const char* text) {
        m_screen->type({row, column}, text);
    }
    /// A line of the grid as it reads: "1001|库存现金|5.00|".
    std::string line(int row) const {
        std::string text;
        for (const TrialColumn column : {account, accountName, debit, credit})
            text += (column == account ? "" : "|") + m_screen->shownText({row, column});
        return text;
    }
    Texts words() const {
        Texts texts;
        for (const TrialWord& word : m_screen->words()) texts.push_back(word.text);
        return texts;
    }

    FaultyEngine* m_engine = nullptr;
    std::optional<VoucherTypeBooks> m_books;
    std::optional<TrialScreen> m_screen;
};

TEST_P(TrialScreens, SayAtOnceWhatIsTyped) {
    EXPECT_EQ(words(), Texts{"没有分录"});
    type(0, account, "100201");
    EXPECT_EQ(line(0), "100201|工行||");
    type(0, debit, "1234.5");
    EXPECT_EQ(line(0), "100201|工行|1,234.50|");
    type(1, account, "1012");
    type(1, credit, "1,234.5");
    EXPECT_EQ(words(), (Texts{"可以用 收 收款凭证:借方必有 1001 库存现金 或 1002 银行存款",
                              "可以用 记 记帐凭证:不限制"}));
    EXPECT_EQ(m_screen->words()[0].kind, Kind::allowed);
    type(0, account, "1012");
    EXPECT_EQ(words()[0],
              "不能用 收 收款凭证:借方必有 1001 库存现金 或 1002 银行存款:借方只有第 1 行 1012 "
              "其他货币资金");
    EXPECT_EQ(m_screen->words()[0].kind, Kind::refused);
    type(0, account, "9999");
    EXPECT_EQ(words(), Texts{"第 1 行:没有科目“9999”"});
    EXPECT_EQ(m_screen->words()[0].kind, Kind::fault);
}

TEST_P(TrialScreens, BlameTheLinesThatMayNotBeThere) {
    m_books->run("UPDATE Sign SET byLimit = 3 WHERE lId = 1");
    m_screen->refresh();
    type(0, account, "1012");
    type(0, debit, "5");
    type(1, account, "1001");
    type(1, credit, "5");
    EXPECT_EQ(m_screen->words()[0].lines, std::vector<int>{2});
    EXPECT_EQ(m_screen->words()[1].lines, std::vector<int>());
}

TEST_P(TrialScreens, FollowTypesThatHaveChanged) {
    type(0, account, "1001");
    type(0, debit, "5");
    EXPECT_EQ(words().size(), 3u) << "and does not balance";
    m_books->run("DELETE Sign WHERE lId = 2");
    EXPECT_EQ(words().size(), 3u);
    m_screen->refresh();
    EXPECT_EQ(words().size(), 2u);
    EXPECT_EQ(line(0), "1001|库存现金|5.00|") << "what was typed stays";
}

TEST_P(TrialScreens, KeepWhatIsNoAmountOfCentsAsItWasTyped) {
    type(0, debit, "12x");
    type(1, debit, "1.005");
    type(2, credit, "=1+2");
    EXPECT_EQ(line(0), "||12x|");
    EXPECT_EQ(line(1), "||1.005|");
    EXPECT_EQ(line(2), "|||3.00");
    EXPECT_EQ(m_screen->text({2, credit}), "=1+2") << "to be edited";
}

TEST_P(TrialScreens, AlwaysOfferALineBelowTheLast) {
    EXPECT_EQ(m_screen->rowCount(), 6);
    type(5, account, "1001");
    EXPECT_EQ(m_screen->rowCount(), 7);
    type(5, account, " ");
    EXPECT_EQ(m_screen->rowCount(), 6);
    type(2, accountName, "库存现金");
    EXPECT_EQ(line(2), "|||") << "a name is not typed";
}

TEST_P(TrialScreens, EraseAndClear) {
    type(0, account, "1001");
    type(0, debit, "5");
    type(1, account, "1012");
    m_screen->erase({{0, account}, {0, accountName}, {1, account}, {5, credit}});
    EXPECT_EQ(line(0), "||5.00|");
    EXPECT_EQ(words(), Texts{"第 1 行没有科目"});
    m_screen->clear();
    EXPECT_EQ(line(0), "|||");
    EXPECT_EQ(words(), Texts{"没有分录"});
}

TEST_P(TrialScreens, TellTheFirstTwentyFaults) {
    std::string block;
    for (int row = 0; row < 20; ++row) block += "1001\tx\t\n";
    ASSERT_TRUE(m_screen->paste({0, account}, block));
    EXPECT_EQ(words().size(), 20u);
    EXPECT_EQ(words().back(), "第 20 行:“x”不是金额");
    for (int row = 0; row < 10'000; ++row) block += "9\tx\ty\n";
    ASSERT_TRUE(m_screen->paste({0, account}, block));
    EXPECT_EQ(words().size(), 21u);
    EXPECT_EQ(words().back(), "还有 30000 处不对");
}

TEST_P(TrialScreens, EraseTenThousandLinesAtOnce) {
    constexpr int lines = 10'000;
    std::string block;
    std::vector<TrialCell> cells;
    for (int row = 0; row < lines; ++row) {
        block += "1001\t5\t\n";
        for (const TrialColumn column : {account, debit, credit}) cells.push_back({row, column});
    }
    ASSERT_TRUE(m_screen->paste({0, account}, block));
    EXPECT_EQ(m_screen->rowCount(), lines + 1);
    const auto start = std::chrono::steady_clock::now();
    m_screen->erase(cells);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10))
        << "the voucher is tried once, not once a cell";
    EXPECT_EQ(words(), Texts{"没有分录"});
}

TEST_P(TrialScreens, PasteABlockOverTheLinesFromACellOn) {
    type(0, account, "1001");
    type(0, debit, "5");
    type(1, account, "1001");
    EXPECT_TRUE(m_screen->paste({1, debit}, "100201\t7\t\n1012\t\t7\n"));
    EXPECT_EQ(line(0), "1001|库存现金|5.00|");
    EXPECT_EQ(line(1), "100201|工行|7.00|");
    EXPECT_EQ(line(2), "1012|其他货币资金||7.00");
    EXPECT_TRUE(m_screen->paste({3, account}, "科目\t方向\t金额\n1012\t贷\t5\n"));
    EXPECT_EQ(line(3), "1012|其他货币资金||5.00");
    EXPECT_EQ(words().size(), 2u) << "it balances";
    EXPECT_TRUE(m_screen->paste({7, account}, "1001\t1\n"));
    EXPECT_EQ(line(7), "1001|库存现金|1.00|");
    EXPECT_EQ(words()[0], "借方合计 13.00,贷方合计 12.00,不平") << "blank lines between are none";
}

TEST_P(TrialScreens, PasteASingleTextIntoItsCell) {
    EXPECT_TRUE(m_screen->paste({0, account}, "1001"));
    EXPECT_TRUE(m_screen->paste({0, credit}, "1,000\n"));
    EXPECT_EQ(line(0), "1001|库存现金||1,000.00");
}

TEST_P(TrialScreens, TellWhyNothingIsPasted) {
    EXPECT_FALSE(m_screen->paste({0, account}, "\n\n"));
    EXPECT_EQ(m_books->messages.onlyNotice().text, "剪贴板中没有分录。");
    m_books->messages.forget();
    EXPECT_FALSE(m_screen->paste({0, account}, "科目\t借方\t借方\t贷方\n1001\t1\t1\t\n"));
    EXPECT_EQ(m_books->messages.onlyNotice().icon, MessageIcon::warning);
    EXPECT_EQ(line(0), "|||");
}

TEST_P(TrialScreens, GoOnWithEnterAsAVoucherIsFilledIn) {
    const auto after = [this](int row, TrialColumn column) {
        return m_screen->afterEnter({row, column});
    };
    EXPECT_EQ(after(0, account), (TrialCell{0, debit}));
    EXPECT_EQ(after(0, accountName), (TrialCell{0, debit}));
    EXPECT_EQ(after(0, debit), (TrialCell{0, credit}));
    type(0, debit, "5");
    EXPECT_EQ(after(0, debit), (TrialCell{1, account}));
    EXPECT_EQ(after(0, credit), (TrialCell{1, account}));
    EXPECT_EQ(after(5, credit), (TrialCell{5, account})) << "the last line";
    const auto before = [this](int row, TrialColumn column) {
        return m_screen->beforeEnter({row, column});
    };
    EXPECT_EQ(before(1, credit), (TrialCell{1, debit}));
    EXPECT_EQ(before(1, debit), (TrialCell{1, account}));
    EXPECT_EQ(before(1, accountName), (TrialCell{1, account}));
    EXPECT_EQ(before(1, account), (TrialCell{0, credit}));
    EXPECT_EQ(before(0, account), (TrialCell{0, account}));
}

TEST_P(TrialScreens, SayNothingOfTypesThatCannotBeRead) {
    type(0, account, "1001");
    type(0, debit, "5");
    int number = 1;
    for (bool hasFailed = true; hasFailed && number < 50; ++number) {
        m_books->messages.forget();
        m_engine->failCall(number, Failure::lost);
        m_screen->refresh();
        hasFailed = m_engine->hasFailed();
        m_engine->failCall(0);
        EXPECT_EQ(words().empty(), hasFailed) << "call " << number;
        EXPECT_EQ(m_books->messages.notices().size(), hasFailed ? 1u : 0u) << "call " << number;
        for (const Notice& notice : m_books->messages.notices())
            EXPECT_THAT(notice.text, tellsOf(Failure::lost)) << "call " << number;
        EXPECT_EQ(m_screen->text({0, account}), "1001");
    }
    EXPECT_GT(number, 4);
}

CHENGHENG_ON_ALL_ENGINES(TrialScreens);

}  // namespace
