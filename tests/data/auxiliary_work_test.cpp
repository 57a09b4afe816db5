#include "auxiliary/screen/auxiliary_work.h"

#include <gtest/gtest.h>

#include "tests/support/engine_cases.h"
#include "tests/support/entry_books.h"

namespace {

using namespace chengheng;
using Texts = std::vector<std::string>;

class AuxiliaryWorks : public testing::TestWithParam<EngineCase> {
  protected:
    void SetUp() override { ASSERT_TRUE(m_work.open(accountCode(m_member))); }

    AuxiliaryEntry added(int which, double money) {
        AuxiliaryEntry entry = EntryBooks::entry(m_member, which, money);
        EXPECT_TRUE(m_work.add(entry));
        return entry;
    }
    Texts shown() {
        Texts texts;
        for (std::size_t row = 0; row < m_work.list().rowCount(); ++row) {
            const AuxiliaryEntry& entry = m_work.list().atRow(row);
            texts.push_back(cellText(entry, EntryColumn::department) + " " +
                            cellText(entry, EntryColumn::money));
        }
        return texts;
    }
    std::string said() {
        const Texts texts = m_books.messages().texts();
        m_books.messages().forget();
        return texts.empty() ? "" : texts.back();
    }

    EntryBooks m_books{freshLocation(GetParam())};
    const AuxiliaryMember& m_member = memberOf(AuxiliaryKind::department);
    AuxiliaryWork m_work{m_books.messages(), m_member, false};
};

TEST_P(AuxiliaryWorks, OfferTheAccountsOfTheKind) {
    m_books.opening().addAccounts({"3001"});
    m_books.opening().change("3001", "sAssBook = 'RC'");
    AuxiliaryWork work(m_books.messages(), m_member, false);
    ASSERT_TRUE(work.open("3001"));
    ASSERT_EQ(work.accounts().size(), 2u);
    EXPECT_EQ(work.accounts()[0].code, accountCode(m_member));
    EXPECT_EQ(work.account().code, "3001");
    ASSERT_TRUE(work.selectAccount(0));
    EXPECT_EQ(work.account().code, accountCode(m_member));
    EXPECT_FALSE(work.open("9999"));
    EXPECT_EQ(said(), "科目已被其他工作站修改,本次操作没有保存,请重新打开窗口。");
}

TEST_P(AuxiliaryWorks, TieTheEntriesToTheAccount) {
    added(1, 100);
    added(2, 20.5);
    EXPECT_EQ(m_work.total(), (EntryFigures{120.5, 0, 0}));
    EXPECT_EQ(m_work.posted(), (EntryFigures{120.5, 0, 0}));
    EXPECT_FALSE(m_work.hasDifference());
    m_books.books().run("UPDATE AccSum SET mBegin = 120");
    ASSERT_TRUE(m_work.refresh());
    EXPECT_TRUE(m_work.hasDifference());
}

TEST_P(AuxiliaryWorks, AddUpByCombination) {
    added(1, 100);
    added(2, 20);
    added(1, 3);
    const auto totals = m_work.combinations();
    ASSERT_EQ(totals.size(), 2u);
    EXPECT_EQ(totals[0].names.department, "销售部");
    EXPECT_EQ(totals[0].count, 2u);
    EXPECT_EQ(totals[0].figures, (EntryFigures{103, 0, 0}));
    EXPECT_EQ(totals[1].figures, (EntryFigures{20, 0, 0}));
}

TEST_P(AuxiliaryWorks, UndoAndRedoWhatWasDone) {
    const Texts empty = m_books.rows();
    AuxiliaryEntry first = added(1, 100);
    added(2, 20);
    AuxiliaryEntry changed = first;
    changed.content.money = 70;
    ASSERT_TRUE(m_work.modify(first, changed));
    m_books.messages().willAnswer("确定删除吗?", Answer::yes);
    ASSERT_TRUE(m_work.remove(0));
    EXPECT_EQ(shown(), (Texts{"生产部 20.00"}));

    const Texts states[] = {
        {"生产部 20.00", "销售部 70.00"}, {"生产部 20.00", "销售部 100.00"}, {"销售部 100.00"}, {}};
    for (const Texts& state : states) {
        ASSERT_TRUE(m_work.undo());
        EXPECT_EQ(shown(), state);
        EXPECT_FALSE(m_work.hasDifference());
        EXPECT_TRUE(m_books.agree(m_member));
    }
    EXPECT_FALSE(m_work.canUndo());
    EXPECT_FALSE(m_work.undo());
    for (int step = 0; step < 4; ++step) ASSERT_TRUE(m_work.redo());
    EXPECT_EQ(shown(), (Texts{"生产部 20.00"}));
    EXPECT_FALSE(m_work.redo());
    EXPECT_TRUE(m_books.agree(m_member));
    EXPECT_EQ(said(), "确定删除吗?");
}

TEST_P(AuxiliaryWorks, ForgetStepsThatAnotherWorkstationOvertook) {
    const AuxiliaryEntry entry = added(1, 100);
    AuxiliaryEntry theirs = entry;
    theirs.content.money = 5;
    EntryService service = m_books.service(m_member);
    ASSERT_EQ(service.modify(m_books.account(m_member), entry, theirs), Outcome::done);
    EXPECT_FALSE(m_work.undo());
    EXPECT_EQ(said(), "该记录已被其他工作站修改,本次操作没有进行,列表已重新读入。");
    EXPECT_EQ(shown(), (Texts{"销售部 5.00"}));
    EXPECT_FALSE(m_work.canUndo());
}

TEST_P(AuxiliaryWorks, WriteOverWhatAnotherWorkstationChangedOnceThatWasTold) {
    const AuxiliaryEntry entry = added(1, 100);
    AuxiliaryEntry theirs = entry;
    theirs.content.money = 5;
    theirs.content.summary = "他人的";
    EntryService service = m_books.service(m_member);
    ASSERT_EQ(service.modify(m_books.account(m_member), entry, theirs), Outcome::done);
    AuxiliaryEntry before = entry;
    AuxiliaryEntry after = entry;
    after.content.money = 70;
    EXPECT_FALSE(m_work.modify(before, after));
    EXPECT_EQ(said(), "该记录已被其他工作站修改,本次操作没有进行,列表已重新读入。");
    EXPECT_EQ(before, theirs);
    EXPECT_EQ(shown(), (Texts{"销售部 5.00"}));
    EXPECT_TRUE(m_work.modify(before, after));
    EXPECT_EQ(said(), "");
    EXPECT_EQ(m_books.stored(m_member), std::vector{after});
    EXPECT_TRUE(m_books.agree(m_member));
    ASSERT_TRUE(m_work.undo());
    EXPECT_EQ(m_books.stored(m_member), std::vector{theirs});
}

TEST_P(AuxiliaryWorks, WriteNothingOverAnEntryThatAnotherWorkstationDeleted) {
    AuxiliaryEntry entry = added(1, 100);
    EntryService service = m_books.service(m_member);
    ASSERT_EQ(service.remove(m_books.account(m_member), entry), Outcome::done);
    AuxiliaryEntry after = entry;
    after.content.money = 70;
    for (int time = 0; time < 2; ++time) {
        EXPECT_FALSE(m_work.modify(entry, after));
        EXPECT_EQ(said(), "该记录已被其他工作站删除,列表已重新读入。");
    }
    EXPECT_EQ(shown(), Texts{});
}

TEST_P(AuxiliaryWorks, WriteNothingWhereNothingChanged) {
    AuxiliaryEntry entry = added(1, 100);
    const Texts before = m_books.rows();
    m_books.books().locks().forget();
    EXPECT_TRUE(m_work.modify(entry, entry));
    EXPECT_EQ(m_books.rows(), before);
    EXPECT_EQ(m_books.books().locks().log(), Texts{});
    ASSERT_TRUE(m_work.undo());
    EXPECT_EQ(shown(), Texts{});
}

TEST_P(AuxiliaryWorks, AddManyAsOneStep) {
    EXPECT_EQ(m_work.addAll({}), std::nullopt);
    EXPECT_FALSE(m_work.canUndo());
    const AuxiliaryEntry alone = added(1, 5);
    std::vector<EntryChange> additions;
    for (int place = 0; place < 100; ++place)
        additions.push_back({.before = {}, .after = EntryBooks::entry(m_member, 1, place + 1)});
    EXPECT_EQ(m_work.addAll(additions), alone.lineId + 1);
    EXPECT_EQ(m_work.total(), (EntryFigures{5055, 0, 0}));
    const std::int32_t second = m_work.list().atRow(2).lineId;
    AuxiliaryEntry before = m_work.list().atRow(2);
    AuxiliaryEntry after = before;
    after.content.money = 1000;
    ASSERT_TRUE(m_work.modify(before, after));
    for (int time = 0; time < 2; ++time) {
        ASSERT_TRUE(m_work.undo());
        ASSERT_TRUE(m_work.undo());
        EXPECT_EQ(shown(), Texts{"销售部 5.00"});
        ASSERT_TRUE(m_work.redo());
        ASSERT_TRUE(m_work.redo()) << "the entry to modify has another id by now";
        EXPECT_NE(m_work.list().atRow(2).lineId, second);
        EXPECT_EQ(m_work.list().atRow(2).content.money, 1000);
        EXPECT_EQ(m_work.list().rowCount(), 101u);
    }
    EXPECT_TRUE(m_books.agree(m_member));
    EXPECT_EQ(said(), "");
    m_books.books().run("UPDATE Dept SET sDeptName = '改名' WHERE lId = 1");
    EXPECT_EQ(m_work.addAll(additions), std::nullopt);
    EXPECT_EQ(said(), "该部门不存在,添加不成功");
    EXPECT_EQ(m_work.list().rowCount(), 101u);
}

TEST_P(AuxiliaryWorks, TellThatNoRowIsSelected) {
    EXPECT_EQ(m_work.entryToModify(std::nullopt), nullptr);
    EXPECT_EQ(said(), "请先选择要修改的行!");
    EXPECT_FALSE(m_work.remove(std::nullopt));
    EXPECT_EQ(said(), "请先选中要删除的行");
    added(1, 1);
    EXPECT_EQ(m_work.entryToModify(0), &m_work.list().atRow(0));
    EXPECT_FALSE(m_work.remove(1));
    EXPECT_EQ(said(), "请先选中要删除的行");
}

TEST_P(AuxiliaryWorks, AskBeforeTheyDelete) {
    added(1, 100);
    m_books.messages().willAnswer("确定删除吗?", Answer::no);
    EXPECT_FALSE(m_work.remove(0));
    EXPECT_EQ(shown(), (Texts{"销售部 100.00"}));
    EXPECT_EQ(m_books.messages().questions().front().buttons, AnswerButtons::yesNo);
}

TEST_P(AuxiliaryWorks, FindFromRowToRowAndSayWhenNothingFits) {
    added(1, 100);
    added(2, 20);
    added(1, 3);
    EntrySearch search;
    search.names.department = "销售";
    EXPECT_EQ(m_work.find(search, 3), 0u);
    EXPECT_EQ(m_work.find(search, 0), 2u);
    EXPECT_EQ(m_work.find(search, 2), 0u);
    search.money = "20.00";
    EXPECT_EQ(m_work.find(search, 0), std::nullopt);
    EXPECT_EQ(said(), "没有符合条件的数据!");
}

TEST_P(AuxiliaryWorks, TellThatADeletionFailed) {
    added(1, 100);
    const Texts before = m_books.rows();
    int deletions = 0;
    for (int call = 1; call < 40; ++call) {
        m_books.messages().willAnswer(Answer::yes);
        m_books.books().engine().failCall(call);
        const bool isDone = m_work.remove(0);
        m_books.books().engine().failCall(0);
        if (isDone) break;
        ASSERT_EQ(m_books.rows(), before) << call;
        const Notice notice = m_books.messages().notices().back();
        if (notice.text == "删除时发生错误!") {
            ++deletions;
            EXPECT_NE(notice.detail, "");
        }
    }
    EXPECT_GE(deletions, 2);
    EXPECT_EQ(shown(), Texts{});
}

TEST_P(AuxiliaryWorks, ThatBrowseNothingAreRefusedByOneMember) {
    for (const AuxiliaryMember& member : auxiliaryMembers()) {
        AuxiliaryWork work(m_books.messages(), member, true);
        const bool refuses = member.kind == AuxiliaryKind::departmentAndUnit;
        EXPECT_EQ(work.open(accountCode(member)), !refuses) << member.caption;
        EXPECT_EQ(said(), refuses ? "没有期初数据，不能浏览期初" : "");
        EXPECT_STREQ(work.modeText(), "浏览、只读");
    }
    EXPECT_STREQ(m_work.modeText(), "");
}

CHENGHENG_ON_ALL_ENGINES(AuxiliaryWorks);

}  // namespace
