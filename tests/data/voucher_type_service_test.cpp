#include "vouchertype/voucher_type_service.h"

#include <gtest/gtest.h>

#include "data/connection/database.h"
#include "tests/support/engine_cases.h"
#include "tests/support/voucher_type_books.h"
#include "vouchertype/voucher_type_rules.h"

namespace {

using namespace chengheng;

using Texts = std::vector<std::string>;

constexpr const char* used = "凭证类别已使用,不能再修改!";
constexpr const char* taken = "类别号重复，\n\n请重新输入。";
constexpr const char* deletedBelowTyped =
    "该凭证类别已被其他工作站删除,列表已重新读入。\n输入已保留,再次确定将作为新的凭证类别增加。";
constexpr const char* deletedElsewhere = "该凭证类别已被其他工作站删除,列表已重新读入。";
constexpr const char* changedElsewhere =
    "该凭证类别已被其他工作站修改,本次操作没有进行,列表已重新读入。";
constexpr const char* carriers[] = {"INSERT UnregMain (lId, sSign) VALUES(1, '收')",
                                    "INSERT RegMain (lId, sSign) VALUES(1, '收')",
                                    "INSERT AutoMain (lId, sSign) VALUES(1, '收')"};

/// Books with three types, as they were read at the beginning.
class VoucherTypes : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_books.addAccounts();
        m_books.insert({"收 收款凭证 1 1001 1002", "付 付款凭证 2 1001 1002", "记 记帐凭证 0"});
        m_types = m_service.readAll().value();
    }
    const _SignInfo& type(int id) const { return m_types.at(static_cast<std::size_t>(id - 1)); }
    Outcome add(_SignInfo added) { return m_service.add(added); }
    Outcome modify(int id, const std::function<void(_SignInfo&)>& change) {
        _SignInfo wanted = type(id);
        change(wanted);
        return m_service.modify(type(id), wanted);
    }
    Outcome renumber(int id, const char* number) {
        return modify(id, [number](_SignInfo& wanted) { wanted.sSign = number; });
    }
    Outcome remove(int id) {
        m_books.messages.willAnswer(Answer::yes);
        return m_service.remove(id);
    }
    bool isUsed(int id) {
        _SignInfo read;
        bool isUsed = false;
        EXPECT_EQ(m_service.read(id, read, isUsed), Outcome::done);
        EXPECT_EQ(read, type(id));
        return isUsed;
    }
    /// The last thing said, with everything that must hold when a change did not happen.
    std::string refusal() {
        EXPECT_FALSE(m_books.holdsLocks());
        EXPECT_FALSE(m_books.database.selectedName().empty());
        return m_books.messages.texts().empty() ? "" : m_books.messages.texts().back();
    }
    std::string focus() const { return m_books.messages.notices().back().focusField; }
    void expectUnchanged() {
        EXPECT_EQ(m_books.stored(), (Texts{"1 收 收款凭证 1 1001 1002", "2 付 付款凭证 2 1001 1002",
                                           "3 记 记帐凭证 0"}));
    }

    VoucherTypeBooks m_books{freshLocation(GetParam())};
    VoucherTypeService m_service{m_books.messages};
    std::vector<_SignInfo> m_types;
};

TEST_P(VoucherTypes, AreReadInTheOrderInWhichTheyWereAdded) {
    m_books.run("UPDATE Sign SET sSignName = '收入' WHERE lId = 1");
    const auto types = m_service.readAll();
    ASSERT_TRUE(types.has_value());
    ASSERT_EQ(types->size(), 3u);
    EXPECT_EQ((*types)[0], (_SignInfo{1, "收", "收入", 1, "1001", "1002"}));
    EXPECT_EQ((*types)[2], (_SignInfo{3, "记", "记帐凭证", 0, "", ""}));
}

TEST_P(VoucherTypes, AreReadWithoutAWordWhereThereAreNone) {
    m_books.run("DELETE Sign WHERE lId > 0");
    EXPECT_EQ(m_service.readAll(), std::vector<_SignInfo>{});
    EXPECT_TRUE(m_books.messages.texts().empty());
}

TEST_P(VoucherTypes, AreOfferedTheFirstLevelAccountsInTheOrderOfTheirCodes) {
    const auto accounts = m_service.firstLevelAccounts();
    ASSERT_TRUE(accounts.has_value());
    Texts codes;
    for (const _CodeInfo& account : *accounts) codes.push_back(account.sCode + account.sName);
    EXPECT_EQ(codes, (Texts{"1001库存现金", "1002银行存款", "1012其他货币资金"}));
}

