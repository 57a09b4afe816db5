#include "settle/settle_service.h"

#include <gtest/gtest.h>

#include "data/connection/database.h"
#include "data/tables/settlement.h"
#include "settle/settle_rules.h"
#include "tests/support/engine_cases.h"
#include "tests/support/settle_books.h"

namespace {

using namespace chengheng;

using Texts = std::vector<std::string>;

constexpr const char* deletedBelowTyped =
    "该结算方式已被其他工作站删除,列表已重新读入。\n输入已保留,再次确定将作为新的结算方式增加。";
constexpr const char* deletedElsewhere = "该结算方式已被其他工作站删除,列表已重新读入。";
constexpr const char* changedElsewhere =
    "该结算方式已被其他工作站修改,本次操作没有进行,列表已重新读入。";

/// Books with three methods. The leaves are those of a list read at the beginning.
class Settling : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override {
        m_books.insert({"1 现金 0", "2 支票 1", "3 汇兑 0"});
        m_methods = m_service.readAll().value();
        for (const _SettleInfo& method : m_methods)
            m_leaves.push_back({method.lId, settleLeafText(method)});
    }
    const _SettleInfo& method(int id) const {
        return m_methods.at(static_cast<std::size_t>(id - 1));
    }
    const Leaf& leaf(int id) const { return m_leaves.at(static_cast<std::size_t>(id - 1)); }
    Outcome add(const char* number, const char* name) {
        _SettleInfo added{0, number, name, 0};
        return m_service.add(added, m_leaves);
    }
    Outcome modify(int id, const char* number, const char* name) {
        return m_service.modify(method(id), {id, number, name, method(id).bNote}, m_leaves);
    }
    Outcome remove(int id) {
        m_books.messages.willAnswer(Answer::yes);
        return m_service.remove(&leaf(id), method(id));
    }
    /// The last thing said, with everything that must hold when a change did not happen.
    std::string refusal() {
        EXPECT_FALSE(m_books.holdsLocks());
        EXPECT_FALSE(m_books.database.selectedName().empty());
        return m_books.messages.texts().empty() ? "" : m_books.messages.texts().back();
    }
    void expectUnchanged() {
        EXPECT_EQ(m_books.stored(), (Texts{"1 1 现金 0", "2 2 支票 1", "3 3 汇兑 0"}));
    }

    SettleBooks m_books{freshLocation(GetParam())};
    SettleService m_service{m_books.messages};
    std::vector<_SettleInfo> m_methods;
    std::vector<Leaf> m_leaves;
};

TEST_P(Settling, ReadsTheMethodsInTheOrderInWhichTheyWereAdded) {
    m_books.run("UPDATE Settle SET sSettle = '现款' WHERE lId = 1");
    const auto methods = m_service.readAll();
    ASSERT_TRUE(methods.has_value());
    ASSERT_EQ(methods->size(), 3u);
    EXPECT_EQ((*methods)[0], (_SettleInfo{1, "1", "现款", 0}));
    EXPECT_EQ((*methods)[1], (_SettleInfo{2, "2", "支票", 1}));
}

TEST_P(Settling, ReadsAnEmptyTableWithoutAWord) {
    m_books.run("DELETE Settle WHERE lId > 0");
    EXPECT_EQ(m_service.readAll(), std::vector<_SettleInfo>{});
    EXPECT_TRUE(m_books.messages.texts().empty());
}

TEST_P(Settling, AddsAMethodWithTheNextId) {
    _SettleInfo added{0, "9", "承兑", 1};
    EXPECT_EQ(m_service.add(added, m_leaves), Outcome::done);
    EXPECT_EQ(added.lId, 4);
    EXPECT_EQ(m_books.stored().back(), "4 9 承兑 1");
    EXPECT_FALSE(m_books.holdsLocks());
    EXPECT_TRUE(m_books.messages.texts().empty());
}

TEST_P(Settling, RefusesAnAdditionThatClashes) {
    const std::tuple<const char*, const char*, const char*> clashes[] = {
        {"1", "新", "结算方式号重复,不能添加!"},
        {"9", "现金", "结算方式重复,不能添加!"},
        {"3", "新", "结算方式号重复,不能增加!"},
        {"9", "汇兑", "结算方式重复,不能增加!"}};
    for (const auto& [number, name, text] : clashes) {
        EXPECT_EQ(add(number, name), Outcome::refused);
        EXPECT_EQ(refusal(), text);
    }
    expectUnchanged();
}

TEST_P(Settling, RefusesWhatAnotherWorkstationAddedSinceTheListWasRead) {
    m_books.insert({"9 承兑 0"});
    EXPECT_EQ(add("9", "新"), Outcome::refused);
    EXPECT_EQ(refusal(), "结算方式号重复,不能增加!");
    EXPECT_EQ(add("8", "承兑"), Outcome::refused);
    EXPECT_EQ(refusal(), "结算方式重复,不能增加!");
    EXPECT_EQ(modify(1, "9", "现金"), Outcome::refused);
    EXPECT_EQ(refusal(), "结算方式号重复,不能修改!");
    EXPECT_EQ(modify(1, "1", "承兑"), Outcome::refused);
    EXPECT_EQ(refusal(), "结算方式重复,不能修改!");
}

