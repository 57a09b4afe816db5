#include "operators/operator_rules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "operators/operator_sql.h"

namespace {

using namespace chengheng;

using testing::ElementsAre;

template <class Facts>
std::vector<std::string> namesOf(std::span<const Check<Facts>> checks) {
    std::vector<std::string> names;
    for (const Check<Facts>& check : checks) names.emplace_back(check.name);
    return names;
}

std::optional<Refusal> refusalOf(const OperatorInput& input, bool isAddition,
                                 std::string_view taken = "李明") {
    return firstRefusal(operatorInputChecks(),
                        {.input = input,
                         .isAddition = isAddition,
                         .isNameTaken = [taken](auto name) { return name == taken; }});
}

TEST(OperatorRules, LookAtThePasswordFirstAndThenAtTheName) {
    EXPECT_THAT(namesOf(operatorInputChecks()),
                ElementsAre("password and confirmation are equal", "nobody else has the name"));
    EXPECT_EQ(refusalOf({"李明", "a", "b"}, true)->notice.text, "操作员口令和确认口令不匹配!");
}

TEST(OperatorRules, WantThePasswordTwiceTheSameToTheLastCharacter) {
    EXPECT_FALSE(refusalOf({"王芳", "Abc", "Abc"}, true));
    EXPECT_FALSE(refusalOf({"王芳", "", ""}, true));
    for (const char* other : {"abc", "Abc ", "Ab", ""}) {
        const auto refusal = refusalOf({"王芳", "Abc", other}, true);
        ASSERT_TRUE(refusal) << other;
        EXPECT_EQ(refusal->notice.text, "操作员口令和确认口令不匹配!");
        EXPECT_EQ(refusal->notice.icon, MessageIcon::information);
        EXPECT_TRUE(refusal->notice.beep);
        EXPECT_EQ(refusal->notice.focusField, "confirmation");
    }
}

TEST(OperatorRules, RefuseATakenNameInWordsOfTheirOwnForEachDialog) {
    const auto added = refusalOf({" 李明\t", "", ""}, true);
    ASSERT_TRUE(added);
    EXPECT_EQ(added->notice.text, "操作员: 李明 已经存在！");
    EXPECT_EQ(added->notice.focusField, "sUserName");
    EXPECT_EQ(added->notice.icon, MessageIcon::information);
    EXPECT_EQ(refusalOf({"李明", "", ""}, false)->notice.text, "该操作员已经存在。");
}

TEST(OperatorRules, ConfirmOnlyWhatHasANameAndDiffersFromWhatThereWas) {
    EXPECT_FALSE(isOperatorInputChanged({}, {}));
    EXPECT_FALSE(isOperatorInputChanged({"  ", "x", "x"}, {}));
    EXPECT_TRUE(isOperatorInputChanged({"李明", "", ""}, {}));
    const OperatorInput opened{"李明", "", ""};
    EXPECT_FALSE(isOperatorInputChanged({"李明", "", ""}, opened));
    EXPECT_FALSE(isOperatorInputChanged({" 李明 ", "", ""}, opened));
    EXPECT_TRUE(isOperatorInputChanged({"李 明", "", ""}, opened));
    EXPECT_TRUE(isOperatorInputChanged({"李明", "x", ""}, opened));
    EXPECT_FALSE(isOperatorInputChanged({"李明", "", "x"}, opened));
    EXPECT_TRUE(isOperatorInputChanged({"李明", "", "", true}, opened));
    EXPECT_FALSE(isOperatorInputChanged({"", "", "", true}, opened));
    EXPECT_FALSE(isOperatorInputChanged({"", "x", "x"}, opened));
}

TEST(OperatorRules, RefuseADeletionWhileLoggedOnThenWhileUsed) {
    EXPECT_THAT(
        namesOf(operatorDeletionChecks()),
        ElementsAre("is not logged on", "is in no posted voucher", "is not the last supervisor"));
    const auto refusal = [](const OperatorDeletionFacts& facts) {
        const auto found = firstRefusal(operatorDeletionChecks(), facts);
        return found ? found->notice.text : std::string();
    };
    EXPECT_EQ(refusal({"李明", true, true}), "用户《 李明 》已经登录，不能删除！");
    EXPECT_EQ(refusal({"李明", false, true}), "该用户已经使用,不能删除");
    EXPECT_EQ(refusal({"李明", false, false}), "");
    EXPECT_EQ(refusal({"李明", false, true, true}), "该用户已经使用,不能删除");
    EXPECT_EQ(refusal({"李明", false, false, true}),
              "操作员“李明”是最后一位主管,不能删除!\n请先把另一位操作员设为主管。");
}

TEST(OperatorRules, KeepASupervisorFromEndingHimselfAndTheLastOneFromEnding) {
    EXPECT_THAT(namesOf(supervisorEndChecks()),
                ElementsAre("is not who is logged on here", "is not the last supervisor"));
    const auto refusal = [](const SupervisorEndFacts& facts) {
        const auto found = firstRefusal(supervisorEndChecks(), facts);
        return found ? found->notice.text : std::string();
    };
    EXPECT_EQ(refusal({"李明", true, true}), "不能取消自己的主管资格,请由另一位主管取消。");
    EXPECT_EQ(refusal({"李明", false, true}),
              "操作员“李明”是最后一位主管,不能取消!\n请先把另一位操作员设为主管。");
    EXPECT_EQ(refusal({"李明", false, false}), "");
}

TEST(OperatorRules, PutRightsIntoWords) {
    OperatorRights rights;
    EXPECT_EQ(rightsInWords(rights), "无");
    for (const int function : {41, 42, 57, 60}) rights.set(function, true);
    EXPECT_EQ(rightsInWords(rights), "会计科目(全部);出纳(结算方式设置、资金日报)");
}

TEST(OperatorRules, PairOperatorsAndRightsByTheirPlaces) {
    const std::vector<_UsersInfo> users{{1, 1, "张三", 1, ""}, {4, 4, "李明", 0, ""}};
    const std::vector<_UserAuthInfo> rights{{1, 1, ""}, {9, 7, "NY"}};
    const auto paired = pairedOperators(users, rights);
    ASSERT_TRUE(paired);
    ASSERT_EQ(paired->size(), 2u);
    EXPECT_EQ((*paired)[0].user, users[0]);
    EXPECT_TRUE((*paired)[0].isSupervisor());
    EXPECT_EQ((*paired)[1].user, users[1]);
    EXPECT_FALSE((*paired)[1].isSupervisor());
    EXPECT_TRUE((*paired)[1].rights.grants(2)) << "whosever id stands beside them";
}

TEST(OperatorRules, TakeAnyNumberButZeroForASupervisor) {
    const std::vector<_UserAuthInfo> rights{{1, 1, ""}};
    for (const std::int16_t flag : {std::int16_t{1}, std::int16_t{-1}, std::int16_t{2}})
        EXPECT_TRUE(pairedOperators(std::vector<_UsersInfo>{{1, 1, "", flag, ""}}, rights)
                        ->front()
                        .isSupervisor());
}

TEST(OperatorRules, DoNotPairWhatIsNotOneToOne) {
    const std::vector<_UsersInfo> users{{1, 1, "张三", 1, ""}};
    const std::vector<_UserAuthInfo> rights{{1, 1, ""}, {2, 2, ""}};
    EXPECT_FALSE(pairedOperators(users, rights));
    EXPECT_FALSE(pairedOperators(users, {}));
    EXPECT_FALSE(pairedOperators({}, rights));
    EXPECT_FALSE(pairedOperators({}, {})) << "somebody must be there to look at them";
    for (const std::int32_t id : {1, 0, -1}) {
        const std::vector<_UsersInfo> twice{{1, 1, "张三", 1, ""}, {2, id, "李明", 0, ""}};
        EXPECT_FALSE(pairedOperators(twice, rights)) << "a change would be that of both " << id;
    }
    EXPECT_FALSE(pairedOperators(std::vector<_UsersInfo>{{1, 0, "张三", 1, ""}},
                                 std::vector<_UserAuthInfo>{{1, 1, ""}}));
}

TEST(OperatorStatements, AreThoseOfTheDatabaseFormat) {
    const std::string none(255, 'N');
    EXPECT_EQ(operator_sql::addOperator({7, 7, "O'Neil", 1, "hash"}),
              "BEGIN TRANSACTION xiugai\r\n"
              "INSERT INTO Users VALUES( 7, 7, 'O''Neil', 0, 'hash' )\r\n"
              "INSERT INTO UserAuth VALUES( 7, 7, '" +
                  none +
                  "' )\r\n"
                  "UPDATE ABIdTable SET lLastId = 7 WHERE sTable = 'UserAuth' or sTable = 'Users'"
                  "\r\nCOMMIT TRANSACTION xiugai");
    EXPECT_EQ(operator_sql::saveRights(7, "YN"),
              "UPDATE UserAuth SET sAuthId = 'YN' WHERE lUserId = 7");
    EXPECT_EQ(operator_sql::deleteOperator(7),
              "BEGIN TRANSACTION xiugai\r\nDELETE Users WHERE lUserId = 7\r\n"
              "DELETE UserAuth WHERE lUserId = 7\r\nCOMMIT TRANSACTION xiugai");
    EXPECT_EQ(operator_sql::ofVouchers(7), "lUBill = 7 OR lUCheck = 7 OR lUBook = 7");
    EXPECT_EQ(operator_sql::ofNameBeside("a'b", 7), "sUserName = 'a''b' and lUserId <> 7 ");
    EXPECT_EQ(operator_sql::ofName("李明"), "sUserName = '李明'");
    EXPECT_EQ(operator_sql::ofLogons(3, "李明", 7),
              "lAccId = 3 AND ( sUser = '李明' OR lUserId = 7 )");
    EXPECT_EQ(operator_sql::ofSessions(3, "李明", 7),
              "lAccId = 3 AND ( lUserId = 7 OR lUserId = 0 AND sUser = '李明' )");
    EXPECT_STREQ(operator_sql::inOrder, "lId > 0 ORDER BY lUserId");
}

}  // namespace