TEST_P(VoucherTypes, AreOfferedAccountsAsTheyAreNow) {
    m_service.firstLevelAccounts();
    m_books.run("DELETE Code WHERE lId <> 4");
    EXPECT_EQ(m_service.firstLevelAccounts()->size(), 0u);
    EXPECT_TRUE(m_books.messages.texts().empty());
}

TEST_P(VoucherTypes, AreAddedWithTheNextId) {
    _SignInfo added{0, "转", "转帐凭证", 3, "1002", "1012"};
    EXPECT_EQ(m_service.add(added), Outcome::done);
    EXPECT_EQ(added.lId, 4);
    EXPECT_EQ(m_books.stored().back(), "4 转 转帐凭证 3 1002 1012");
    EXPECT_FALSE(m_books.holdsLocks());
    EXPECT_TRUE(m_books.messages.texts().empty());
}

TEST_P(VoucherTypes, OfATakenNumberAreNotAdded) {
    EXPECT_EQ(add({0, "付", "新", 0}), Outcome::refused);
    EXPECT_EQ(refusal(), taken);
    EXPECT_EQ(focus(), "sSign");
    m_books.insert({"新 新凭证 0"});
    EXPECT_EQ(add({0, "新", "别的", 0}), Outcome::refused);
    EXPECT_EQ(refusal(), taken);
    EXPECT_EQ(m_books.stored().size(), 4u);
}

TEST_P(VoucherTypes, MayBearTheSameName) {
    EXPECT_EQ(add({0, "03", "收款凭证", 0}), Outcome::done);
}

TEST_P(VoucherTypes, AreRestrictedByFirstLevelAccountsOnly) {
    const std::tuple<const char*, const char*, const char*, const char*> refused[] = {
        {"", "", "请输入限制科目", "sCode1"},
        {"1001", "", "非法科目", "sCode2"},
        {"", "1001", "非法科目", "sCode1"},
        {"100201", "1001", "非法科目", "sCode1"},
        {"1001", "100201", "非法科目", "sCode2"},
        {"1001", "1001", "科目不能重复", "sCode2"},
        {"1001' OR '1' = '1", "1002", "非法科目", "sCode1"}};
    for (const auto& [one, two, text, field] : refused) {
        EXPECT_EQ(add({0, "转", "转帐凭证", 3, one, two}), Outcome::refused);
        EXPECT_EQ(refusal(), text);
        EXPECT_EQ(focus(), field);
        EXPECT_EQ(modify(3, [&](_SignInfo& wanted) { wanted = {3, "记", "记", 1, one, two}; }),
                  Outcome::refused);
        EXPECT_EQ(refusal(), text);
    }
    expectUnchanged();
}

TEST_P(VoucherTypes, AreModifiedInEveryField) {
    EXPECT_EQ(modify(2, [](_SignInfo& type) { type = {2, "02", "支出", 3, "1012", "1001"}; }),
              Outcome::done);
    EXPECT_EQ(m_books.stored()[1], "2 02 支出 3 1012 1001");
    EXPECT_EQ(modify(1, [](_SignInfo& type) { setRestricted(type, false); }), Outcome::done);
    EXPECT_EQ(m_books.stored()[0], "1 收 收款凭证 0");
    EXPECT_FALSE(m_books.holdsLocks());
    EXPECT_TRUE(m_books.messages.texts().empty());
}

TEST_P(VoucherTypes, KeepTheirOwnNumberButTakeNobodyElses) {
    EXPECT_EQ(modify(1, [](_SignInfo& type) { type.sSignName = "收入"; }), Outcome::done);
    EXPECT_EQ(renumber(2, "记"), Outcome::refused);
    EXPECT_EQ(refusal(), taken);
    EXPECT_EQ(focus(), "sSign");
    EXPECT_EQ(m_books.stored()[1], "2 付 付款凭证 2 1001 1002");
}