TEST_P(Settling, ModifiesNumberNameAndFlag) {
    EXPECT_EQ(m_service.modify(method(2), {2, "20", "转帐支票", 0}, m_leaves), Outcome::done);
    EXPECT_EQ(m_books.stored()[1], "2 20 转帐支票 0");
    EXPECT_FALSE(m_books.holdsLocks());
}

TEST_P(Settling, RefusesAModificationThatClashes) {
    EXPECT_EQ(modify(2, "1", "支票"), Outcome::refused);
    EXPECT_EQ(refusal(), "结算方式号重复,不能修改!");
    EXPECT_EQ(modify(1, "1", "汇兑"), Outcome::refused);
    EXPECT_EQ(refusal(), "结算方式重复,不能修改!");
    expectUnchanged();
}

TEST_P(Settling, LetsAUsedMethodBeRenamedButNotRenumbered) {
    m_books.run("INSERT RegSub (lId, sStlId) VALUES(1, '1')");
    EXPECT_EQ(modify(1, "1", "现款"), Outcome::done);
    EXPECT_EQ(m_books.stored()[0], "1 1 现款 0");
    m_methods = m_service.readAll().value();
    EXPECT_EQ(modify(1, "7", "现款"), Outcome::refused);
    EXPECT_EQ(refusal(), "结算方式已使用,不能再修改!");
    EXPECT_EQ(m_books.messages.notices().back().focusField, "sStlId");
    EXPECT_EQ(m_books.stored()[0], "1 1 现款 0");
}

TEST_P(Settling, AsksForUseBeforeItLooksForClashes) {
    m_books.run("INSERT RegSub (lId, sStlId) VALUES(1, '1')");
    EXPECT_EQ(modify(1, "2", "支票"), Outcome::refused);
    EXPECT_EQ(refusal(), "结算方式已使用,不能再修改!");
}

TEST_P(Settling, CountsVouchersAndBankStatementsAsUse) {
    const char* references[] = {"INSERT UnregSub (lId, sStlId) VALUES(1, '1')",
                                "INSERT RegSub (lId, sStlId) VALUES(1, '1')",
                                "INSERT RecpBank (lId, sNoteMethod) VALUES(1, '1')"};
    for (const char* reference : references) {
        m_books.run(reference);
        _SettleInfo read;
        bool isUsed = false;
        EXPECT_EQ(m_service.read(1, read, isUsed), Outcome::done);
        EXPECT_TRUE(isUsed) << reference;
        EXPECT_EQ(read, method(1));
        EXPECT_EQ(modify(1, "7", "现金"), Outcome::refused) << reference;
        EXPECT_EQ(remove(1), Outcome::refused) << reference;
        EXPECT_EQ(refusal(), "该结算方式已使用, 不能删除!");
        m_books.run(
            "DELETE UnregSub WHERE lId = 1\r\nDELETE RegSub WHERE lId = 1\r\n"
            "DELETE RecpBank WHERE lId = 1");
    }
    expectUnchanged();
}

TEST_P(Settling, TakesNumbersThatOnlyBeginAlikeForUnused) {
    m_books.run("INSERT UnregSub (lId, sStlId) VALUES(1, '11')");
    m_books.run("INSERT RecpBank (lId, sNoteMethod) VALUES(1, '%')");
    _SettleInfo read;
    bool isUsed = true;
    EXPECT_EQ(m_service.read(1, read, isUsed), Outcome::done);
    EXPECT_FALSE(isUsed);
}

TEST_P(Settling, AsksWithNumberAndNameBeforeItDeletes) {
    const Leaf leaf{2, "2 银行 支票"};
    m_books.messages.willAnswer("是否删除当前结算方式号?\n\n结算方式号:2\n结算方式名:银行 支票",
                                Answer::no);
    EXPECT_EQ(m_service.remove(&leaf, method(2)), Outcome::refused);
    const Question& question = m_books.messages.questions().back();
    EXPECT_EQ(question.icon, MessageIcon::question);
    EXPECT_EQ(question.buttons, AnswerButtons::yesNo);
    expectUnchanged();
}

TEST_P(Settling, DeletesAnUnusedMethod) {
    EXPECT_EQ(remove(2), Outcome::done);
    EXPECT_EQ(m_books.stored(), (Texts{"1 1 现金 0", "3 3 汇兑 0"}));
    EXPECT_FALSE(m_books.holdsLocks());
    EXPECT_TRUE(m_books.messages.notices().empty());
}

TEST_P(Settling, WantsAMethodToBeSelectedForDeletion) {
    EXPECT_EQ(m_service.remove(nullptr, {}), Outcome::refused);
    EXPECT_EQ(m_books.messages.onlyNotice().text, "请选择要删除的结算方式");
}

