#include "operators/operator_rights.h"

#include <gtest/gtest.h>

namespace {

using namespace chengheng;

std::string stored(std::initializer_list<int> functions, char grant = 'Y', char denial = 'N') {
    std::string text(rightsLength, denial);
    for (const int function : functions) text[static_cast<std::size_t>(function - 1)] = grant;
    return text;
}

constexpr int currencies = 8;  // 46 外币设置, 47 外币查询
constexpr int reports = 17;    // 82 报表编制

TEST(OperatorRights, AreNoneForSomebodyNew) {
    const OperatorRights rights;
    for (int group = 0; group < rightsGroupCount; ++group)
        EXPECT_EQ(rights.state(group), GroupState::none);
    EXPECT_EQ(rights.text(), std::string(255, 'N'));
}

TEST(OperatorRights, OfAGroupAreAllSomeOrNone) {
    const OperatorRights rights(stored({1, 46, 47, 82}));
    EXPECT_EQ(rights.state(0), GroupState::some);
    EXPECT_EQ(rights.state(1), GroupState::none);
    EXPECT_EQ(rights.state(currencies), GroupState::all);
    EXPECT_EQ(rights.state(reports), GroupState::all) << "a group of one function";
}

TEST(OperatorRights, TakeASmallLetterForAGrantAndWriteItLarge) {
    const OperatorRights rights(stored({46, 47}, 'y'));
    EXPECT_EQ(rights.state(currencies), GroupState::all);
    EXPECT_EQ(rights.text(), stored({46, 47}));
}

TEST(OperatorRights, TakeAnyOtherCharacterForADenialAndWriteN) {
    EXPECT_EQ(OperatorRights(stored({46}, 'Y', '1')).text(), stored({46}));
    EXPECT_EQ(OperatorRights(" xT\t").text(), stored({}));
}

TEST(OperatorRights, OfAStringThatEndsEarlyAreWrittenInFullLength) {
    EXPECT_EQ(OperatorRights("NY").text(), stored({2}));
    EXPECT_EQ(OperatorRights("").text(), stored({}));
    EXPECT_EQ(OperatorRights(std::string(300, 'Y')).text(), std::string(255, 'Y'));
}

TEST(OperatorRights, OfFunctionsThatOnlyALaterProgramKnowsStay) {
    OperatorRights rights(stored({46, 83, 255}, 'y'));
    rights.setGroup(currencies, false);
    EXPECT_EQ(rights.text(), stored({83, 255}));
}

TEST(OperatorRights, AreGrantedToAWholeGroupWithItsTwelveFlags) {
    OperatorRights rights;
    rights.setGroup(currencies, true);
    EXPECT_EQ(rights.state(currencies), GroupState::all);
    for (int slot = 0; slot < mostFunctionsOfGroup; ++slot)
        EXPECT_TRUE(rights.has(currencies, slot));
    EXPECT_EQ(rights.text(), stored({46, 47})) << "slots beyond the last function shift nothing";
    rights.setGroup(currencies, false);
    for (int slot = 0; slot < mostFunctionsOfGroup; ++slot)
        EXPECT_FALSE(rights.has(currencies, slot));
    EXPECT_EQ(rights.text(), stored({}));
}

TEST(OperatorRights, OfEachFunctionAloneComeAtItsPlace) {
    for (int function = 1; function <= functionCount; ++function) {
        OperatorRights rights;
        rights.set(function, true);
        EXPECT_EQ(rights.text(), stored({function}));
        for (int other = 1; other <= functionCount; ++other)
            EXPECT_EQ(rights.grants(other), other == function) << function << ' ' << other;
    }
}

TEST(OperatorRights, OfEachGroupAreItsFunctionsAndNoOthers) {
    for (int group = 0; group < rightsGroupCount; ++group) {
        OperatorRights rights;
        rights.setGroup(group, true);
        const int first = firstFunctionOf(group);
        for (int function = 1; function <= functionCount; ++function)
            EXPECT_EQ(rights.grants(function),
                      function >= first && function < first + functionsOf(group))
                << group << ' ' << function;
    }
}

TEST(OperatorRights, FollowTheFunctionsOfAGroupIntoItsState) {
    OperatorRights rights;
    rights.setFunction(currencies, 1, true);
    EXPECT_EQ(rights.state(currencies), GroupState::some);
    EXPECT_EQ(rights.text(), stored({47}));
    rights.setFunction(currencies, 0, true);
    EXPECT_EQ(rights.state(currencies), GroupState::all);
    rights.setFunction(currencies, 1, false);
    EXPECT_EQ(rights.text(), stored({46}));
    rights.setFunction(currencies, 0, false);
    EXPECT_EQ(rights.state(currencies), GroupState::none);
}

TEST(OperatorRights, OfAWholeGroupCanLoseOneFunction) {
    OperatorRights rights;
    rights.setGroup(currencies, true);
    rights.setFunction(currencies, 0, false);
    EXPECT_EQ(rights.state(currencies), GroupState::some);
    EXPECT_EQ(rights.text(), stored({47}));
}

TEST(OperatorRights, HaveSlotsThatStandForNothing) {
    OperatorRights rights;
    rights.setFunction(currencies, 2, true);
    EXPECT_EQ(rights.state(currencies), GroupState::none);
    EXPECT_EQ(rights.text(), stored({}));
}

TEST(RightsChange, NamesWhatIsGrantedAndTakenAndNothingElse) {
    const RightsChange change =
        changeBetween(OperatorRights(stored({1, 46})), OperatorRights(stored({46, 47, 82})));
    EXPECT_EQ(change.granted.count(), 2u);
    EXPECT_TRUE(change.granted.test(46));
    EXPECT_TRUE(change.granted.test(81));
    EXPECT_EQ(change.taken.count(), 1u);
    EXPECT_TRUE(change.taken.test(0));
    EXPECT_FALSE(change.isEmpty());
    EXPECT_TRUE(
        changeBetween(OperatorRights(stored({1}, 'y')), OperatorRights(stored({1}))).isEmpty());
}

TEST(RightsChange, LeavesWhatSomebodyElseHasChangedMeanwhile) {
    const RightsChange change =
        changeBetween(OperatorRights(stored({1, 46})), OperatorRights(stored({46, 47})));
    EXPECT_EQ(change.appliedTo(OperatorRights(stored({1, 82, 90}))).text(), stored({47, 82, 90}));
}

}  // namespace
