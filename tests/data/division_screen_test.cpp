#include "operators/screen/division_screen.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/system/workstation.h"
#include "tests/support/engine_cases.h"
#include "tests/support/operator_books.h"

namespace {

using namespace chengheng;

using testing::ElementsAre;
using testing::IsEmpty;

/// The window of 张三, who is supervisor, without its screen: 李明 has groups whole, in part and
/// not at all, 赵燕 nothing.
class Division : public testing::Test {
  protected:
    void SetUp() override {
        m_books.insert("李明", {1, 41, 42, 57});
        m_books.insert("赵燕");
        m_screen.open();
    }
    /// "李明: 个人往来 会计科目 出纳"
    std::string tree(std::int32_t userId) const {
        for (const DivisionItem& item : m_screen.items()) {
            if (item.userId != userId) continue;
            std::string text = item.name + ':';
            for (const DivisionLeaf& leaf : item.leaves) text += ' ' + leaf.text;
            return text;
        }
        return "";
    }
    const DivisionBox& box(int index) {
        m_boxes = m_screen.boxes();
        return m_boxes.at(static_cast<std::size_t>(index));
    }
    std::string selected() const {
        return std::to_string(m_screen.selected().userId) + '/' +
               std::to_string(m_screen.selected().leaf);
    }

    OperatorBooks m_books{":memory:"};
    DivisionScreen m_screen{m_books.messages, PasswordCost::least};
    DivisionBoxes m_boxes;
};

TEST_F(Division, ListsOperatorsWithTheGroupsTheyHave) {
    EXPECT_EQ(tree(1), "张三: 主管");
    EXPECT_EQ(tree(2), "李明: 个人往来 会计科目 出纳");
    EXPECT_EQ(tree(3), "赵燕:");
    EXPECT_EQ(selected(), "1/-1") << "the first one";
}

TEST_F(Division, ShowsTheGroupsOfAnOperatorInThreeStates) {
    m_screen.select({2});
    for (int group = 0; group < rightsGroupCount; ++group) {
        const DivisionBox& shown = box(group);
        EXPECT_EQ(shown.caption, rightsGroups()[static_cast<std::size_t>(group)].name);
        EXPECT_TRUE(shown.isShown && shown.isEnabled);
        EXPECT_EQ(shown.state, group == 0 || group == 10 ? GroupState::some
                               : group == 6              ? GroupState::all
                                                         : GroupState::none);
    }
}

TEST_F(Division, ShowsASupervisorWithEverythingAndNothingToChange) {
    for (const int leaf : {noLeaf, supervisorLeaf}) {
        m_screen.select({1, leaf});
        EXPECT_EQ(m_screen.selected().leaf, leaf);
        for (int group = 0; group < rightsGroupCount; ++group) {
            EXPECT_EQ(box(group).state, GroupState::all);
            EXPECT_TRUE(box(group).isShown);
            EXPECT_FALSE(box(group).isEnabled);
        }
        m_screen.setBox(0, false);
        EXPECT_EQ(m_books.rightsOf(1), std::string(255, 'N'));
    }
}

TEST_F(Division, ShowsTheFunctionsOfAnOpenedGroupAndHidesTheOtherBoxes) {
    m_screen.select({2, 10});
    const RightsGroup& cashier = rightsGroups()[10];
    for (int index = 0; index < rightsGroupCount; ++index) {
        const DivisionBox& shown = box(index);
        EXPECT_EQ(shown.isShown, index < 8);
        if (index >= 8) continue;
        EXPECT_EQ(shown.caption, cashier.functions[static_cast<std::size_t>(index)]);
        EXPECT_EQ(shown.state, index == 0 ? GroupState::all : GroupState::none);
        EXPECT_TRUE(shown.isEnabled);
    }
}

TEST_F(Division, ShowsEmptyBoxesThatNobodyCanClickWhereNoOperatorIsListed) {
    m_books.run("DELETE UserAuth WHERE lUserId = 3");
    m_screen.refresh();
    EXPECT_EQ(m_books.messages.onlyNotice().text, "系统安全出现故障!");
    EXPECT_THAT(m_screen.items(), IsEmpty());
    EXPECT_FALSE(box(0).isEnabled);
    EXPECT_EQ(box(0).caption, "个人往来");
    EXPECT_FALSE(m_screen.canAdd() || m_screen.canModify() || m_screen.canDelete());
    m_books.messages.forget();
    m_screen.setBox(0, true);
    m_screen.remove();
    EXPECT_FALSE(m_screen.mayModify());
    EXPECT_THAT(m_books.messages.texts(), IsEmpty());
    m_books.run("INSERT UserAuth VALUES( 3, 3, '' )");
    m_screen.refresh();
    EXPECT_TRUE(m_screen.canAdd() && m_screen.canModify() && m_screen.canDelete());
}

TEST_F(Division, CheckingAGroupGrantsItAndHangsItAtItsPlace) {
    m_screen.select({2});
    m_screen.setBox(8, true);
    EXPECT_EQ(tree(2), "李明: 个人往来 会计科目 外币 出纳");
    m_screen.setBox(1, true);
    EXPECT_EQ(tree(2), "李明: 个人往来 部门核算 会计科目 外币 出纳");
    m_screen.setBox(17, true);
    EXPECT_EQ(tree(2), "李明: 个人往来 部门核算 会计科目 外币 出纳 报表");
    EXPECT_EQ(m_books.stored()[1], "2 李明 1 8 9 10 11 12 41 42 46 47 57 82");
    EXPECT_EQ(selected(), "2/-1");
}

TEST_F(Division, ClearingAGroupTakesItAndItsLeafAway) {
    m_screen.select({2});
    m_screen.setBox(6, false);
    EXPECT_EQ(tree(2), "李明: 个人往来 出纳");
    EXPECT_EQ(m_books.stored()[1], "2 李明 1 57");
}

TEST_F(Division, ClickingAGroupThatIsPartlyGrantedClearsItWhicheverWay) {
    for (const bool isChecked : {true, false}) {
        m_books.run("UPDATE UserAuth SET sAuthId = 'Y' WHERE lUserId = 2");
        m_screen.refresh();
        m_screen.select({2});
        ASSERT_EQ(box(0).state, GroupState::some);
        m_screen.setBox(0, isChecked);
        EXPECT_EQ(box(0).state, GroupState::none);
        EXPECT_EQ(m_books.stored()[1], "2 李明");
    }
}

TEST_F(Division, FunctionsOfAnOpenedGroupAreGrantedAndTakenOneByOne) {
    m_screen.select({2, 10});
    m_screen.setBox(7, true);
    EXPECT_EQ(m_books.stored()[1], "2 李明 1 41 42 57 64");
    m_screen.setBox(0, false);
    EXPECT_EQ(m_books.stored()[1], "2 李明 1 41 42 64");
    for (int slot = 0; slot < 7; ++slot) m_screen.setBox(slot, true);
    m_screen.select({2});
    EXPECT_EQ(box(10).state, GroupState::all);
}

TEST_F(Division, AnOpenedGroupStaysWhileItsLastFunctionIsCleared) {
    m_screen.select({2, 10});
    m_screen.setBox(0, false);
    EXPECT_EQ(tree(2), "李明: 个人往来 会计科目 出纳");
    EXPECT_EQ(selected(), "2/10");
    m_screen.setBox(1, true);
    EXPECT_EQ(m_books.stored()[1], "2 李明 1 41 42 58");
    m_screen.setBox(1, false);
    m_screen.select({2, 6});
    EXPECT_EQ(tree(2), "李明: 个人往来 会计科目") << "until it is left";
}

TEST_F(Division, BoxesBeyondTheLastFunctionDoNothing) {
    m_screen.select({2, 6});
    m_screen.setBox(2, true);
    EXPECT_EQ(m_books.stored()[1], "2 李明 1 41 42 57");
}

TEST_F(Division, AGroupIsTakenAwayWithoutAQuestionAndTheNextOneIsSelected) {
    m_screen.select({2, 6});
    m_screen.remove();
    EXPECT_EQ(tree(2), "李明: 个人往来 出纳");
    EXPECT_EQ(selected(), "2/10");
    EXPECT_EQ(box(0).caption, "结算方式设置");
    m_screen.remove();
    EXPECT_EQ(selected(), "2/0") << "without a next one, the one before";
    m_screen.remove();
    EXPECT_EQ(selected(), "2/-1") << "without any, the operator";
    EXPECT_EQ(box(0).caption, "个人往来");
    EXPECT_EQ(m_books.rightsOf(2), std::string(255, 'N'));
    EXPECT_THAT(m_books.messages.texts(), IsEmpty());
}

TEST_F(Division, AnEmptiedOpenedGroupCanBeTakenAwayToo) {
    m_screen.select({2, 10});
    m_screen.setBox(0, false);
    m_screen.remove();
    EXPECT_EQ(tree(2), "李明: 个人往来 会计科目");
    EXPECT_EQ(selected(), "2/6");
}

TEST_F(Division, TheLeafOfASupervisorCannotBeTakenAway) {
    m_screen.select({1, supervisorLeaf});
    EXPECT_FALSE(m_screen.canDelete());
    m_screen.remove();
    EXPECT_EQ(tree(1), "张三: 主管");
    EXPECT_THAT(m_books.messages.texts(), IsEmpty());
    m_screen.select({1});
    EXPECT_TRUE(m_screen.canDelete());
}

TEST_F(Division, AfterADeletionWhoeverIsLoggedOnIsSelected) {
    m_screen.select({2});
    m_books.messages.willAnswer("是否删除操作员:李明?", Answer::yes);
    m_screen.remove();
    EXPECT_EQ(selected(), "1/-1");
    EXPECT_EQ(tree(2), "");
}

TEST_F(Division, SomebodyNewIsAddedAtTheEndAndSelected) {
    OperatorForm form = m_screen.formToAdd();
    EXPECT_TRUE(form.isAddition());
    EXPECT_STREQ(form.title(), "增加操作员");
    EXPECT_FALSE(form.canConfirm());
    form.input = {"王芳", "pw", "pw"};
    EXPECT_TRUE(form.canConfirm());
    EXPECT_TRUE(form.confirm());
    m_screen.take(form);
    EXPECT_EQ(tree(4), "王芳:");
    EXPECT_EQ(selected(), "4/-1");
    m_screen.setBox(17, true);
    EXPECT_EQ(m_books.stored()[3], "4 王芳 82");
}

TEST_F(Division, AFormThatWasGivenUpChangesNothing) {
    const OperatorForm form = m_screen.formToAdd();
    m_screen.take(form);
    EXPECT_EQ(m_screen.items().size(), 3u);
    EXPECT_EQ(selected(), "1/-1");
}

TEST_F(Division, ARefusedFormStaysOpenWithWhatWasTyped) {
    OperatorForm form = m_screen.formToAdd();
    form.input = {"李明", "a", "b"};
    EXPECT_FALSE(form.confirm());
    form.input.confirmation = "a";
    EXPECT_FALSE(form.confirm());
    EXPECT_THAT(m_books.messages.texts(),
                ElementsAre("操作员口令和确认口令不匹配!", "操作员: 李明 已经存在！"));
    EXPECT_EQ(form.input.name, "李明");
    EXPECT_EQ(form.input.password, "a");
    EXPECT_FALSE(form.isDone());
}

TEST_F(Division, SomebodyIsRenamedAndStaysWhereTheyWere) {
    m_screen.select({2, 6});
    ASSERT_TRUE(m_screen.mayModify());
    OperatorForm form = m_screen.formToModify();
    EXPECT_FALSE(form.isAddition());
    EXPECT_STREQ(form.title(), "修改操作员姓名、口令");
    EXPECT_EQ(form.input.name, "李明");
    EXPECT_EQ(form.input.password, "") << "nobody sees the old one";
    EXPECT_FALSE(form.canConfirm());
    form.input.name = "李小明";
    EXPECT_TRUE(form.confirm());
    m_screen.take(form);
    EXPECT_EQ(tree(2), "李小明: 个人往来 会计科目 出纳");
    EXPECT_EQ(selected(), "2/6");
}

TEST_F(Division, TellsOfAPasswordThatIsMissingOrStays) {
    OperatorForm added = m_screen.formToAdd();
    EXPECT_EQ(added.note(), "没有口令:任何人都能用这个姓名登录。");
    added.input.password = "x";
    EXPECT_EQ(added.note(), "");
    added.input = {"王芳", "", "x"};
    EXPECT_EQ(added.note(), "");
    added.input = {"王芳", "x", "x"};
    ASSERT_TRUE(added.confirm());
    m_screen.take(added);
    EXPECT_EQ(m_screen.formToModify().note(), "口令空着不填,原来的口令不变。");
    m_screen.select({2});
    EXPECT_EQ(m_screen.formToModify().note(), "没有口令:任何人都能用这个姓名登录。");
    EXPECT_THAT(m_books.messages.texts(), IsEmpty());
}

TEST_F(Division, WantsAnOperatorToBeSelectedForAModificationAndADeletion) {
    m_screen.select({77});
    EXPECT_EQ(selected(), "1/-1") << "whoever is not there cannot be selected";
    EXPECT_TRUE(m_screen.mayModify());
}

TEST_F(Division, ReadsAnewAndKeepsThePlaceWhileItIsThere) {
    m_screen.select({2, 10});
    m_screen.refresh();
    EXPECT_EQ(selected(), "2/10");
    m_books.run("UPDATE UserAuth SET sAuthId = 'N' WHERE lUserId = 2");
    m_screen.select({2});
    m_screen.refresh();
    m_screen.select({2, 10});
    EXPECT_EQ(selected(), "2/-1") << "a group without a right has no leaf";
    m_books.run("DELETE Users WHERE lUserId = 2\r\nDELETE UserAuth WHERE lUserId = 2");
    m_screen.refresh();
    EXPECT_EQ(selected(), "1/-1");
}

TEST_F(Division, TellsOfDutiesThatOnePersonIsNotToHave) {
    EXPECT_EQ(m_screen.dutiesText(), "");
    m_screen.select({2, 10});
    EXPECT_EQ(m_screen.dutiesText(), "");
    m_screen.setBox(2, true);
    m_screen.select({2});
    m_screen.setBox(9, true);
    EXPECT_EQ(m_screen.dutiesText(),
              "不相容职务:出纳不得兼任稽核(审核);出纳不得登记收入、支出、费用帐目(记帐);"
              "制单人不得审核凭证");
    EXPECT_THAT(m_books.messages.texts(), IsEmpty()) << "nothing is refused for it";
    m_screen.select({1});
    EXPECT_EQ(m_screen.dutiesText(), "");
}

TEST_F(Division, GivesTheRightsOfAPresetOrOfAnotherOperatorAsAWhole) {
    m_screen.select({3});
    const std::vector<RightsSource> sources = m_screen.rightsSources();
    ASSERT_EQ(sources.size(), 8u);
    EXPECT_EQ(sources[5].name, "出纳");
    EXPECT_EQ(sources[7].name, "与“李明”相同");
    m_screen.giveRights(sources[7].rights);
    EXPECT_EQ(m_books.stored()[2], "3 赵燕 1 41 42 57");
    m_screen.select({3, 6});
    m_screen.giveRights(sources[2].rights);
    EXPECT_EQ(m_books.stored()[2], "3 赵燕 42 44 47 48 50 53 54 55 56");
    EXPECT_EQ(selected(), "3/-1");
    m_screen.select({1});
    EXPECT_FALSE(m_screen.canGiveRights());
    m_screen.giveRights(sources[2].rights);
    EXPECT_EQ(m_books.rightsOf(1), std::string(255, 'N'));
}

TEST_F(Division, TellsWhoMayUseAFunction) {
    EXPECT_EQ(m_screen.whoMay(41), "能使用“会计科目设置”的操作员:张三(主管)、李明");
    EXPECT_EQ(m_screen.whoMay(82), "能使用“报表编制”的操作员:张三(主管)");
    m_books.run("UPDATE Users SET bManager = 0 WHERE lUserId = 1");
    m_screen.refresh();
    EXPECT_EQ(m_screen.whoMay(82), "能使用“报表编制”的操作员:没有人");
}

TEST_F(Division, TellsWhoUsesThisWorkstation) {
    EXPECT_EQ(DivisionScreen::userText(), "该用户" + systemUserName() + "已使用");
    EXPECT_FALSE(systemUserName().empty());
}

}  // namespace