TEST_P(Settling, LeavesAMethodAloneThatIsDeletedAlready) {
    m_books.run("DELETE Settle WHERE lId = 2");
    EXPECT_EQ(remove(2), Outcome::stale);
    EXPECT_TRUE(m_books.messages.notices().empty());
    EXPECT_FALSE(m_books.holdsLocks());
}

TEST_P(Settling, DeletesNoMethodThatIsNoLongerTheOneConfirmed) {
    m_books.run("UPDATE Settle SET sStlId = '8' WHERE lId = 2");
    EXPECT_EQ(remove(2), Outcome::stale);
    EXPECT_EQ(refusal(), changedElsewhere);
    m_books.run("UPDATE Settle SET sStlId = '2', sSettle = '本票' WHERE lId = 2");
    EXPECT_EQ(remove(2), Outcome::stale);
    EXPECT_EQ(refusal(), changedElsewhere);
    EXPECT_EQ(m_books.stored()[1], "2 2 本票 1");
}

TEST_P(Settling, OverwritesNothingThatAnotherWorkstationChanged) {
    m_books.run("UPDATE Settle SET bNote = 0 WHERE lId = 2");
    EXPECT_EQ(modify(2, "2", "本票"), Outcome::stale);
    EXPECT_EQ(refusal(),
              "该结算方式已被其他工作站修改,本次操作没有进行。\n\n现在的内容:2 支票\n"
              "输入的内容:2 本票(使用支票登记簿)\n\n输入已保留,核对后可以再次确定。");
    EXPECT_EQ(m_books.stored()[1], "2 2 支票 0");
}

TEST_P(Settling, TakesTheSameChangeMadeElsewhereForItsOwn) {
    m_books.run("UPDATE Settle SET sSettle = '本票' WHERE lId = 2");
    EXPECT_EQ(modify(2, "2", "本票"), Outcome::done);
    EXPECT_TRUE(m_books.messages.texts().empty());
}

TEST_P(Settling, TellsThatAMethodToBeModifiedOrReadHasGone) {
    m_books.run("DELETE Settle WHERE lId = 2");
    EXPECT_EQ(modify(2, "2", "本票"), Outcome::stale);
    EXPECT_EQ(refusal(), deletedBelowTyped);
    _SettleInfo read;
    bool isUsed = false;
    EXPECT_EQ(m_service.read(2, read, isUsed), Outcome::stale);
    EXPECT_EQ(m_books.messages.texts(), (Texts{deletedBelowTyped, deletedElsewhere}));
}

TEST_P(Settling, StoresTextsAsTheyWereTyped) {
    for (const char* name : {"O'Brien", "100%_", "\\n", "支“票”", "𠮷野家"}) {
        m_books.run("DELETE Settle WHERE lId > 3");
        _SettleInfo added{0, "𠮷'", name, 1};
        ASSERT_EQ(m_service.add(added, m_leaves), Outcome::done) << name;
        _SettleInfo read;
        bool isUsed = true;
        ASSERT_EQ(m_service.read(added.lId, read, isUsed), Outcome::done);
        EXPECT_EQ(read, added);
        EXPECT_EQ(add("𠮷'", "新"), Outcome::refused) << "found again by the same text";
    }
}

TEST_P(Settling, ShowsNoBoxWhileItHoldsItsLocks) {
    m_books.run("INSERT RegSub (lId, sStlId) VALUES(1, '1')");
    m_books.messages.whileShown([&](const std::string& text) {
        EXPECT_FALSE(m_books.holdsLocks()) << text;
        EXPECT_FALSE(m_books.database.selectedDatabase()->isInUnit()) << text;
    });
    remove(1);
    modify(1, "9", "现金");
    add("1", "新");
    remove(2);
    EXPECT_EQ(m_books.messages.texts(),
              (Texts{"是否删除当前结算方式号?\n\n结算方式号:1\n结算方式名:现金",
                     "该结算方式已使用, 不能删除!", "结算方式已使用,不能再修改!",
                     "结算方式号重复,不能添加!",
                     "是否删除当前结算方式号?\n\n结算方式号:2\n结算方式名:支票"}));
}

TEST_P(Settling, TellsWhyNothingIsDoneWithoutTheDatabase) {
    ASSERT_NE(m_books.database.DBClose("books"), 0);
    EXPECT_EQ(m_service.readAll(), std::nullopt);
    EXPECT_EQ(add("9", "新"), Outcome::failed);
    EXPECT_EQ(modify(1, "9", "新"), Outcome::failed);
    EXPECT_EQ(remove(1), Outcome::failed);
    ASSERT_EQ(m_books.messages.notices().size(), 4u) << "one for each";
    for (const Notice& notice : m_books.messages.notices()) {
        EXPECT_EQ(notice.text, "帐套文件“books”没有打开。\n请先打开帐套。");
        EXPECT_EQ(notice.icon, MessageIcon::warning);
    }
}

CHENGHENG_ON_ALL_ENGINES(Settling);

}  // namespace