TEST_P(VoucherTypes, ThatVouchersCarryAreNeitherRenumberedNorDeleted) {
    for (const char* carrier : carriers) {
        m_books.run(carrier);
        EXPECT_TRUE(isUsed(1)) << carrier;
        EXPECT_FALSE(isUsed(2)) << carrier;
        EXPECT_EQ(renumber(1, "01"), Outcome::refused) << carrier;
        EXPECT_EQ(refusal(), used);
        EXPECT_EQ(focus(), "sSign");
        EXPECT_EQ(remove(1), Outcome::refused) << carrier;
        EXPECT_EQ(refusal(), used);
        EXPECT_EQ(focus(), "");
        m_books.run(
            "DELETE UnregMain WHERE lId = 1\r\nDELETE RegMain WHERE lId = 1\r\n"
            "DELETE AutoMain WHERE lId = 1");
        EXPECT_FALSE(isUsed(1));
    }
    expectUnchanged();
}

TEST_P(VoucherTypes, ThatVouchersCarryMayBeChangedInAllElse) {
    m_books.run(carriers[0]);
    EXPECT_EQ(modify(1, [](_SignInfo& type) { type = {1, "收", "收入", 3, "1002", "1012"}; }),
              Outcome::done);
    EXPECT_EQ(m_books.stored()[0], "1 收 收入 3 1002 1012");
}

TEST_P(VoucherTypes, OfAnotherNumberThatBeginsAlikeAreNotUsed) {
    m_books.run("INSERT UnregMain (lId, sSign) VALUES(1, '收1')");
    m_books.run("INSERT RegMain (lId, sSign) VALUES(1, '%')");
    m_books.run("INSERT AutoMain (lId, sSign) VALUES(1, '_')");
    EXPECT_FALSE(isUsed(1));
}

TEST_P(VoucherTypes, AreDeletedAfterAQuestionThatShowsWhatIsStored) {
    m_books.run("UPDATE Sign SET sSignName = '支 出' WHERE lId = 2");
    m_books.messages.willAnswer("是否删除当前凭证类别？\n\n类别:付\n\n名称:支 出", Answer::no);
    EXPECT_EQ(m_service.remove(2), Outcome::refused);
    const Question& question = m_books.messages.questions().back();
    EXPECT_EQ(question.icon, MessageIcon::question);
    EXPECT_EQ(question.buttons, AnswerButtons::yesNo);
    EXPECT_EQ(m_books.stored().size(), 3u);
    EXPECT_EQ(remove(2), Outcome::done);
    EXPECT_EQ(m_books.stored(), (Texts{"1 收 收款凭证 1 1001 1002", "3 记 记帐凭证 0"}));
    EXPECT_FALSE(m_books.holdsLocks());
    EXPECT_TRUE(m_books.messages.notices().empty());
}

TEST_P(VoucherTypes, WantOneToBeSelectedForDeletion) {
    EXPECT_EQ(m_service.remove(0), Outcome::refused);
    EXPECT_EQ(m_books.messages.onlyNotice().text, "请选择要删除的凭证类别");
}

TEST_P(VoucherTypes, ThatAreGoneAreNotAskedAbout) {
    m_books.run("DELETE Sign WHERE lId = 2");
    EXPECT_EQ(m_service.remove(2), Outcome::stale);
    EXPECT_EQ(m_books.messages.onlyNotice().text, deletedElsewhere);
    EXPECT_TRUE(m_books.messages.questions().empty());
}

TEST_P(VoucherTypes, ThatGoWhileTheQuestionIsAskedAreLeftAloneWithoutAWord) {
    m_books.messages.whileShown(
        [this](const std::string&) { m_books.run("DELETE Sign WHERE lId = 2"); });
    EXPECT_EQ(remove(2), Outcome::stale);
    EXPECT_TRUE(m_books.messages.notices().empty());
    EXPECT_FALSE(m_books.holdsLocks());
}

TEST_P(VoucherTypes, ThatChangeWhileTheQuestionIsAskedAreNotDeleted) {
    for (const char* change : {"sSign = '88'", "sSignName = '支出'", "byLimit = 0"}) {
        m_books.messages.whileShown([&](const std::string& text) {
            if (text.starts_with("是否"))
                m_books.run(std::string("UPDATE Sign SET ") + change + " WHERE lId = 2");
        });
        EXPECT_EQ(remove(2), Outcome::stale) << change;
        EXPECT_EQ(refusal(), changedElsewhere);
    }
    EXPECT_EQ(m_books.stored()[1], "2 88 支出 0 1001 1002");
}

TEST_P(VoucherTypes, ThatAnotherWorkstationChangedAreNotOverwritten) {
    m_books.run("UPDATE Sign SET byLimit = 3 WHERE lId = 2");
    EXPECT_EQ(modify(2, [](_SignInfo& type) { type.sSignName = "支出"; }), Outcome::stale);
    EXPECT_EQ(refusal(),
              "该凭证类别已被其他工作站修改,本次操作没有进行。\n\n"
              "现在的内容:付 付款凭证(借贷必无 1001、1002)\n"
              "输入的内容:付 支出(贷方必有 1001、1002)\n\n输入已保留,核对后可以再次确定。");
    EXPECT_EQ(m_books.stored()[1], "2 付 付款凭证 3 1001 1002");
}

TEST_P(VoucherTypes, ThatWereChangedAlikeElsewhereCountAsDone) {
    m_books.run("UPDATE Sign SET sSignName = '支出' WHERE lId = 2");
    EXPECT_EQ(modify(2, [](_SignInfo& type) { type.sSignName = "支出"; }), Outcome::done);
    EXPECT_TRUE(m_books.messages.texts().empty());
}

TEST_P(VoucherTypes, ThatAreGoneAreToldAndNotBroughtBack) {
    m_books.run("DELETE Sign WHERE lId = 2");
    EXPECT_EQ(modify(2, [](_SignInfo& type) { type.sSignName = "支出"; }), Outcome::stale);
    EXPECT_EQ(refusal(), deletedBelowTyped);
    _SignInfo read;
    bool isUsed = false;
    EXPECT_EQ(m_service.read(2, read, isUsed), Outcome::stale);
    EXPECT_EQ(m_books.messages.texts(), (Texts{deletedBelowTyped, deletedElsewhere}));
    EXPECT_EQ(m_books.stored().size(), 2u);
}

TEST_P(VoucherTypes, AreStoredAndFoundAsTheyWereTyped) {
    for (const char* number : {"'", "%", "_", "\"\"", "Ａ", "𠮷'", "\\", "--", "a b"}) {
        m_books.run("DELETE Sign WHERE lId > 3");
        _SignInfo added{0, number, std::string("凭证") + number, 0};
        ASSERT_EQ(m_service.add(added), Outcome::done) << number;
        _SignInfo read;
        bool isUsed = true;
        ASSERT_EQ(m_service.read(added.lId, read, isUsed), Outcome::done);
        EXPECT_EQ(read, added);
        EXPECT_FALSE(isUsed) << number;
        EXPECT_EQ(add(added), Outcome::refused) << "found again by the same text";
    }
    EXPECT_EQ(add({0, "A", "半角", 0}), Outcome::done) << "no Ａ";
    EXPECT_EQ(add({0, "a", "小写", 0}), Outcome::done) << "no A";
}

TEST_P(VoucherTypes, ShowNoBoxWhileTheyAreLocked) {
    m_books.run(carriers[1]);
    m_books.messages.whileShown([&](const std::string& text) {
        EXPECT_FALSE(m_books.holdsLocks()) << text;
        EXPECT_FALSE(m_books.database.selectedDatabase()->isInUnit()) << text;
    });
    remove(1);
    renumber(1, "9");
    add({0, "付", "新", 0});
    add({0, "新", "新", 1});
    remove(2);
    EXPECT_EQ(m_books.messages.texts(),
              (Texts{"是否删除当前凭证类别？\n\n类别:收\n\n名称:收款凭证", used, used, taken,
                     "请输入限制科目", "是否删除当前凭证类别？\n\n类别:付\n\n名称:付款凭证"}));
}

TEST_P(VoucherTypes, TellWhyNothingIsDoneWithoutTheDatabase) {
    ASSERT_NE(m_books.database.DBClose("books"), 0);
    EXPECT_EQ(m_service.readAll(), std::nullopt);
    EXPECT_FALSE(m_service.firstLevelAccounts().has_value());
    EXPECT_EQ(add({0, "新", "新", 0}), Outcome::failed);
    EXPECT_EQ(renumber(1, "9"), Outcome::failed);
    EXPECT_EQ(m_service.remove(1), Outcome::failed);
    ASSERT_EQ(m_books.messages.notices().size(), 5u) << "one for each";
    for (const Notice& notice : m_books.messages.notices()) {
        EXPECT_EQ(notice.text, "帐套文件“books”没有打开。\n请先打开帐套。");
        EXPECT_EQ(notice.icon, MessageIcon::warning);
    }
}

CHENGHENG_ON_ALL_ENGINES(VoucherTypes);

}  // namespace
